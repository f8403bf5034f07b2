#include "util/TextBuffer.h"

#include <algorithm>
#include <utility>

namespace vestrel {

void TextBuffer::Grow(std::size_t count) {
  const std::size_t wanted = std::max(capacity_ * 2, size_ + count);
  std::unique_ptr<char16_t[]> larger(new char16_t[wanted]);
  std::copy(data_, data_ + size_, larger.get());
  heap_ = std::move(larger);
  data_ = heap_.get();
  capacity_ = wanted;
}

}  // namespace vestrel
