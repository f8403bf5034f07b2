#include "storage/ProfilePlan.h"

#include <algorithm>

namespace vestrel {

using profile::Line;
using profile::LineKind;

namespace {

// Among more a table finds a name, but for the first few in the lines of a file.
constexpr std::size_t kSearchedThrough = 8;
constexpr int kMostSearches = 32;

// The scope of sections in their own table.
constexpr std::uint32_t kSections = 0;

void AppendKeyLine(std::string& lines, std::string_view name, std::string_view value) {
  lines.append(name).append("=").append(value).append("\r\n");
}

// Whether the line is as it would be written, but for its value.
bool IsWrittenForm(std::string_view text, const Line& line) {
  return line.name.data() == text.data() + line.begin &&
         line.name.data() + line.name.size() + 1 == line.value.data() && line.next == line.end + 2;
}

}  // namespace

ProfilePlan::ProfilePlan(std::string_view text, std::span<const ProfileEdit> run)
    : text_(text), endIsOpen_(!text.empty() && !profile::IsLineEnd(text.back())) {
  entries_.reserve(run.size());
  splices_.reserve(run.size());
  for (const ProfileEdit& edit : run) Add(edit);
  EditSections();
  for (const Group& group : groups_) {
    if (!group.isThere) AddSection(group);
  }
}

// A later value of a key takes the place of an earlier one, which keeps its spelling.
void ProfilePlan::Add(const ProfileEdit& edit) {
  const std::string_view section = profile::TrimSpaces(edit.section);
  const std::string_view key = profile::TrimSpaces(edit.key);
  const bool sameAgain = !groups_.empty() && profile::SameName(groups_.back().section, section);
  Number number = sameAgain ? static_cast<Number>(groups_.size() - 1) : FindGroup(section);
  if (number == kNone) number = AddGroup(section);
  const auto entry = static_cast<Number>(entries_.size());
  const Number earlier = groups_[number].names.IsNew(key) ? kNone : FindEntry(number, key);
  if (earlier != kNone) return Replace(entries_[earlier], edit.value);
  entries_.push_back({key, edit.value, number});
  Group& group = groups_[number];
  (group.count == 0 ? group.first : entries_[group.last].next) = entry;
  group.last = entry;
  ++group.count;
}

void ProfilePlan::Replace(Entry& entry, std::optional<std::string_view> value) {
  entry.replaced = entry.replaced || entry.value != value;
  entry.value = value;
}

ProfilePlan::Number ProfilePlan::AddGroup(std::string_view section) {
  groups_.emplace_back().section = section;
  return static_cast<Number>(groups_.size() - 1);
}

ProfilePlan::Number ProfilePlan::FindGroup(std::string_view section) {
  if (groups_.size() > kSearchedThrough) {
    while (sections_.size() < groups_.size()) sections_.Add(kSections, groups_[sections_.size()].section);
    return sections_.Find(kSections, section);
  }
  const auto found = std::find_if(groups_.begin(), groups_.end(), [&](const Group& group) {
    return profile::SameName(group.section, section);
  });
  return found == groups_.end() ? kNone : static_cast<Number>(found - groups_.begin());
}

ProfilePlan::Number ProfilePlan::FindEntry(Number group, std::string_view key) {
  if (expected_ != kNone && profile::SameName(entries_[expected_].key, key)) return expected_;
  if (groups_[group].count > kSearchedThrough && ++searches_ > kMostSearches) {
    while (keys_.size() < entries_.size())
      keys_.Add(entries_[keys_.size()].group, entries_[keys_.size()].key);
    return keys_.Find(group, key);
  }
  for (Number entry = groups_[group].first; entry != kNone; entry = entries_[entry].next) {
    if (profile::SameName(entries_[entry].key, key)) return entry;
  }
  return kNone;
}

void ProfilePlan::EditSections() {
  std::size_t open = groups_.size();
  for (std::size_t at = profile::NextSection(text_, 0); at < text_.size();) {
    const Line header = profile::ReadLine(text_, at);
    const Number group = FindGroup(header.name);
    if (group != kNone && !groups_[group].isThere) {
      groups_[group].isThere = true;
      EditSection(group, header);
      if (--open == 0) return;
    }
    at = profile::NextSection(text_, header.next);
  }
}

void ProfilePlan::EditSection(Number number, const Line& header) {
  const Group& group = groups_[number];
  std::size_t open = group.count;
  expected_ = group.first;
  for (std::size_t at = header.next; at < text_.size() && open > 0;) {
    if (!MayConcern(group, at)) {
      at = profile::NextLine(text_, at);
      continue;
    }
    Number entry = ExpectedAt(at);
    const Line line = entry == kNone ? profile::ReadLine(text_, at)
                                     : profile::KeyLine(text_, at, entries_[entry].key.size());
    if (line.kind == LineKind::Section) break;
    if (entry == kNone) entry = EntryFor(number, line);
    if (entry != kNone) {
      EditLine(line, entries_[entry]);
      entries_[entry].done = true;
      expected_ = entries_[entry].next;
      --open;
    }
    at = line.next;
  }
  if (open > 0) AddKeys(group, LastOf(header));
}

ProfilePlan::Number ProfilePlan::EntryFor(Number group, const Line& line) {
  if (line.kind != LineKind::Key) return kNone;
  const Number entry = FindEntry(group, line.name);
  return entry != kNone && !entries_[entry].done ? entry : kNone;
}

ProfilePlan::Number ProfilePlan::ExpectedAt(std::size_t at) const {
  if (expected_ == kNone || entries_[expected_].done) return kNone;
  return profile::BeginsKeyLine(text_.substr(at), entries_[expected_].key) ? expected_ : kNone;
}

// Most lines of a large section are passed on sight of their first bytes.
bool ProfilePlan::MayConcern(const Group& group, std::size_t at) const {
  const std::string_view line = text_.substr(at);
  if (group.count > kSearchedThrough || line.front() == '[' || profile::IsBlank(line.front())) return true;
  for (Number entry = group.first; entry != kNone; entry = entries_[entry].next) {
    if (!entries_[entry].done && profile::MayBegin(line, entries_[entry].key)) return true;
  }
  return false;
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
  // Of two values that differ one is not the line's: written one by one they leave it in the written form.
  const bool isKept = !entry.replaced || IsWrittenForm(text_, line);
  if (entry.value && line.value == *entry.value && isKept) return;
  if (line.end == line.next) endIsOpen_ = false;
  if (entry.value && IsWrittenForm(text_, line)) {
    splices_.push_back({line.end - line.value.size(), line.value.size(), *entry.value});
    return;
  }
  std::string written;
  if (entry.value) AppendKeyLine(written, line.name, *entry.value);
  splices_.push_back({line.begin, line.next - line.begin, texts_.Keep(written)});
}

void ProfilePlan::AddKeys(const Group& group, const Line& behind) {
  const std::string lines = NewLines(group);
  if (!lines.empty()) Insert(behind.next, behind.next == behind.end, lines);
}

void ProfilePlan::AddSection(const Group& group) {
  const std::string lines = NewLines(group);
  if (lines.empty()) return;
  std::string section("[");
  Insert(text_.size(), true, section.append(group.section).append("]\r\n").append(lines));
}

std::string ProfilePlan::NewLines(const Group& group) const {
  std::string lines;
  for (Number number = group.first; number != kNone; number = entries_[number].next) {
    const Entry& entry = entries_[number];
    if (!entry.done && entry.value) AppendKeyLine(lines, entry.key, *entry.value);
  }
  return lines;
}

void ProfilePlan::Insert(std::size_t offset, bool behindOpenLine, std::string_view text) {
  if (behindOpenLine && endIsOpen_) splices_.push_back({offset, 0, "\r\n"});
  if (offset == text_.size()) endIsOpen_ = false;
  splices_.push_back({offset, 0, texts_.Keep(text)});
}

}  // namespace vestrel
