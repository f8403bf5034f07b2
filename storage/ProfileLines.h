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
  return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\x1A';
}
inline bool IsLineEnd(char c) noexcept {
  return c == '\r' || c == '\n';
}
bool HasLineEnd(std::string_view text) noexcept;
std::string_view TrimBlanks(std::string_view text) noexcept;
// Spaces alone, which is what callers' section and key names are freed of.
std::string_view TrimSpaces(std::string_view text) noexcept;

// Whether eight bytes at each place differ in more than the bit that divides large from small letters.
constexpr std::size_t kCompared = 8;
inline bool DifferBeyondCase(const char* a, const char* b) noexcept {
  constexpr std::uint64_t kCaseBits = 0x2020202020202020U;
  std::uint64_t left = 0;
  std::uint64_t right = 0;
  std::memcpy(&left, a, kCompared);
  std::memcpy(&right, b, kCompared);
  return ((left ^ right) & ~kCaseBits) != 0;
}

// Equal without regard to the case of ASCII letters.
bool SameName(std::string_view a, std::string_view b) noexcept;

// Quick tests before SameName and ReadLine: false when `text` cannot begin with `name` in whatever case of
// letters, and where the line after the one that begins at `begin` begins.
inline bool MayBegin(std::string_view text, std::string_view name) noexcept {
  return name.size() < kCompared || text.size() < kCompared || !DifferBeyondCase(text.data(), name.data());
}
std::size_t NextLine(std::string_view text, std::size_t begin) noexcept;

// The line that begins at `begin`, which is less than the text's size.
Line ReadLine(std::string_view text, std::size_t begin) noexcept;

// The first line at or after the line start `from` that opens a section; the text's size when there is none.
std::size_t NextSection(std::string_view text, std::size_t from) noexcept;

// The line of the first section of that name; `begin` is the text's size when there is none.
Line FindSection(std::string_view text, std::string_view name) noexcept;

// What a reader gets of a key's value: blanks and one pair of like quotes round it removed.
std::string_view ReadableValue(std::string_view value) noexcept;

}  // namespace vestrel::profile
