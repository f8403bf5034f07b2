#include "storage/ProfileCursor.h"

#include "storage/ProfileLines.h"

namespace vestrel {

using profile::Line;

namespace {

// Each is looked for from the front of the text.
constexpr int kMostSections = 16;

// Names at the front of a section, where they come in any order, are compared with all before.
constexpr int kCompared = 8;

}  // namespace

std::optional<std::string_view> ProfileCursor::Next(std::string_view section, std::string_view key) noexcept {
  const bool isThere = begin_ > 0 && profile::SameName(section_, section);
  if (!isThere && !Enter(section)) return std::nullopt;
  if (!profile::BeginsKeyLine(text_.substr(at_), key)) return std::nullopt;
  if (!names_.IsNew(key) && (passed_ > kCompared || IsAmongPassed(key))) return std::nullopt;
  const std::size_t value = at_ + key.size() + 1;
  const std::size_t end = profile::LineEnd(text_, value);
  at_ = profile::AfterLineEnd(text_, end);
  ++passed_;
  return text_.substr(value, end - value);
}

// Goes to the section's first line.
bool ProfileCursor::Enter(std::string_view section) noexcept {
  if (sections_ == kMostSections) return false;
  ++sections_;
  const Line header = profile::FindSection(text_, section);
  if (header.begin == text_.size()) return false;
  section_ = header.name;
  begin_ = at_ = header.next;
  names_ = {};
  passed_ = 0;
  return true;
}

bool ProfileCursor::IsAmongPassed(std::string_view key) const noexcept {
  for (std::size_t at = begin_; at < at_;) {
    const Line line = profile::ReadLine(text_, at);
    if (profile::SameName(line.name, key)) return true;
    at = line.next;
  }
  return false;
}

}  // namespace vestrel
