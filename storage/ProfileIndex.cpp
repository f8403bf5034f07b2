#include "storage/ProfileIndex.h"

#include "storage/ProfileLines.h"

namespace vestrel {

using profile::Line;
using profile::LineKind;

namespace {

constexpr std::size_t kSmallest = 64;

// Ends the section's name in a hash; no name can hold it.
constexpr char kDivider = '\n';

std::uint64_t Hash(std::uint64_t hash, std::string_view name) {
  for (char c : name) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  }
  return hash;
}

std::uint64_t Hash(std::string_view section, std::string_view key) {
  const std::uint64_t hash = Hash(Hash(0xCBF29CE484222325U, section), std::string_view(&kDivider, 1));
  return Hash(hash, key) * 0x9E3779B97F4A7C15U;
}

}  // namespace

ProfileIndex::ProfileIndex(std::string_view text) : text_(text), slots_(kSmallest) {
  for (std::size_t at = profile::NextSection(text, 0); at < text.size();) {
    AddSection(at);
    at = profile::NextSection(text, profile::ReadLine(text, at).next);
  }
}

std::optional<std::string_view> ProfileIndex::Find(std::string_view section, std::string_view key) const {
  section = profile::TrimSpaces(section);
  key = profile::TrimSpaces(key);
  const std::uint32_t entry = slots_[SlotOf(section, key, Hash(section, key))];
  return entry == 0 ? std::nullopt : std::optional(profile::ReadableValue(entries_[entry - 1].value));
}

// A section holds an entry of its own, with a key that no line can have, so that a second one of its name is
// known and left out.
void ProfileIndex::AddSection(std::size_t begin) {
  const Line header = profile::ReadLine(text_, begin);
  const std::string_view mark(&kDivider, 1);
  const std::uint64_t hash = Hash(header.name, mark);
  if (slots_[SlotOf(header.name, mark, hash)] != 0) return;
  Add({header.name, mark, {}, hash});
  for (std::size_t at = header.next; at < text_.size();) {
    const Line line = profile::ReadLine(text_, at);
    if (line.kind == LineKind::Section) return;
    if (line.kind == LineKind::Key) Add({header.name, line.name, line.value, Hash(header.name, line.name)});
    at = line.next;
  }
}

void ProfileIndex::Add(const Entry& entry) {
  std::uint32_t& slot = slots_[SlotOf(entry.section, entry.key, entry.hash)];
  if (slot != 0) return;  // the first one counts
  entries_.push_back(entry);
  slot = static_cast<std::uint32_t>(entries_.size());
  if (entries_.size() * 2 > slots_.size()) Grow();
}

void ProfileIndex::Grow() {
  slots_.assign(slots_.size() * 2, 0);
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const Entry& entry = entries_[i];
    slots_[SlotOf(entry.section, entry.key, entry.hash)] = static_cast<std::uint32_t>(i + 1);
  }
}

std::size_t ProfileIndex::SlotOf(std::string_view section, std::string_view key, std::uint64_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = static_cast<std::size_t>(hash >> 32U) & mask;
  while (slots_[slot] != 0) {
    const Entry& entry = entries_[slots_[slot] - 1];
    if (entry.hash == hash && profile::SameName(entry.key, key) && profile::SameName(entry.section, section))
      break;
    slot = (slot + 1) & mask;
  }
  return slot;
}

}  // namespace vestrel
