#include "storage/ProfileText.h"

#include <algorithm>

#include "storage/ProfileLines.h"

namespace vestrel {

using profile::Line;
using profile::LineKind;

namespace {

// A section name that reads back as it was written.
bool IsPlainSection(std::string_view name) {
  name = profile::TrimSpaces(name);
  return name.find(']') == std::string_view::npos && profile::TrimBlanks(name) == name &&
         !profile::HasLineEnd(name);
}

bool IsPlainKey(std::string_view name) {
  name = profile::TrimSpaces(name);
  const bool marked = !name.empty() && (name.front() == ';' || name.front() == '[');
  return !marked && profile::TrimBlanks(name).size() == name.size() && !profile::HasDividerOrLineEnd(name);
}

// An edit that adds or changes one line and nothing else. Those that follow one another need not be made one
// by one; a deletion moves the place where new keys go, and odd names or values change how the text divides.
bool IsPlainLine(const ProfileEdit& edit) {
  return edit.value && !profile::HasLineEnd(*edit.value) && IsPlainKey(edit.key);
}

// How many at the front are plain. Edits that were gathered together share their section's name.
std::size_t PlainFront(std::span<const ProfileEdit> edits) {
  std::size_t length = 0;
  std::string_view plain;
  for (; length < edits.size() && IsPlainLine(edits[length]); ++length) {
    const std::string_view section = edits[length].section;
    if (section.data() == plain.data() && section.size() == plain.size()) continue;
    if (!IsPlainSection(section)) break;
    plain = section;
  }
  return length;
}

}  // namespace

std::optional<std::string_view> ProfileText::Find(std::string_view section, std::string_view key) const {
  const std::string_view name = profile::TrimSpaces(key);
  std::size_t at = profile::FindSection(text_, profile::TrimSpaces(section)).next;
  while (at < text_.size()) {
    const Line line = profile::ReadLine(text_, at);
    if (line.kind == LineKind::Section) break;
    if (line.kind == LineKind::Key && profile::SameName(line.name, name)) {
      return profile::ReadableValue(line.value);
    }
    at = line.next;
  }
  return std::nullopt;
}

std::vector<std::string_view> ProfileText::Sections() const {
  std::vector<std::string_view> names;
  for (std::size_t at = profile::NextSection(text_, 0); at < text_.size();) {
    const Line line = profile::ReadLine(text_, at);
    names.push_back(line.name);
    at = profile::NextSection(text_, line.next);
  }
  return names;
}

std::vector<std::string_view> ProfileText::Keys(std::string_view section) const {
  std::vector<std::string_view> names;
  std::size_t at = profile::FindSection(text_, profile::TrimSpaces(section)).next;
  while (at < text_.size()) {
    const Line line = profile::ReadLine(text_, at);
    if (line.kind == LineKind::Section) break;
    if (line.kind == LineKind::Key) names.push_back(line.name);
    at = line.next;
  }
  return names;
}

bool ProfileText::ArePlain(std::span<const ProfileEdit> edits) {
  return PlainFront(edits) == edits.size();
}

std::size_t ProfileText::RunLength(std::span<const ProfileEdit> edits) {
  return std::max<std::size_t>(PlainFront(edits), 1);
}

}  // namespace vestrel
