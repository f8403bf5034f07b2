#include "storage/ProfileLines.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

namespace vestrel::profile {
namespace {

constexpr std::size_t kBlock = sizeof(std::uint64_t);
constexpr std::uint64_t kEachByte = 0x0101010101010101U;
constexpr std::uint64_t kHighBits = kEachByte << 7U;

char Fold(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// Both mark bytes of a block by their highest bits, exactly up to the first such byte from the low end: those
// below 16, which in text are line ends and hardly anything else, and the "=".
std::uint64_t LowBytes(std::uint64_t block) noexcept {
  return (block - (kEachByte << 4U)) & ~block & kHighBits;
}
std::uint64_t Dividers(std::uint64_t block) noexcept {
  const std::uint64_t others = block ^ (kEachByte * '=');
  return (others - kEachByte) & ~others & kHighBits;
}

enum class Sought : bool { LineEnd, DividerOrLineEnd };

template <Sought What>
bool IsSought(char c) noexcept {
  return IsLineEnd(c) || (What == Sought::DividerOrLineEnd && c == '=');
}

// Of a block's bytes that may be what is sought, as LowBytes.
template <Sought What>
std::uint64_t Marks(std::uint64_t block) noexcept {
  return What == Sought::LineEnd ? LowBytes(block) : LowBytes(block) | Dividers(block);
}

// The first of what is sought at or after `at`; the text's size when there is none. Much of the cost of
// reading and of changing a file is here, so it looks at eight bytes at a time where the first byte is the
// low end.
template <Sought What>
std::size_t Find(std::string_view text, std::size_t at) noexcept {
  if constexpr (std::endian::native == std::endian::little) {
    while (at + kBlock <= text.size()) {
      const std::uint64_t marks = Marks<What>(EightAt(text.data() + at));
      at += marks == 0 ? kBlock : static_cast<unsigned>(std::countr_zero(marks)) / 8;
      if (marks == 0) continue;
      if (IsSought<What>(text[at])) return at;
      ++at;
    }
  }
  while (at < text.size() && !IsSought<What>(text[at])) ++at;
  return at;
}

std::string_view Part(std::string_view text, std::size_t begin, std::size_t end) noexcept {
  return {text.data() + begin, end - begin};
}

}  // namespace

// The last eight bytes overlap those before.
bool HasLineEnd(std::string_view text) noexcept {
  if (text.size() < kBlock) return std::any_of(text.begin(), text.end(), IsLineEnd);
  std::uint64_t low = LowBytes(EightAt(text.data() + text.size() - kBlock));
  for (std::size_t at = 0; at + kBlock < text.size(); at += kBlock)
    low |= LowBytes(EightAt(text.data() + at));
  return low != 0 && LineEnd(text, 0) < text.size();
}

bool HasDividerOrLineEnd(std::string_view text) noexcept {
  if (text.size() >= kBlock && text.size() <= 2 * kBlock) {
    const std::uint64_t front = EightAt(text.data());
    const std::uint64_t back = EightAt(text.data() + text.size() - kBlock);
    if ((Marks<Sought::DividerOrLineEnd>(front) | Marks<Sought::DividerOrLineEnd>(back)) == 0) return false;
  }
  return Find<Sought::DividerOrLineEnd>(text, 0) < text.size();
}

bool SameNameOfAnySize(std::string_view a, std::string_view b) noexcept {
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

std::size_t LineEnd(std::string_view text, std::size_t at) noexcept {
  return Find<Sought::LineEnd>(text, at);
}

std::size_t NextLine(std::string_view text, std::size_t begin) noexcept {
  return AfterLineEnd(text, LineEnd(text, begin));
}

Line ReadLine(std::string_view text, std::size_t begin) noexcept {
  std::size_t start = begin;
  while (start < text.size() && IsBlank(text[start])) ++start;
  Line line;
  line.begin = begin;
  const char first = start < text.size() ? text[start] : '\n';
  if (first == '[') {
    line.kind = LineKind::Section;
    line.end = LineEnd(text, start);
    const std::string_view name = Part(text, start + 1, line.end);
    line.name = TrimBlanks(name.substr(0, name.find(']')));
  } else if (first == ';') {
    line.kind = LineKind::Comment;
    line.end = LineEnd(text, start);
  } else {
    line.end = Find<Sought::DividerOrLineEnd>(text, start);
    if (line.end < text.size() && text[line.end] == '=') {
      const std::size_t divider = std::exchange(line.end, LineEnd(text, line.end + 1));
      line.kind = LineKind::Key;
      line.name = TrimBlanks(Part(text, start, divider));
      line.value = Part(text, divider + 1, line.end);
    } else if (line.end > start) {
      line.kind = LineKind::Junk;
    }
  }
  line.next = AfterLineEnd(text, line.end);
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
