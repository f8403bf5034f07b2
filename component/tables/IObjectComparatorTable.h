// The table of IObjectComparator.
#pragma once

#include "component/Table.h"
#include "core/IObjectComparator.h"

namespace vestrel::component {

template <>
struct TableOf<IObjectComparator> {
  using T = IObjectComparator;
  static constexpr auto kTable = MakeTable<T>(
      "An order between two objects, given to a list's sort.",
      Method<&T::Compare>(
          "Compare", "Negative when a sorts before b, 0 when they are equal, positive when a comes after.",
          "a", "b"));
};

}  // namespace vestrel::component
