#include "fuzz/IniModel.h"

#include <algorithm>

namespace vestrel::fuzz {

template <class Unit>
auto IniModel<Unit>::LinesOf(View text) -> std::vector<Line> {
  std::vector<Line> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find_first_of(Plain("\r\n")), text.size());
    std::size_t next = std::min(end + 1, text.size());
    if (end + 1 < text.size() && text[end] == '\r' && text[end + 1] == '\n') next = end + 2;
    lines.push_back({Text(text.substr(0, end)), Text(text.substr(end, next - end))});
    text.remove_prefix(next);
  }
  return lines;
}

template <class Unit>
auto IniModel<Unit>::text() const -> Text {
  Text all;
  for (const Line& line : lines_) all += line.text + line.end;
  return all;
}

template <class Unit>
bool IniModel<Unit>::IsBlank(Unit unit) {
  return unit == ' ' || unit == '\t' || unit == '\v' || unit == '\f' || unit == 0x1A;
}

template <class Unit>
auto IniModel<Unit>::Trimmed(View text) -> View {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

template <class Unit>
auto IniModel<Unit>::Asked(View name) -> View {
  while (!name.empty() && name.front() == ' ') name.remove_prefix(1);
  while (!name.empty() && name.back() == ' ') name.remove_suffix(1);
  return name;
}

template <class Unit>
bool IniModel<Unit>::SameName(View a, View b) {
  const auto folded = [](Unit unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<Unit>(unit + ('a' - 'A')) : unit;
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](Unit x, Unit y) { return folded(x) == folded(y); });
}

template <class Unit>
auto IniModel<Unit>::Plain(const char* ascii) -> Text {
  const std::string_view text(ascii);
  return Text(text.begin(), text.end());
}

// The first unit that is no blank; a null in its place stands for none and is told apart by its callers'
// meaning: a line that begins with a null is text.
template <class Unit>
Unit IniModel<Unit>::FirstOf(const Line& line) {
  const View text = Trimmed(line.text);
  if (text.empty()) return 0;
  return text.front() == 0 ? Unit{1} : text.front();
}

template <class Unit>
auto IniModel<Unit>::SectionName(const Line& line) -> View {
  View name = View(line.text).substr(line.text.find(Unit{'['}) + 1);
  return Trimmed(name.substr(0, name.find(Unit{']'})));
}

template <class Unit>
auto IniModel<Unit>::KeyName(const Line& line) -> std::optional<View> {
  const std::size_t equals = line.text.find(Unit{'='});
  if (!Counts(line) || IsSection(line) || equals == Text::npos) return std::nullopt;
  return Trimmed(View(line.text).substr(0, equals));
}

template <class Unit>
auto IniModel<Unit>::RawValue(const Line& line) -> View {
  return View(line.text).substr(line.text.find(Unit{'='}) + 1);
}

template <class Unit>
auto IniModel<Unit>::Find(View section) const -> std::optional<Range> {
  std::size_t header = 0;
  const auto opens = [&](const Line& line) {
    return IsSection(line) && SameName(SectionName(line), Asked(section));
  };
  while (header < lines_.size() && !opens(lines_[header])) ++header;
  if (header == lines_.size()) return std::nullopt;
  std::size_t end = header + 1;
  while (end < lines_.size() && !IsSection(lines_[end])) ++end;
  return Range{header, end};
}

template <class Unit>
std::optional<std::size_t> IniModel<Unit>::FindKey(View section, View key) const {
  const std::optional<Range> range = Find(section);
  if (!range) return std::nullopt;
  for (std::size_t i = range->header + 1; i < range->end; ++i) {
    const std::optional<View> name = KeyName(lines_[i]);
    if (name && SameName(*name, Asked(key))) return i;
  }
  return std::nullopt;
}

template <class Unit>
auto IniModel<Unit>::Read(View section, View key) const -> std::optional<Text> {
  const std::optional<std::size_t> at = FindKey(section, key);
  if (!at) return std::nullopt;
  View value = Trimmed(RawValue(lines_[*at]));
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == Unit{'"'} || value.front() == Unit{'\''});
  if (quoted) value = value.substr(1, value.size() - 2);
  return Text(value);
}

template <class Unit>
void IniModel<Unit>::Insert(std::size_t position, Text text) {
  if (position > 0 && lines_[position - 1].end.empty()) lines_[position - 1].end = Plain("\r\n");
  const auto at = lines_.begin() + static_cast<std::ptrdiff_t>(position);
  lines_.insert(at, {std::move(text), Plain("\r\n")});
}

template <class Unit>
void IniModel<Unit>::Write(View section, View key, View value) {
  const Text line = Text(Asked(key)) + Unit{'='} + Text(value);
  if (const std::optional<std::size_t> at = FindKey(section, key)) {
    if (RawValue(lines_[*at]) == value) return;
    lines_[*at] = {Text(*KeyName(lines_[*at])) + Unit{'='} + Text(value), Plain("\r\n")};
  } else if (const std::optional<Range> range = Find(section)) {
    std::size_t behind = range->end;
    while (behind > range->header + 1 && !Counts(lines_[behind - 1])) --behind;
    Insert(behind, line);
  } else {
    Insert(lines_.size(), Unit{'['} + Text(Asked(section)) + Unit{']'});
    Insert(lines_.size(), line);
  }
  lines_ = LinesOf(text());
}

template <class Unit>
void IniModel<Unit>::Delete(View section, View key) {
  const std::optional<std::size_t> at = FindKey(section, key);
  if (at) lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*at));
  lines_ = LinesOf(text());
}

template class IniModel<char>;
template class IniModel<char16_t>;

}  // namespace vestrel::fuzz
