// The table of UIFaderValues.
#pragma once

#include "component/Table.h"
#include "component/UIFaderValues.h"

namespace vestrel::component {

template <>
struct TableOf<UIFaderValues> {
  using T = UIFaderValues;
  static constexpr auto kTable = MakeTable<T>(
      "The fader positions as an object, for hosts that cannot handle the TUIFaderValues record.",
      Property<&T::GroupFaders, &T::SetGroupFaders>(
          "GroupFaders", "The position of group fader 1 to 8. Error 9 for another one.", "index"),
      Property<&T::BumpFaders, &T::SetBumpFaders>(
          "BumpFaders", "The position of bump fader 1 to 8. Error 9 for another one.", "index"));
};

}  // namespace vestrel::component
