// The table of clsDictionary.
#pragma once

#include "component/Table.h"
#include "core/clsDictionary.h"

namespace vestrel::component {

template <>
struct TableOf<clsDictionary> {
  using T = clsDictionary;
  static constexpr auto kTable = MakeTable<T>(
      "Maps texts to objects, letter case ignored, and keeps the keys in the order in which they were first "
      "added.",
      Get<&T::KeyList>("KeyList", "The keys as clsString: the dictionary's own list."),
      Method<&T::HasKey>("HasKey", "Whether the key is there.", "key"),
      Method<&T::Add>("Add", "Inserts, or replaces the value of a key that is there already.", "key",
                      "value"),
      Method<&T::Clear>("Clear", "Removes everything; a key list that was handed out keeps its keys."),
      Method<&T::Remove>("Remove",
                         "Takes the key out and answers its value, or emptyValue when it is missing.", "key",
                         Optional("emptyValue")),
      Method<&T::ValueOf>("ValueOf", "The value of the key, or emptyValue when it is missing.", "key",
                          Optional("emptyValue")));
};

}  // namespace vestrel::component
