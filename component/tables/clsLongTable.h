// The table of clsLong.
#pragma once

#include "component/Table.h"
#include "component/tables/IComparableTable.h"
#include "core/clsLong.h"

namespace vestrel::component {

template <>
struct TableOf<clsLong> {
  using T = clsLong;
  static constexpr auto kTable = MakeTable<T>(
      "A boxed 32-bit integer, so that numbers can live in lists.",
      Property<&T::value, &T::SetValue>("value", "The number; 0 in a new box."), Implements<IComparable>());
};

}  // namespace vestrel::component
