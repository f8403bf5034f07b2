#include "util/TextBuffer.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vestrel {

char16_t* TextBuffer::PutLargeDecimal(char16_t* to, std::int32_t value) noexcept {
  char16_t digits[kLongestDecimal];
  char16_t* first = std::end(digits);
  const auto bits = static_cast<std::uint32_t>(value);
  for (std::uint32_t rest = value < 0 ? 0U - bits : bits; rest != 0; rest /= 10) *--first = Digit(rest % 10);
  if (value < 0) *--first = u'-';
  return std::copy(first, std::end(digits), to);
}

void TextBuffer::Grow(std::size_t count) {
  const std::size_t wanted = std::max(capacity_ * 2, size_ + count);
  std::unique_ptr<char16_t[]> larger(new char16_t[wanted]);
  std::copy(data_, data_ + size_, larger.get());
  heap_ = std::move(larger);
  data_ = heap_.get();
  capacity_ = wanted;
}

}  // namespace vestrel
