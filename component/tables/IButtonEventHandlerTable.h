// The table of IButtonEventHandler.
#pragma once

#include "component/Table.h"
#include "controller/interfaces/IButtonEventHandler.h"
#include "model/clsButton.h"
#include "model/clsPage.h"

namespace vestrel::component {

template <>
struct TableOf<IButtonEventHandler> {
  using T = IButtonEventHandler;
  static constexpr auto kTable = MakeTable<T>(
      "Told by a button of every change that matters outside it.",
      Method<&T::PlayStateChanged>("PlayStateChanged", "The play state was set to another value.", "button",
                                   "eventSource", "mouseButton", "shift", "x", "y",
                                   Optional("suppressSave", false)),
      Method<&T::LockStateChanged>("LockStateChanged", "The lock changed.", "button"),
      Method<&T::FaderModeChanged>("FaderModeChanged", "The fader mode changed.", "button"),
      Method<&T::FaderValueChanged>("FaderValueChanged", "The value of a bump button's fader changed.",
                                    "button", "updateUI"),
      Method<&T::DeferPlaystateFor>("DeferPlaystateFor",
                                    "A button read from its page file hands over what was saved there.",
                                    "page", "button", "playState", "faderValue"));
};

}  // namespace vestrel::component
