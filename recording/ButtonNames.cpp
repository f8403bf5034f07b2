#include "recording/ButtonNames.h"

#include <bit>
#include <cstring>

#include "core/Cast.h"
#include "core/Error.h"
#include "core/clsDictionary.h"
#include "platform/Platform.h"

namespace vestrel {
namespace {

template <class Word>
std::uint64_t Load(const char* at) noexcept {
  Word word = 0;
  std::memcpy(&word, at, sizeof word);
  return word;
}

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) noexcept {
  hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
  // Every bit of the word counts in the upper bits alone.
  return std::rotl(hash, 32);
}

// Words that overlap at the end, so that no byte is read alone.
std::uint64_t HashOf(std::string_view name) noexcept {
  const std::size_t size = name.size();
  const char* const begin = name.data();
  const char* const end = begin + size;
  std::uint64_t hash = size;
  if (size >= 8) {
    for (const char* at = begin; end - at > 8; at += 8) hash = Mix(hash, Load<std::uint64_t>(at));
    hash = Mix(hash, Load<std::uint64_t>(end - 8));
  } else if (size >= 4) {
    hash = Mix(hash, Load<std::uint32_t>(begin) << 32U | Load<std::uint32_t>(end - 4));
  } else {
    for (const char byte : name) hash = hash << 8U | static_cast<unsigned char>(byte);
  }
  hash *= 0x9E3779B97F4A7C15U;
  return hash >> 32U;
}

}  // namespace

const ButtonNames::Binding& ButtonNames::Of(std::string_view narrowName) {
  const std::uint64_t hash = HashOf(narrowName);
  const std::uint32_t entry = slots_[SlotFor(narrowName, hash)];
  return entry != 0 ? entries_[entry - 1].binding : Add(narrowName, hash);
}

// The slot that holds the name, or the free one where it belongs.
std::size_t ButtonNames::SlotFor(std::string_view name, std::uint64_t hash) const noexcept {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = static_cast<std::size_t>(hash) & mask;
  while (slots_[slot] != 0) {
    const Entry& entry = entries_[slots_[slot] - 1];
    if (entry.hash == hash && entry.name == name) break;
    slot = (slot + 1) & mask;
  }
  return slot;
}

const ButtonNames::Binding& ButtonNames::Add(std::string_view name, std::uint64_t hash) {
  entries_.push_back({std::string(name), hash, LookUp(platform::encoding().Widen(name))});
  slots_[SlotFor(name, hash)] = static_cast<std::uint32_t>(entries_.size());
  if (2 * entries_.size() > slots_.size()) Enlarge();
  return entries_.back().binding;
}

void ButtonNames::Enlarge() {
  slots_.assign(2 * slots_.size(), 0);
  std::uint32_t position = 0;
  for (const Entry& entry : entries_) slots_[SlotFor(entry.name, entry.hash)] = ++position;
}

ButtonNames::Binding ButtonNames::LookUp(std::u16string_view name) const {
  if (map_ == nullptr) RaiseError(Error_ObjectNotSet, u"vxEvent");
  if (!map_->HasKey(name)) return {};
  const Ref<Object> value = map_->ValueOf(name);
  return {true, CastOrNone<clsButton>(value.get())};
}

}  // namespace vestrel
