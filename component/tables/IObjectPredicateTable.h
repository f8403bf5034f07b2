// The table of IObjectPredicate.
#pragma once

#include "component/Table.h"
#include "core/IObjectPredicate.h"

namespace vestrel::component {

template <>
struct TableOf<IObjectPredicate> {
  using T = IObjectPredicate;
  static constexpr auto kTable =
      MakeTable<T>("A yes or no question about an object, given to a list's search and filter.",
                   Method<&T::IsTrueFor>("IsTrueFor", "Whether the object fits.", "obj"));
};

}  // namespace vestrel::component
