#include "storage/ProfilePlan.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vestrel {

using profile::Line;
using profile::LineKind;

namespace {

constexpr std::size_t kSearchedThrough = 8;

std::string Folded(std::string_view name) {
  std::string folded(name);
  for (char& c : folded) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  }
  return folded;
}

std::string KeyLine(std::string_view name, std::string_view value) {
  std::string line;
  line.reserve(name.size() + value.size() + 3);
  return line.append(name).append("=").append(value).append("\r\n");
}

}  // namespace

ProfilePlan::ProfilePlan(std::string_view text)
    : text_(text), endIsOpen_(!text.empty() && !profile::IsLineEnd(text.back())) {}

void ProfilePlan::Make(std::span<const ProfileEdit> run) {
  for (const ProfileEdit& edit : run) Add(GroupOf(profile::TrimSpaces(edit.section)), edit);
  std::vector<std::pair<Group*, Line>> present;
  for (Group& group : groups_) present.emplace_back(&group, profile::FindSection(text_, group.section));
  if (present.size() > 1) {
    std::stable_sort(present.begin(), present.end(),
                     [](const auto& a, const auto& b) { return a.second.begin < b.second.begin; });
  }
  for (auto& [group, header] : present) {
    if (header.begin < text_.size()) {
      EditSection(*group, header);
    } else {
      AddSection(*group);
    }
  }
}

ProfilePlan::Group& ProfilePlan::GroupOf(std::string_view section) {
  for (Group& group : groups_) {
    if (profile::SameName(group.section, section)) return group;
  }
  groups_.emplace_back().section = section;
  return groups_.back();
}

// A later value of a key takes the place of an earlier one, which keeps its spelling.
void ProfilePlan::Add(Group& group, const ProfileEdit& edit) {
  const std::string_view key = profile::TrimSpaces(edit.key);
  const std::string* value = edit.value ? &*edit.value : nullptr;
  if (Entry* earlier = Find(group, key)) {
    earlier->value = value;
    return;
  }
  group.entries.push_back({key, value, false});
  if (group.entries.size() <= kSearchedThrough) return;
  if (group.byKey.empty()) {
    for (std::size_t i = 0; i + 1 < group.entries.size(); ++i)
      group.byKey.emplace(Folded(group.entries[i].key), i);
  }
  group.byKey.emplace(Folded(key), group.entries.size() - 1);
}

ProfilePlan::Entry* ProfilePlan::Find(Group& group, std::string_view key) {
  if (!group.byKey.empty()) {
    const auto found = group.byKey.find(Folded(key));
    return found == group.byKey.end() ? nullptr : &group.entries[found->second];
  }
  for (Entry& entry : group.entries) {
    if (profile::SameName(entry.key, key)) return &entry;
  }
  return nullptr;
}

void ProfilePlan::EditSection(Group& group, const Line& header) {
  std::size_t open = group.entries.size();
  for (std::size_t at = header.next; at < text_.size() && open > 0;) {
    if (!MayConcern(group, at)) {
      at = profile::NextLine(text_, at);
      continue;
    }
    const Line line = profile::ReadLine(text_, at);
    if (line.kind == LineKind::Section) break;
    Entry* entry = line.kind == LineKind::Key ? Find(group, line.name) : nullptr;
    if (entry != nullptr && !entry->done) {
      EditLine(line, *entry);
      entry->done = true;
      --open;
    }
    at = line.next;
  }
  if (open > 0) AddKeys(group, LastOf(header));
}

// Most lines of a large section are passed on sight of their first bytes.
bool ProfilePlan::MayConcern(const Group& group, std::size_t at) const {
  const std::string_view line = text_.substr(at);
  if (!group.byKey.empty() || line.front() == '[' || profile::IsBlank(line.front())) return true;
  return std::any_of(group.entries.begin(), group.entries.end(),
                     [&](const Entry& entry) { return !entry.done && profile::MayBegin(line, entry.key); });
}

Line ProfilePlan::LastOf(const Line& header) const {
  Line last = header;
  for (std::size_t at = header.next; at < text_.size();) {
    const Line line = profile::ReadLine(text_, at);
    if (line.kind == LineKind::Section) break;
    if (line.kind == LineKind::Key || line.kind == LineKind::Junk) last = line;
    at = line.next;
  }
  return last;
}

void ProfilePlan::EditLine(const Line& line, const Entry& entry) {
  if (entry.value != nullptr && line.value == *entry.value) return;
  if (line.end == line.next) endIsOpen_ = false;
  splices_.push_back({line.begin, line.next - line.begin,
                      entry.value != nullptr ? KeyLine(line.name, *entry.value) : std::string()});
}

void ProfilePlan::AddKeys(const Group& group, const Line& behind) {
  std::string lines;
  for (const Entry& entry : group.entries) {
    if (!entry.done && entry.value != nullptr) lines += KeyLine(entry.key, *entry.value);
  }
  if (!lines.empty()) Insert(behind.next, behind.next == behind.end, std::move(lines));
}

void ProfilePlan::AddSection(const Group& group) {
  std::string lines;
  for (const Entry& entry : group.entries) {
    if (entry.value != nullptr) lines += KeyLine(entry.key, *entry.value);
  }
  if (lines.empty()) return;
  lines.insert(0, "[" + std::string(group.section) + "]\r\n");
  Insert(text_.size(), true, std::move(lines));
}

void ProfilePlan::Insert(std::size_t offset, bool behindOpenLine, std::string text) {
  if (behindOpenLine && endIsOpen_) text.insert(0, "\r\n");
  if (offset == text_.size()) endIsOpen_ = false;
  splices_.push_back({offset, 0, std::move(text)});
}

}  // namespace vestrel
