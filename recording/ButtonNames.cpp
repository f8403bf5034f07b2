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

// Of the words between a name's ends, where there are any.
std::uint64_t HashOfMiddle(std::string_view name) noexcept {
  std::uint64_t hash = 0;
  for (std::size_t at = 8; at + 8 < name.size(); at += 8) hash = Mix(hash, Load<std::uint64_t>(&name[at]));
  return hash;
}

}  // namespace

// Words that overlap where they have to, so that no byte is read alone.
inline ButtonNames::Key::Key(std::string_view name) noexcept : size(name.size()) {
  const char* const begin = name.data();
  const char* const end = begin + size;
  if (size >= 8) {
    first = Load<std::uint64_t>(begin);
    last = Load<std::uint64_t>(end - 8);
    if (size > kKeyedWhole) middle = HashOfMiddle(name);
  } else if (size >= 4) {
    first = Load<std::uint32_t>(begin);
    last = Load<std::uint32_t>(end - 4);
  } else {
    for (const char byte : name) first = first << 8U | static_cast<unsigned char>(byte);
  }
}

inline std::uint64_t ButtonNames::Key::Hash() const noexcept {
  return Mix(Mix(size ^ middle, first), last);
}

const ButtonNames::Binding& ButtonNames::Of(std::string_view narrowName) {
  const Key key(narrowName);
  const std::uint32_t entry = slots_[SlotFor(narrowName, key)];
  return entry != 0 ? entries_[entry - 1].binding : Add(narrowName, key);
}

// The slot that holds the name, or the free one where it belongs.
inline std::size_t ButtonNames::SlotFor(std::string_view name, const Key& key) const noexcept {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = static_cast<std::size_t>(key.Hash()) & mask;
  while (slots_[slot] != 0) {
    const Entry& entry = entries_[slots_[slot] - 1];
    if (entry.key == key && (key.size <= kKeyedWhole || entry.name == name)) break;
    slot = (slot + 1) & mask;
  }
  return slot;
}

const ButtonNames::Binding& ButtonNames::Add(std::string_view name, const Key& key) {
  entries_.push_back({key, std::string(name), LookUp(platform::encoding().Widen(name))});
  slots_[SlotFor(name, key)] = static_cast<std::uint32_t>(entries_.size());
  if (2 * entries_.size() > slots_.size()) Enlarge();
  return entries_.back().binding;
}

void ButtonNames::Enlarge() {
  slots_.assign(2 * slots_.size(), 0);
  std::uint32_t position = 0;
  for (const Entry& entry : entries_) slots_[SlotFor(entry.name, entry.key)] = ++position;
}

ButtonNames::Binding ButtonNames::LookUp(std::u16string_view name) const {
  if (map_ == nullptr) RaiseError(Error_ObjectNotSet, u"vxEvent");
  if (!map_->HasKey(name)) return {};
  const Ref<Object> value = map_->ValueOf(name);
  return {true, CastOrNone<clsButton>(value.get())};
}

}  // namespace vestrel
