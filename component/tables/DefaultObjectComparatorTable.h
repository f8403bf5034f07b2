// The table of DefaultObjectComparator.
#pragma once

#include "component/Table.h"
#include "component/tables/IObjectComparatorTable.h"
#include "core/DefaultObjectComparator.h"

namespace vestrel::component {

template <>
struct TableOf<DefaultObjectComparator> {
  using T = DefaultObjectComparator;
  static constexpr auto kTable =
      MakeTable<T>("The order of objects that know their own: asks the first for its CompareTo.",
                   Property<&T::Reverse, &T::SetReverse>(
                       "Reverse", "Whether every result is negated; false in a new one."),
                   Property<&T::field, &T::SetField>(
                       "field", "The field that is handed to CompareTo; \"all\" in a new one."),
                   Implements<IObjectComparator>());
};

}  // namespace vestrel::component
