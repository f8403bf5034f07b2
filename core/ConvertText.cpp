#include <algorithm>
#include <cstddef>

#include "core/Convert.h"

namespace vestrel {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) noexcept {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit) noexcept {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

char32_t NextCodePoint(std::u16string_view text, std::size_t& at) noexcept {
  const char32_t unit = text[at++];
  if (IsHighSurrogate(unit) && at < text.size() && IsLowSurrogate(text[at])) {
    return 0x10000 + ((unit - 0xD800) << 10U) + (char32_t{text[at++]} - 0xDC00);
  }
  return IsHighSurrogate(unit) || IsLowSurrogate(unit) ? kReplacement : unit;
}

char TrailByte(char32_t point, unsigned shift) noexcept {
  return static_cast<char>(0x80U | ((point >> shift) & 0x3FU));
}

void AppendUtf8(std::string& out, char32_t point) {
  if (point < 0x80) {
    out.push_back(static_cast<char>(point));
    return;
  }
  if (point < 0x800) {
    out.push_back(static_cast<char>(0xC0U | (point >> 6U)));
  } else {
    if (point < 0x10000) {
      out.push_back(static_cast<char>(0xE0U | (point >> 12U)));
    } else {
      out.push_back(static_cast<char>(0xF0U | (point >> 18U)));
      out.push_back(TrailByte(point, 12));
    }
    out.push_back(TrailByte(point, 6));
  }
  out.push_back(TrailByte(point, 0));
}

void AppendUtf16(std::u16string& out, char32_t point) {
  if (point < 0x10000) {
    out.push_back(static_cast<char16_t>(point));
    return;
  }
  out.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10U)));
  out.push_back(static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FFU)));
}

// Length of the sequence that a first byte announces and the smallest code point it may stand for.
struct Lead {
  std::size_t length;
  char32_t bits;
  char32_t smallest;
};

Lead ReadLead(unsigned char byte) noexcept {
  if (byte < 0x80) return {1, byte, 0};
  if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1FU, 0x80};
  if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0FU, 0x800};
  if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07U, 0x10000};
  return {1, kReplacement, 0};
}

// A malformed sequence costs one byte and stands for the replacement character.
char32_t NextUtf8(std::string_view text, std::size_t& at) noexcept {
  const Lead lead = ReadLead(static_cast<unsigned char>(text[at]));
  char32_t point = lead.bits;
  for (std::size_t i = 1; i < lead.length; ++i) {
    const unsigned byte = at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0U;
    if ((byte & 0xC0U) != 0x80U) {
      ++at;
      return kReplacement;
    }
    point = (point << 6U) | (byte & 0x3FU);
  }
  const bool valid = point >= lead.smallest && point <= 0x10FFFF && !(point >= 0xD800 && point <= 0xDFFF);
  at += valid ? lead.length : 1;
  return valid ? point : kReplacement;
}

}  // namespace

char16_t FoldCase(char16_t unit) noexcept {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

bool EqualIgnoringCase(std::u16string_view a, std::u16string_view b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t x, char16_t y) { return FoldCase(x) == FoldCase(y); });
}

std::u16string LowerCase(std::u16string_view text) {
  std::u16string result(text);
  for (char16_t& unit : result) unit = FoldCase(unit);
  return result;
}

std::string ToUtf8(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) AppendUtf8(result, NextCodePoint(text, at));
  return result;
}

std::u16string FromUtf8(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) AppendUtf16(result, NextUtf8(text, at));
  return result;
}

}  // namespace vestrel
