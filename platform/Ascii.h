// The quick way between narrow and wide text for text that is all ASCII, which names and values nearly always
// are. Every code page agrees on it.
#pragma once

#include <string>
#include <string_view>

namespace vestrel::platform {

// Whole stretches are looked at before anything is decided, which the compiler turns into wide steps.
inline bool IsAscii(std::u16string_view text) noexcept {
  unsigned bits = 0;
  for (const char16_t unit : text) bits |= unit;
  return bits < 0x80;
}

inline bool IsAscii(std::string_view bytes) noexcept {
  unsigned bits = 0;
  for (const char byte : bytes) bits |= static_cast<unsigned char>(byte);
  return bits < 0x80;
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
