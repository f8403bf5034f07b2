#include "storage/ProfileText.h"

#include <algorithm>

#include "storage/ProfileLines.h"
#include "storage/ProfilePlan.h"

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
  return !marked && name.find('=') == std::string_view::npos && profile::TrimBlanks(name) == name &&
         !profile::HasLineEnd(name);
}

// An edit that adds or changes one line and nothing else. Those that follow one another need not be made one
// by one; a deletion moves the place where new keys go, and odd names or values change how the text divides.
bool IsPlain(const ProfileEdit& edit) {
  return edit.value && !profile::HasLineEnd(*edit.value) && IsPlainSection(edit.section) &&
         IsPlainKey(edit.key);
}

}  // namespace

std::string Spliced(std::string_view text, std::span<const ProfileSplice> splices) {
  std::size_t size = text.size();
  for (const ProfileSplice& splice : splices) size += splice.text.size();
  std::string result;
  result.reserve(size);
  std::size_t at = 0;
  for (const ProfileSplice& splice : splices) {
    result.append(text.substr(at, splice.offset - at)).append(splice.text);
    at = splice.offset + splice.length;
  }
  return result.append(text.substr(at));
}

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
  return std::all_of(edits.begin(), edits.end(), IsPlain);
}

std::size_t ProfileText::RunLength(std::span<const ProfileEdit> edits) {
  std::size_t length = 0;
  while (length < edits.size() && IsPlain(edits[length])) ++length;
  return length > 0 ? length : 1;
}

std::vector<ProfileSplice> ProfileText::Plan(std::span<const ProfileEdit> run) const {
  ProfilePlan plan(text_);
  plan.Make(run);
  return std::move(plan.splices());
}

}  // namespace vestrel
