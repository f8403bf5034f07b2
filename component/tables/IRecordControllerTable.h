// The table of IRecordController.
#pragma once

#include "component/Table.h"
#include "controller/interfaces/IRecordController.h"
#include "model/clsButton.h"

namespace vestrel::component {

template <>
struct TableOf<IRecordController> {
  using T = IRecordController;
  static constexpr auto kTable = MakeTable<T>(
      "Told by the controller, as the last step, of every change of a play state.",
      Method<&T::ButtonPlaystateChanged>("ButtonPlaystateChanged", "A button's play state changed.", "button",
                                         "eventSource", "mouseButton", "shift", "x", "y"));
};

}  // namespace vestrel::component
