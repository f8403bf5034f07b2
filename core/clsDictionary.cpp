#include "core/clsDictionary.h"

#include <cstdint>
#include <utility>

#include "core/LetterCase.h"
#include "core/clsString.h"

namespace vestrel {

std::size_t clsDictionary::Hash::operator()(std::u16string_view key) const noexcept {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char16_t unit : key) hash = (hash ^ FoldLetter(unit)) * 0x100000001B3U;
  return static_cast<std::size_t>(hash ^ (hash >> 32U));
}

bool clsDictionary::Equal::operator()(std::u16string_view a, std::u16string_view b) const noexcept {
  return EqualIgnoringLetterCase(a, b);
}

clsDictionary::clsDictionary() : keys_(MakeRef<clsObjectList>()) {}

bool clsDictionary::HasKey(std::u16string_view key) const {
  return items_.find(key) != items_.end();
}

void clsDictionary::Add(std::u16string_view key, Object* value) {
  const auto found = items_.find(key);
  if (found != items_.end()) {
    // The old value goes last: its destructor may look here again.
    const Ref<Object> old = std::exchange(found->second, Ref<Object>(value));
    return;
  }
  const Ref<clsString> box = BoxString(key);
  items_.emplace(key, value);
  try {
    keys_->AddItem(box.get());
  } catch (...) {
    items_.erase(box->value());
    throw;
  }
}

void clsDictionary::Clear() {
  Ref<clsObjectList> keys = MakeRef<clsObjectList>();
  const auto old = std::exchange(items_, {});
  keys_.Swap(keys);
}

Ref<Object> clsDictionary::Remove(std::u16string_view key, Object* emptyValue) {
  const auto found = items_.find(key);
  if (found == items_.end()) return emptyValue;
  Ref<Object> value = std::move(found->second);
  const Ref<clsString> box = BoxString(key);
  items_.erase(found);
  keys_->Remove(keys_->FindObjectValue(box.get()));
  return value;
}

Ref<Object> clsDictionary::ValueOf(std::u16string_view key, Object* emptyValue) const {
  const auto found = items_.find(key);
  return found == items_.end() ? Ref<Object>(emptyValue) : found->second;
}

}  // namespace vestrel
