// Maps texts to objects, letter case ignored (see LetterCase.h), and keeps the keys in the order in which
// they were first added. Owned by whoever holds it; holds its values, which may be none. A missing key is
// never an error.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "core/Object.h"
#include "core/Ref.h"
#include "core/clsObjectList.h"

namespace vestrel {

class clsDictionary : public Object {
 public:
  VESTREL_OBJECT(clsDictionary)

  clsDictionary();

  // The keys as clsString, spelled as first added: the dictionary's own list, not a copy.
  Ref<clsObjectList> KeyList() const { return keys_; }
  // Whether the key is there, in whatever spelling.
  bool HasKey(std::u16string_view key) const;
  // Inserts, or replaces the value of a key that is there already; the key keeps its place and spelling.
  void Add(std::u16string_view key, Object* value);
  // Starts with new lists; a key list that was handed out keeps its keys.
  void Clear();
  // Takes the key out and answers its value, or `emptyValue` when it is missing. The key list is searched for
  // the exact spelling: with another letter case than at first the last key is dropped from it instead.
  Ref<Object> Remove(std::u16string_view key, Object* emptyValue = nullptr);
  // The value of the key, or `emptyValue` when it is missing.
  Ref<Object> ValueOf(std::u16string_view key, Object* emptyValue = nullptr) const;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view key) const noexcept;
  };
  struct Equal {
    using is_transparent = void;
    bool operator()(std::u16string_view a, std::u16string_view b) const noexcept;
  };

  std::unordered_map<std::u16string, Ref<Object>, Hash, Equal> items_;
  Ref<clsObjectList> keys_;
};

}  // namespace vestrel
