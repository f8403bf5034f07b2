// The table of IVXEventListHandler.
#pragma once

#include "component/Table.h"
#include "controller/interfaces/IVXEventListHandler.h"
#include "recording/vxEvent.h"

namespace vestrel::component {

template <>
struct TableOf<IVXEventListHandler> {
  using T = IVXEventListHandler;
  static constexpr auto kTable = MakeTable<T>(
      "Told by an event list of each event it fires.",
      Method<&T::EventFired>("EventFired",
                             "An event was fired; eventIndex is its 0-based position in the recording.", "ev",
                             "eventIndex"));
};

}  // namespace vestrel::component
