// The narrow page is UTF-8.
#include "platform/Ascii.h"
#include "platform/System.h"

namespace vestrel::platform {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

void AppendUtf8(std::string& bytes, char32_t c) {
  const auto tail = [&bytes, c](unsigned shift) {
    bytes += static_cast<char>(0x80U | ((c >> shift) & 0x3FU));
  };
  if (c < 0x80) {
    bytes += static_cast<char>(c);
  } else if (c < 0x800) {
    bytes += static_cast<char>(0xC0U | (c >> 6U));
    tail(0);
  } else if (c < 0x10000) {
    bytes += static_cast<char>(0xE0U | (c >> 12U));
    tail(6);
    tail(0);
  } else {
    bytes += static_cast<char>(0xF0U | (c >> 18U));
    tail(12);
    tail(6);
    tail(0);
  }
}

struct Sequence {
  unsigned length;    // bytes, the first included; 0 for a byte that cannot start one
  char32_t bits;      // the first byte's part of the character
  char32_t smallest;  // what needs this length
};

Sequence SequenceOf(unsigned char first) {
  if (first < 0x80) return {1, first, 0};
  if (first >= 0xC2 && first <= 0xDF) return {2, first & 0x1FU, 0x80};
  if (first >= 0xE0 && first <= 0xEF) return {3, first & 0x0FU, 0x800};
  if (first >= 0xF0 && first <= 0xF4) return {4, first & 0x07U, 0x10000};
  return {0, 0, 0};
}

// Decodes the character at the front of `bytes` and removes it; a byte that starts none goes alone.
char32_t TakeCharacter(std::string_view& bytes) {
  const Sequence sequence = SequenceOf(static_cast<unsigned char>(bytes.front()));
  char32_t c = sequence.bits;
  unsigned used = 1;
  while (used < sequence.length && used < bytes.size() && IsContinuation(bytes[used])) {
    c = (c << 6U) | (static_cast<unsigned char>(bytes[used]) & 0x3FU);
    ++used;
  }
  const bool whole = sequence.length != 0 && used == sequence.length && c >= sequence.smallest &&
                     c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
  bytes.remove_prefix(whole ? used : 1);
  return whole ? c : kReplacement;
}

void AppendUtf16(std::u16string& text, char32_t c) {
  if (c < 0x10000) {
    text += static_cast<char16_t>(c);
    return;
  }
  text += static_cast<char16_t>(0xD7C0U + (c >> 10U));
  text += static_cast<char16_t>(0xDC00U + (c & 0x3FFU));
}

class PosixEncoding final : public TextEncoding {
 public:
  std::string Narrow(std::u16string_view text, bool& lossy) override {
    if (IsAscii(text)) return NarrowAscii(text);
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
      const char16_t unit = text[i];
      if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
        const char16_t low = text[++i];
        AppendUtf8(bytes, ((char32_t{unit} - 0xD7C0U) << 10U) + (char32_t{low} - 0xDC00U));
      } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
        bytes += '?';
        lossy = true;
      } else {
        AppendUtf8(bytes, unit);
      }
    }
    return bytes;
  }

  std::u16string Widen(std::string_view bytes) override {
    if (IsAscii(bytes)) return WidenAscii(bytes);
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) AppendUtf16(text, TakeCharacter(bytes));
    return text;
  }

  std::size_t CutLength(std::string_view bytes, std::size_t limit) override {
    if (bytes.size() <= limit) return bytes.size();
    std::size_t start = limit;  // of the character that the cut would split
    while (start > 0 && limit - start < 3 && IsContinuation(bytes[start])) --start;
    const unsigned length = SequenceOf(static_cast<unsigned char>(bytes[start])).length;
    return start + length > limit ? start : limit;
  }
};

}  // namespace

TextEncoding& SystemEncoding() {
  static PosixEncoding encoding;
  return encoding;
}

}  // namespace vestrel::platform
