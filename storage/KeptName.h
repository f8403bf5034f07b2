// A section's or key's name that is used again and again. Where it is all ASCII, on which every code page
// agrees, it is kept in the narrow page, so that its uses need not convert it.
#pragma once

#include <string>
#include <string_view>

namespace vestrel {

class KeptName {
 public:
  KeptName() = default;
  explicit KeptName(std::u16string_view text) { Set(text); }

  void Set(std::u16string_view text);
  // Adds a character of ASCII.
  void Append(char c);

  bool isAscii() const noexcept { return wide_.empty(); }
  // Requires isAscii. Valid until the next Set.
  std::string_view ascii() const noexcept { return ascii_; }
  std::u16string text() const;
  void Clear() noexcept {
    ascii_.clear();
    wide_.clear();
  }

 private:
  bool Is(std::u16string_view text) const noexcept;
  void SetAny(std::u16string_view text);

  std::string ascii_;
  std::u16string wide_;  // the name where it is not all ASCII
};

}  // namespace vestrel
