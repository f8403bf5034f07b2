// The table of clsButtonPredicate.
#pragma once

#include "component/Table.h"
#include "component/tables/IObjectPredicateTable.h"
#include "model/clsButtonPredicate.h"

namespace vestrel::component {

template <>
struct TableOf<clsButtonPredicate> {
  using T = clsButtonPredicate;
  static constexpr auto kTable = MakeTable<T>(
      "Selects buttons by index or by type. A new one is true for the indices 0 to 100.",
      Method<&T::SetButtonIndexBetween>("SetButtonIndexBetween", "True for lower <= buttonIndex <= upper.",
                                        "lower", "upper"),
      Method<&T::SetButtonIndexGreaterThan>("SetButtonIndexGreaterThan",
                                            "True for an index above lower, or equal to it when inclusive.",
                                            "lower", "inclusive"),
      Method<&T::SetButtonIndexLessThan>("SetButtonIndexLessThan",
                                         "True for an index below upper, or equal to it when inclusive.",
                                         "upper", "inclusive"),
      Method<&T::SetButtonType>("SetButtonType", "True for buttons of that type.", "buttonType"),
      Implements<IObjectPredicate>());
};

}  // namespace vestrel::component
