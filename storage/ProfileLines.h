// How INI text divides into lines: what a section, a key, a comment is. Bytes in, views out; the text must
// outlive them. The rules are listed in docs/ini-format.md.
#pragma once

#include <cstddef>
#include <cstdint>
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
bool IsBlank(char c) noexcept;
bool IsLineEnd(char c) noexcept;
std::string_view TrimBlanks(std::string_view text) noexcept;
// Spaces alone, which is what callers' section and key names are freed of.
std::string_view TrimSpaces(std::string_view text) noexcept;

// Equal without regard to the case of ASCII letters.
bool SameName(std::string_view a, std::string_view b) noexcept;

// The line that begins at `begin`, which is less than the text's size.
Line ReadLine(std::string_view text, std::size_t begin) noexcept;

// The first line at or after the line start `from` that opens a section; the text's size when there is none.
std::size_t NextSection(std::string_view text, std::size_t from) noexcept;

// The line of the first section of that name; `begin` is the text's size when there is none.
Line FindSection(std::string_view text, std::string_view name) noexcept;

// What a reader gets of a key's value: blanks and one pair of like quotes round it removed.
std::string_view ReadableValue(std::string_view value) noexcept;

}  // namespace vestrel::profile
