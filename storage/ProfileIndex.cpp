#include "storage/ProfileIndex.h"

#include "storage/ProfileLines.h"

namespace vestrel {

using profile::Line;
using profile::LineKind;

namespace {

// The scope of sections.
constexpr std::uint32_t kSections = NameTable::kNone;

// Lines of a page file are mostly longer.
constexpr std::size_t kShortLine = 40;

}  // namespace

ProfileIndex::ProfileIndex(std::string_view text) : text_(text) {
  names_.Reserve(text.size() / kShortLine);
  values_.reserve(text.size() / kShortLine);
  for (std::size_t at = profile::NextSection(text, 0); at < text.size();) {
    AddSection(at);
    at = profile::NextSection(text, profile::NextLine(text, at));
  }
}

std::optional<std::string_view> ProfileIndex::Find(std::string_view section, std::string_view key) {
  section = profile::TrimSpaces(section);
  key = profile::TrimSpaces(key);
  if (!names_.IsAt(section_, kSections, section)) section_ = names_.Find(kSections, section);
  if (section_ == NameTable::kNone) return std::nullopt;
  const bool isNext = names_.IsAt(last_ + 1, section_, key);
  const std::uint32_t found = isNext ? last_ + 1 : names_.Find(section_, key);
  if (found == NameTable::kNone) return std::nullopt;
  last_ = found;
  return profile::ReadableValue(values_[found]);
}

void ProfileIndex::AddSection(std::size_t begin) {
  const Line header = profile::ReadLine(text_, begin);
  const std::uint32_t section = names_.Add(kSections, header.name);
  if (section < values_.size()) return;  // the first one counts
  values_.emplace_back();
  for (std::size_t at = header.next; at < text_.size();) {
    const Line line = profile::ReadLine(text_, at);
    if (line.kind == LineKind::Section) return;
    if (line.kind == LineKind::Key && names_.Add(section, line.name) == values_.size())
      values_.push_back(line.value);
    at = line.next;
  }
}

}  // namespace vestrel
