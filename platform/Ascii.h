// The quick way between narrow and wide text for text that is all ASCII, which names and values nearly always
// are. Every code page agrees on it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace vestrel::platform {

// Whether none of the bits is set in any eight bytes of the text, nor in what is left of it at the end.
template <class Unit>
bool LacksBits(std::basic_string_view<Unit> text, std::uint64_t bits) noexcept {
  constexpr std::size_t kTogether = sizeof bits / sizeof(Unit);
  std::uint64_t seen = 0;
  std::size_t at = 0;
  for (; at + kTogether <= text.size(); at += kTogether) {
    std::uint64_t units = 0;
    std::memcpy(&units, text.data() + at, sizeof units);
    seen |= units;
  }
  std::uint64_t rest = 0;
  if (at < text.size()) std::memcpy(&rest, text.data() + at, (text.size() - at) * sizeof(Unit));
  return ((seen | rest) & bits) == 0;
}

inline bool IsAscii(std::u16string_view text) noexcept {
  return LacksBits(text, 0xFF80FF80FF80FF80U);
}

inline bool IsAscii(std::string_view bytes) noexcept {
  return LacksBits(bytes, 0x8080808080808080U);
}

// Both require IsAscii.
inline std::string NarrowAscii(std::u16string_view text) {
  std::string bytes(text.size(), '\0');
  for (std::size_t i = 0; i < text.size(); ++i) bytes[i] = static_cast<char>(text[i]);
  return bytes;
}

inline std::u16string WidenAscii(std::string_view bytes) {
  std::u16string text(bytes.size(), u'\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) text[i] = static_cast<char16_t>(bytes[i]);
  return text;
}

}  // namespace vestrel::platform
