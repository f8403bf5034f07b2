// A section's or key's name that is used again and again. Where it is short and all ASCII, on which every
// code page agrees, it is kept in the narrow page, so that its uses need not convert it.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace vestrel {

class KeptName {
 public:
  // The longest that is kept narrow.
  static constexpr std::size_t kShort = 64;

  KeptName() = default;
  explicit KeptName(std::u16string_view text) { Set(text); }

  void Set(std::u16string_view text);
  // The same of text that is all ASCII.
  void SetAscii(std::string_view text);
  // Adds a character of ASCII.
  void Append(char c);

  bool isNarrow() const noexcept { return wide_.empty(); }
  // Requires isNarrow. Valid until the next change.
  std::string_view narrow() const noexcept { return {narrow_, size_}; }
  // Copies the name to the front of `to`, which has room for kShort, more quickly than by its own length.
  // Requires isNarrow.
  void CopyTo(char* to) const noexcept { std::memcpy(to, narrow_, kShort); }
  std::u16string text() const;
  void Clear() noexcept {
    size_ = 0;
    wide_.clear();
  }

 private:
  char narrow_[kShort] = {};
  std::size_t size_ = 0;
  std::u16string wide_;  // the name where it is not in narrow_
};

}  // namespace vestrel
