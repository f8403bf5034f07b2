// Text under construction: grows in place on the stack and moves to the heap only when it becomes long, so
// that building a log line or a message costs no allocation a piece. Lives for the length of one call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace vestrel {

class TextBuffer {
 public:
  TextBuffer() noexcept : data_(inline_) {}
  TextBuffer(const TextBuffer&) = delete;
  TextBuffer& operator=(const TextBuffer&) = delete;
  ~TextBuffer() = default;

  std::size_t size() const noexcept { return size_; }
  // Valid until the next change.
  std::u16string_view view() const noexcept { return {data_, size_}; }
  std::u16string_view From(std::size_t start) const noexcept { return view().substr(start); }

  void Append(char16_t unit) { *Extend(1) = unit; }
  void Append(std::u16string_view text) {
    std::char_traits<char16_t>::copy(Extend(text.size()), text.data(), text.size());
  }
  // Small numbers, which nearly all are, need no loop.
  void AppendDecimal(std::int32_t value) {
    const auto small = static_cast<std::uint32_t>(value);
    if (small >= 100) return AppendLargeDecimal(value);
    char16_t* const to = Room(2);
    const bool two = small >= 10;
    to[0] = Digit(two ? small / 10 : small);
    to[1] = Digit(small % 10);
    Advance(two ? 2 : 1);
  }
  // Each byte becomes one unit: for digits and signs.
  void AppendAscii(std::string_view text) {
    char16_t* to = Extend(text.size());
    for (const char byte : text) *to++ = static_cast<char16_t>(byte);
  }
  void AppendRepeated(std::size_t count, char16_t unit) {
    char16_t* to = Extend(count);
    for (std::size_t i = 0; i < count; ++i) to[i] = unit;
  }
  // Room for `count` more units, of which the first `used` then count as appended by Advance.
  char16_t* Room(std::size_t count) {
    if (count > capacity_ - size_) Grow(count);
    return data_ + size_;
  }
  void Advance(std::size_t used) noexcept { size_ += used; }
  // The units from `start` on, to be changed in place.
  char16_t* MutableFrom(std::size_t start) noexcept { return data_ + start; }

 private:
  // Makes room for `count` more units and counts them in; the result is where they go.
  char16_t* Extend(std::size_t count) {
    char16_t* const place = Room(count);
    Advance(count);
    return place;
  }
  static char16_t Digit(std::uint32_t value) noexcept { return static_cast<char16_t>(u'0' + value); }
  void AppendLargeDecimal(std::int32_t value);
  void Grow(std::size_t count);

  static constexpr std::size_t kInlineSize = 512;

  char16_t* data_;
  std::size_t size_ = 0;
  std::size_t capacity_ = kInlineSize;
  std::unique_ptr<char16_t[]> heap_;
  char16_t inline_[kInlineSize];  // not cleared: only what was appended is read
};

}  // namespace vestrel
