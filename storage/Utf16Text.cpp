#include "storage/Utf16Text.h"

namespace vestrel::utf16 {
namespace {

constexpr std::string_view kMark = "\xFF\xFE";

bool IsHigh(char16_t unit) {
  return (unit & 0xFC00U) == 0xD800U;
}

bool IsLow(char16_t unit) {
  return (unit & 0xFC00U) == 0xDC00U;
}

void AppendByte(std::string& text, char32_t bits) {
  text += static_cast<char>(bits);
}

void AppendCharacter(std::string& text, char32_t c) {
  if (c < 0x80) {
    AppendByte(text, c);
    return;
  }
  if (c < 0x800) {
    AppendByte(text, 0xC0U | (c >> 6U));
  } else {
    if (c < 0x10000) {
      AppendByte(text, 0xE0U | (c >> 12U));
    } else {
      AppendByte(text, 0xF0U | (c >> 18U));
      AppendByte(text, 0x80U | ((c >> 12U) & 0x3FU));
    }
    AppendByte(text, 0x80U | ((c >> 6U) & 0x3FU));
  }
  AppendByte(text, 0x80U | (c & 0x3FU));
}

// Takes the character at `at`, which FromText made, and moves behind it.
char32_t TakeCharacter(std::string_view text, std::size_t& at) {
  const auto first = static_cast<unsigned char>(text[at++]);
  const int more = first < 0xC0 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
  char32_t c = more == 0 ? first : first & (0x3FU >> static_cast<unsigned>(more));
  for (int i = 0; i < more && at < text.size(); ++i)
    c = (c << 6U) | (static_cast<unsigned char>(text[at++]) & 0x3FU);
  return c;
}

}  // namespace

bool HasMark(std::string_view bytes) noexcept {
  return bytes.substr(0, kMark.size()) == kMark;
}

std::string Decode(std::string_view bytes) {
  std::u16string units;
  units.reserve(bytes.size() / 2);
  for (std::size_t i = kMark.size(); i + 1 < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i]);
    const auto high = static_cast<unsigned char>(bytes[i + 1]);
    units += static_cast<char16_t>(low | (high << 8U));
  }
  return FromText(units);
}

std::string Encode(std::string_view text) {
  std::string bytes(kMark);
  for (const char16_t unit : ToText(text)) {
    AppendByte(bytes, unit & 0xFFU);
    AppendByte(bytes, unit >> 8U);
  }
  return bytes;
}

std::string FromText(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1])) {
      c = 0x10000U + ((c - 0xD800U) << 10U) + (text[++i] - 0xDC00U);
    }
    AppendCharacter(result, c);
  }
  return result;
}

std::u16string ToText(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = TakeCharacter(text, at);
    if (c >= 0x10000) {
      result += static_cast<char16_t>(0xD800U + ((c - 0x10000U) >> 10U));
      result += static_cast<char16_t>(0xDC00U + (c & 0x3FFU));
    } else {
      result += static_cast<char16_t>(c);
    }
  }
  return result;
}

}  // namespace vestrel::utf16
