// How INI text divides into lines: what a section, a key, a comment is. Bytes in, views out; the text must
// outlive them. The rules are listed in docs/ini-format.md.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vestrel::profile {

enum class LineKind : std::uint8_t {
  Blank,
  Comment,  // the first non-blank is ";"
  Section,  // the first non-blank is "["
  Key,      // has a "="
  Junk,     // anything else: belongs to its section, is never found
};

struct Line {
  LineKind kind = LineKind::Blank;
  std::string_view name;   // of a section or key, without the blanks round it
  std::string_view value;  // of a key: all that follows the "=", blanks included
  std::size_t begin = 0;
  std::size_t end = 0;   // of its text
  std::size_t next = 0;  // where the next line begins; equal to `end` for a last line without an end
};

// Space, tab, vertical tab, form feed and the old end-of-file mark.
inline bool IsBlank(char c) noexcept {
  constexpr std::uint64_t kBlanks = 1ULL << ' ' | 1U << '\t' | 1U << '\v' | 1U << '\f' | 1U << 0x1AU;
  const auto code = static_cast<unsigned char>(c);
  return code <= ' ' && (kBlanks >> code & 1U) != 0;
}
inline bool IsSpace(char c) noexcept {
  return c == ' ';
}
inline bool IsLineEnd(char c) noexcept {
  return c == '\r' || c == '\n';
}
bool HasLineEnd(std::string_view text) noexcept;
bool HasDividerOrLineEnd(std::string_view text) noexcept;

template <bool (*IsTrimmed)(char)>
std::string_view Trim(std::string_view text) noexcept {
  while (!text.empty() && IsTrimmed(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsTrimmed(text.back())) text.remove_suffix(1);
  return text;
}
inline std::string_view TrimBlanks(std::string_view text) noexcept {
  return Trim<IsBlank>(text);
}
// Spaces alone, which is what callers' section and key names are freed of.
inline std::string_view TrimSpaces(std::string_view text) noexcept {
  return Trim<IsSpace>(text);
}

// Eight bytes, and whether eight bytes at each place differ, and in more than the bit that divides large from
// small letters.
constexpr std::size_t kCompared = 8;
inline std::uint64_t EightAt(const char* bytes) noexcept {
  std::uint64_t eight = 0;
  std::memcpy(&eight, bytes, kCompared);
  return eight;
}
inline std::uint64_t Difference(const char* a, const char* b) noexcept {
  return EightAt(a) ^ EightAt(b);
}
inline bool DifferBeyondCase(const char* a, const char* b) noexcept {
  constexpr std::uint64_t kCaseBits = 0x2020202020202020U;
  return (Difference(a, b) & ~kCaseBits) != 0;
}

// Equal without regard to the case of ASCII letters.
bool SameNameOfAnySize(std::string_view a, std::string_view b) noexcept;
inline bool SameName(std::string_view a, std::string_view b) noexcept {
  if (a.size() != b.size()) return false;
  // Most names are of one or two eights of bytes, the second of which overlaps the first, and spelled alike.
  if (a.size() < kCompared || a.size() > 2 * kCompared) return SameNameOfAnySize(a, b);
  const std::size_t last = a.size() - kCompared;
  const std::uint64_t difference =
      Difference(a.data(), b.data()) | Difference(a.data() + last, b.data() + last);
  return difference == 0 || SameNameOfAnySize(a, b);
}

// Quick tests before SameName and ReadLine: false when `text` cannot begin with `name` in whatever case of
// letters, and where the line after the one that begins at `begin` begins.
inline bool MayBegin(std::string_view text, std::string_view name) noexcept {
  return name.size() < kCompared || text.size() < kCompared || !DifferBeyondCase(text.data(), name.data());
}
// The first line end at or after `at`; the text's size when there is none.
std::size_t LineEnd(std::string_view text, std::size_t at) noexcept;
// Where the next line begins behind a line end, or what LineEnd answers for none.
inline std::size_t AfterLineEnd(std::string_view text, std::size_t end) noexcept {
  if (end == text.size()) return end;
  const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
  return end + (pair ? 2 : 1);
}
std::size_t NextLine(std::string_view text, std::size_t begin) noexcept;

// Whether the text, from the beginning of a line on, begins with a key line of that name. False, too, for a
// few odd names that ReadLine finds.
inline bool BeginsKeyLine(std::string_view text, std::string_view name) noexcept {
  if (name.empty() || name.size() >= text.size() || text[name.size()] != '=') return false;
  const auto letter = static_cast<unsigned char>(name.front() | 0x20);
  return SameName(text.substr(0, name.size()), name) && letter >= 'a' && letter <= 'z' &&
         !IsBlank(name.back()) && !HasDividerOrLineEnd(name);
}

// The line that begins at `begin`, where BeginsKeyLine is true for a name of that size.
inline Line KeyLine(std::string_view text, std::size_t begin, std::size_t nameSize) noexcept {
  const std::size_t value = begin + nameSize + 1;
  const std::size_t end = LineEnd(text, value);
  return {LineKind::Key, text.substr(begin, nameSize), text.substr(value, end - value), begin,
          end,           AfterLineEnd(text, end)};
}

// The line that begins at `begin`, which is less than the text's size.
Line ReadLine(std::string_view text, std::size_t begin) noexcept;

// The first line at or after the line start `from` that opens a section; the text's size when there is none.
std::size_t NextSection(std::string_view text, std::size_t from) noexcept;

// The line of the first section of that name; `begin` is the text's size when there is none.
Line FindSection(std::string_view text, std::string_view name) noexcept;

// What a reader gets of a key's value: blanks and one pair of like quotes round it removed.
std::string_view ReadableValue(std::string_view value) noexcept;

}  // namespace vestrel::profile
