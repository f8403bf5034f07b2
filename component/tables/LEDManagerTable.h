// The table of LEDManager.
#pragma once

#include "component/Table.h"
#include "leds/LEDManager.h"

namespace vestrel::component {

template <>
struct TableOf<LEDManager> {
  using T = LEDManager;
  static constexpr auto kTable = MakeTable<T>(
      "Keeps the lamps of the control surface in step with the buttons and blinks on the ticks of a timer "
      "that the host runs.",
      Method<&T::Init>("Init", "Keeps the lamp output; sends nothing.", "setter"),
      Method<&T::clearAll>("clearAll", "Ends the blink timer and darkens all rows."),
      Method<&T::setButtonsInGroups1To8>("setButtonsInGroups1To8",
                                         "The go button of group 1 to 8; other groups are ignored.",
                                         "groupIndex", "hasAssigned", "hasPlaying"),
      Method<&T::setButtonInTop32>("setButtonInTop32", "Top button 1 to 32. Error 9 for another one.",
                                   "controlIndex", "assigned", "playing"),
      Method<&T::TimerTick>("TimerTick", "One blink step."));
};

}  // namespace vestrel::component
