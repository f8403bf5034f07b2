// The table of IObjListEventHandler.
#pragma once

#include "component/Table.h"
#include "core/IObjListEventHandler.h"
#include "core/clsObjectList.h"

namespace vestrel::component {

template <>
struct TableOf<IObjListEventHandler> {
  using T = IObjListEventHandler;
  static constexpr auto kTable = MakeTable<T>(
      "The observer of a list, told of every insertion and removal during the operation that causes it.",
      Method<&T::ItemAdded>("ItemAdded",
                            "The item now stands at atIndex (0-based). userData is what the list was given "
                            "together with this observer.",
                            "list", "item", "atIndex", "userData"),
      Method<&T::ItemRemoved>("ItemRemoved",
                              "The item stood at fromIndex. After Remove it has left already; during Clear "
                              "all items are still in place.",
                              "list", "item", "fromIndex", "userData"));
};

}  // namespace vestrel::component
