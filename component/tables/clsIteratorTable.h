// The table of clsIterator.
#pragma once

#include "component/Table.h"
#include "core/clsIterator.h"

namespace vestrel::component {

template <>
struct TableOf<clsIterator> {
  using T = clsIterator;
  static constexpr auto kTable = MakeTable<T>(
      "Walks over the items that a list held when the iterator was made. Advance first with a hasNext "
      "operation, then read.",
      Get<&T::Size>("Size", "The number of items."),
      Get<&T::IterIndex>("IterIndex", "The current position, -1 before the first advance."),
      Method<&T::Init>("Init", "Starts over on an array of objects, of which the first Size count.", "data",
                       "Size"),
      Method<&T::hasNext>("hasNext", "Advances; whether there is an item."),
      Method<&T::hasNextObject>("hasNextObject", "Advances; o receives the item when there is one.",
                                Out("o")),
      Method<&T::hasNextString>("hasNextString", "Advances; outStr receives the text of a clsString.",
                                Out("outStr")),
      Method<&T::hasNextLong>("hasNextLong", "Advances; outLong receives the number of a clsLong.",
                              Out("outLong")),
      Method<&T::hasNextWithIndex>("hasNextWithIndex",
                                   "Advances; index receives the new position, past the end as well.",
                                   Out("index")),
      Method<&T::iterValue>("iterValue",
                            "The current item. Error 9 before the first advance and past the end."),
      Method<&T::resetIter>("resetIter", "Back to before the first item."));
};

}  // namespace vestrel::component
