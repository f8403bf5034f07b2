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
  void AppendDecimal(std::int32_t value) {
    char16_t* const to = Room(kLongestDecimal);
    Advance(static_cast<std::size_t>(PutDecimal(to, value) - to));
  }
  // A sign and ten digits.
  static constexpr std::size_t kLongestDecimal = 11;
  // Writes the number at `to`, which has room for the longest; answers its end. Small ones, which nearly all
  // are, need no loop.
  static char16_t* PutDecimal(char16_t* to, std::int32_t value) noexcept {
    auto rest = static_cast<std::uint32_t>(value);
    if (rest >= 10) {
      if (rest >= 1000) return PutLargeDecimal(to, value);
      if (rest >= 100) {
        *to++ = Digit(rest / 100);
        rest %= 100;
      }
      *to++ = Digit(rest / 10);
      rest %= 10;
    }
    *to++ = Digit(rest);
    return to;
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
  // How many more units there is room for without growing.
  std::size_t Free() const noexcept { return capacity_ - size_; }
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
  static char16_t* PutLargeDecimal(char16_t* to, std::int32_t value) noexcept;
  void Grow(std::size_t count);

  static constexpr std::size_t kInlineSize = 512;

  char16_t* data_;
  std::size_t size_ = 0;
  std::size_t capacity_ = kInlineSize;
  std::unique_ptr<char16_t[]> heap_;
  char16_t inline_[kInlineSize];  // not cleared: only what was appended is read
};

}  // namespace vestrel
