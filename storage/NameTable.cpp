#include "storage/NameTable.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "storage/ProfileLines.h"

namespace vestrel {
namespace {

constexpr std::size_t kFewestSlots = 64;
constexpr std::size_t kBlock = 8;

std::uint64_t Mixed(std::uint64_t hash, std::uint64_t block) noexcept {
  hash = (hash ^ block) * 0x9E3779B97F4A7C15U;
  return hash ^ (hash >> 32U);
}

// Bytes of a name without what divides large from small letters.
template <class Bytes>
std::uint64_t Caseless(const char* from) noexcept {
  Bytes bytes = 0;
  std::memcpy(&bytes, from, sizeof bytes);
  return bytes | 0x2020202020202020U;
}

std::uint64_t MixedShort(std::uint64_t hash, std::string_view text) noexcept {
  for (const char& byte : text) hash = Mixed(hash, Caseless<std::uint8_t>(&byte));
  return hash;
}

// The last block of a name overlaps the one before.
std::uint32_t HashOf(std::uint32_t scope, std::string_view text) noexcept {
  std::uint64_t hash = scope * 0xD6E8FEB86659FD93U + text.size();
  if (text.size() < kBlock) return static_cast<std::uint32_t>(MixedShort(hash, text));
  const char* const last = text.data() + text.size() - kBlock;
  for (const char* at = text.data(); at < last; at += kBlock) hash = Mixed(hash, Caseless<std::uint64_t>(at));
  return static_cast<std::uint32_t>(Mixed(hash, Caseless<std::uint64_t>(last)));
}

}  // namespace

void NameTable::Reserve(std::size_t names) {
  names_.reserve(names);
  Spread(std::bit_ceil(std::max(names * 2, kFewestSlots)));
}

std::uint32_t NameTable::Add(std::uint32_t scope, std::string_view text) {
  if ((names_.size() + 1) * 2 > slots_.size()) Spread(std::max(slots_.size() * 2, kFewestSlots));
  const std::uint32_t hash = HashOf(scope, text);
  std::uint32_t& slot = slots_[SlotOf(scope, text, hash)];
  if (slot == 0) {
    names_.push_back({text, scope, hash});
    slot = size();
  }
  return slot - 1;
}

std::uint32_t NameTable::Find(std::uint32_t scope, std::string_view text) const noexcept {
  return slots_.empty() ? kNone : slots_[SlotOf(scope, text, HashOf(scope, text))] - 1;
}

bool NameTable::IsAt(std::uint32_t position, std::uint32_t scope, std::string_view text) const noexcept {
  if (position >= names_.size()) return false;
  const Name& name = names_[position];
  return name.scope == scope && profile::SameName(name.text, text);
}

std::size_t NameTable::SlotOf(std::uint32_t scope, std::string_view text, std::uint32_t hash) const noexcept {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hash & mask;
  while (slots_[slot] != 0) {
    const Name& name = names_[slots_[slot] - 1];
    if (name.hash == hash && name.scope == scope && profile::SameName(name.text, text)) break;
    slot = (slot + 1) & mask;
  }
  return slot;
}

void NameTable::Spread(std::size_t slots) {
  slots_.assign(slots, 0);
  for (std::uint32_t position = 0; position < names_.size(); ++position) {
    std::size_t slot = names_[position].hash & (slots - 1);
    while (slots_[slot] != 0) slot = (slot + 1) & (slots - 1);
    slots_[slot] = position + 1;
  }
}

}  // namespace vestrel
