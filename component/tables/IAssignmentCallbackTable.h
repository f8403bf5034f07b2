// The table of IAssignmentCallback.
#pragma once

#include "component/Table.h"
#include "controller/interfaces/IAssignmentCallback.h"

namespace vestrel::component {

template <>
struct TableOf<IAssignmentCallback> {
  using T = IAssignmentCallback;
  static constexpr auto kTable = MakeTable<T>(
      "The host's object that started an assignment.",
      Method<&T::CompleteAssignment>(
          "CompleteAssignment", "The button is about to be placed; forceOverwrite says that it replaces one.",
          Optional("forceOverwrite", false)));
};

}  // namespace vestrel::component
