// The table of clsFormatCapture.
#pragma once

#include "component/Table.h"
#include "util/clsFormatCapture.h"

namespace vestrel::component {

template <>
struct TableOf<clsFormatCapture> {
  using T = clsFormatCapture;
  static constexpr auto kTable = MakeTable<T>(
      "Matches fixed-width texts such as timecodes: # in a pattern stands for one digit, any other character "
      "for itself; each run of # is captured as a number.",
      Method<&T::DoMatch>("DoMatch", "Whether the text fits the pattern.", "format_", "against"),
      Method<&T::ParseItems>("ParseItems",
                             "Stores the captured numbers in the array's elements. False, with nothing "
                             "stored, when their count differs.",
                             Out("targets")));
};

}  // namespace vestrel::component
