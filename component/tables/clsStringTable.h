// The table of clsString.
#pragma once

#include "component/Table.h"
#include "component/tables/IComparableTable.h"
#include "core/clsString.h"

namespace vestrel::component {

template <>
struct TableOf<clsString> {
  using T = clsString;
  static constexpr auto kTable = MakeTable<T>(
      "A boxed text, so that texts can live in lists.",
      Property<&T::value, &T::SetValue>("value", "The text; empty in a new box."), Implements<IComparable>());
};

}  // namespace vestrel::component
