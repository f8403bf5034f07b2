// The table of ILEDSetter.
#pragma once

#include "component/Table.h"
#include "controller/interfaces/ILEDSetter.h"

namespace vestrel::component {

template <>
struct TableOf<ILEDSetter> {
  using T = ILEDSetter;
  static constexpr auto kTable = MakeTable<T>(
      "The lamp output of the control surface, implemented by the host.",
      Method<&T::setLED>("setLED",
                         "Light or darken every lamp of a row (245 go buttons, 246 and 247 top buttons) "
                         "whose bit is set; the others stay as they are.",
                         "ledGroupCode", "bits", "state"),
      Method<&T::StartLEDTimer>(
          "StartLEDTimer",
          "Start the timer whose ticks call LEDManager.TimerTick; starting a running timer is harmless."),
      Method<&T::EndLEDTimer>("EndLEDTimer", "Stop that timer."));
};

}  // namespace vestrel::component
