// The table of clsFaderCatch.
#pragma once

#include "component/Table.h"
#include "model/clsFaderCatch.h"

namespace vestrel::component {

template <>
struct TableOf<clsFaderCatch> {
  using T = clsFaderCatch;
  static constexpr auto kTable = MakeTable<T>(
      "Pick-up of a fader that has no motor: the physical fader takes control only once it is moved onto or "
      "through the stored value.",
      Get<&T::value>("value", "The stored value."),
      Get<&T::Engaged>("Engaged", "Whether the physical fader controls the value now."),
      Method<&T::Init>("Init", "Value 0, position 0, not engaged."),
      Method<&T::PauseTracking>("PauseTracking", "Disengages and nothing else."),
      Method<&T::ResumeTracking>("ResumeTracking",
                                 "Notes where the physical fader stands; whether that is the stored value.",
                                 "outerValue"),
      Method<&T::SetOuterValue>("SetOuterValue",
                                "Notes where the physical fader stands and engages exactly when that is the "
                                "stored value. The result is always empty.",
                                "value"),
      Method<&T::SetValue>(
          "SetValue",
          "The physical fader moved; whether the stored value follows, which forceCatch enforces.", "value",
          Optional("forceCatch", false)));
};

}  // namespace vestrel::component
