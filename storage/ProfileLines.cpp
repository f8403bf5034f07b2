#include "storage/ProfileLines.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace vestrel::profile {
namespace {

constexpr std::size_t kBlock = sizeof(std::uint64_t);
constexpr std::uint64_t kEachByte = 0x0101010101010101U;

char Fold(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

std::uint64_t BlockAt(std::string_view text, std::size_t at) noexcept {
  std::uint64_t block = 0;
  std::memcpy(&block, text.data() + at, kBlock);
  return block;
}

// The highest bit of each byte below 16, exactly up to the first such byte from the low end. In text these
// are line ends and hardly anything else.
std::uint64_t LowBytes(std::uint64_t block) noexcept {
  return (block - (kEachByte << 4U)) & ~block & (kEachByte << 7U);
}

// The first line end at or after `at`; the text's size when there is none. Much of the cost of reading and of
// changing a file is here, so it looks at eight bytes at a time where the first byte is the low end.
std::size_t FindLineEnd(std::string_view text, std::size_t at) noexcept {
  if constexpr (std::endian::native == std::endian::little) {
    while (at + kBlock <= text.size()) {
      const std::uint64_t low = LowBytes(BlockAt(text, at));
      at += low == 0 ? kBlock : static_cast<unsigned>(std::countr_zero(low)) / 8;
      if (low == 0) continue;
      if (IsLineEnd(text[at])) return at;
      ++at;
    }
  }
  while (at < text.size() && !IsLineEnd(text[at])) ++at;
  return at;
}

std::size_t AfterLineEnd(std::string_view text, std::size_t end) noexcept {
  if (end == text.size()) return end;
  const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
  return end + (pair ? 2 : 1);
}

void ReadSection(Line& line, std::string_view content) noexcept {
  line.kind = LineKind::Section;
  content.remove_prefix(1);
  line.name = TrimBlanks(content.substr(0, content.find(']')));
}

void ReadKey(Line& line, std::string_view content, std::size_t divider) noexcept {
  line.kind = LineKind::Key;
  line.name = TrimBlanks(content.substr(0, divider));
  line.value = content.substr(divider + 1);
}

}  // namespace

// The last eight bytes overlap those before.
bool HasLineEnd(std::string_view text) noexcept {
  if (text.size() < kBlock) return std::any_of(text.begin(), text.end(), IsLineEnd);
  std::uint64_t low = LowBytes(BlockAt(text, text.size() - kBlock));
  for (std::size_t at = 0; at + kBlock < text.size(); at += kBlock) low |= LowBytes(BlockAt(text, at));
  return low != 0 && FindLineEnd(text, 0) < text.size();
}

std::string_view TrimBlanks(std::string_view text) noexcept {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view TrimSpaces(std::string_view text) noexcept {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

bool SameName(std::string_view a, std::string_view b) noexcept {
  if (a.size() != b.size()) return false;
  // Names that differ mostly do so at an end, and those that do not are mostly spelled alike.
  if (a.size() >= kCompared &&
      (DifferBeyondCase(a.data(), b.data()) ||
       DifferBeyondCase(a.data() + a.size() - kCompared, b.data() + b.size() - kCompared)))
    return false;
  if (a == b) return true;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && Fold(a[i]) != Fold(b[i])) return false;
  }
  return true;
}

std::size_t NextLine(std::string_view text, std::size_t begin) noexcept {
  return AfterLineEnd(text, FindLineEnd(text, begin));
}

Line ReadLine(std::string_view text, std::size_t begin) noexcept {
  Line line;
  line.begin = begin;
  line.end = FindLineEnd(text, begin);
  line.next = AfterLineEnd(text, line.end);
  std::string_view content = text.substr(begin, line.end - begin);
  while (!content.empty() && IsBlank(content.front())) content.remove_prefix(1);
  if (content.empty()) return line;
  if (content.front() == '[') {
    ReadSection(line, content);
  } else if (content.front() == ';') {
    line.kind = LineKind::Comment;
  } else if (const std::size_t divider = content.find('='); divider != std::string_view::npos) {
    ReadKey(line, content, divider);
  } else {
    line.kind = LineKind::Junk;
  }
  return line;
}

// Looks for the bracket first: values rarely hold one, so most of a file is passed at the speed of a search.
std::size_t NextSection(std::string_view text, std::size_t from) noexcept {
  for (std::size_t at = text.find('[', from); at != std::string_view::npos; at = text.find('[', at + 1)) {
    std::size_t start = at;
    while (start > from && IsBlank(text[start - 1])) --start;
    if (start == from || IsLineEnd(text[start - 1])) return start;
  }
  return text.size();
}

Line FindSection(std::string_view text, std::string_view name) noexcept {
  std::size_t at = NextSection(text, 0);
  while (at < text.size()) {
    const Line line = ReadLine(text, at);
    if (SameName(line.name, name)) return line;
    at = NextSection(text, line.next);
  }
  Line none;
  none.begin = none.end = none.next = text.size();
  return none;
}

std::string_view ReadableValue(std::string_view value) noexcept {
  value = TrimBlanks(value);
  const bool quoted =
      value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace vestrel::profile
