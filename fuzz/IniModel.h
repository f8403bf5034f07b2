// The rules of docs/ini-format.md in their plainest form, to compare the library with: a list of lines that
// is gone through from the top each time. `Unit` is a byte of the narrow page or a unit of UTF-16.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vestrel::fuzz {

template <class Unit>
class IniModel {
 public:
  using Text = std::basic_string<Unit>;
  using View = std::basic_string_view<Unit>;

  explicit IniModel(Text text) : lines_(LinesOf(text)) {}

  // As a reader gets it, before it is cut.
  std::optional<Text> Read(View section, View key) const;
  void Write(View section, View key, View value);
  void Delete(View section, View key);
  Text text() const;

 private:
  struct Line {
    Text text;
    Text end;
  };
  // A section's lines, from its header on, as positions.
  struct Range {
    std::size_t header;
    std::size_t end;
  };

  static std::vector<Line> LinesOf(View text);
  static bool IsBlank(Unit unit);
  static View Trimmed(View text);
  static View Asked(View name);
  static bool SameName(View a, View b);
  static Text Plain(const char* ascii);
  static Unit FirstOf(const Line& line);
  static bool IsSection(const Line& line) { return FirstOf(line) == '['; }
  static bool Counts(const Line& line) { return FirstOf(line) != 0 && FirstOf(line) != ';'; }
  static View SectionName(const Line& line);
  // None for a line that is no key line.
  static std::optional<View> KeyName(const Line& line);
  static View RawValue(const Line& line);

  std::optional<Range> Find(View section) const;
  std::optional<std::size_t> FindKey(View section, View key) const;
  // Puts a line behind the one at `position` - 1, which gets an end if it has none.
  void Insert(std::size_t position, Text text);

  std::vector<Line> lines_;
};

extern template class IniModel<char>;
extern template class IniModel<char16_t>;

}  // namespace vestrel::fuzz
