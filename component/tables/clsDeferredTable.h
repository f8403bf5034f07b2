// The table of clsDeferred.
#pragma once

#include "component/Table.h"
#include "model/clsDeferred.h"

namespace vestrel::component {

template <>
struct TableOf<clsDeferred> {
  using T = clsDeferred;
  static constexpr auto kTable = MakeTable<T>(
      "The play state and fader value that a loaded button has not applied.",
      Field<&T::page>("page", "The page the button belongs to."), Field<&T::button>("button", "The button."),
      Field<&T::playState>("playState", "The play state read from the page file."),
      Field<&T::faderValue>("faderValue", "The fader value read from the page file."));
};

}  // namespace vestrel::component
