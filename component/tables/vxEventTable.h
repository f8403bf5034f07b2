// The table of vxEvent.
#pragma once

#include "component/Table.h"
#include "core/clsDictionary.h"
#include "recording/vxEvent.h"

namespace vestrel::component {

template <>
struct TableOf<vxEvent> {
  using T = vxEvent;
  static constexpr auto kTable = MakeTable<T>(
      "One recorded change of a button.",
      Property<&T::time, &T::SetTime>("time", "Transport time in milliseconds."),
      Field<&T::button>("button", "The button that changed."),
      Field<&T::eventType>("eventType", "On or off."),
      Field<&T::mouseButton>("mouseButton", "Mouse button of the recorded click."),
      Field<&T::shift>("shift", "Shift-key state of the recorded click."),
      Field<&T::x>("x", "Pointer x of the recorded click."),
      Field<&T::y>("y", "Pointer y of the recorded click."),
      Method<&T::Init>("Init", "Sets time, button and type.", "time", "button", "eventType"),
      Method<&T::SetExtras>("SetExtras", "Sets the data of the click.", "mouseButton", "shift", "x", "y"),
      Method<&T::ReadFromFile>("ReadFromFile",
                               "Reads one line of an event file; whether the map has its button.", "f",
                               "buttonMap"),
      Method<&T::WriteToFile>("WriteToFile", "Writes one line of an event file.", "f"));
};

}  // namespace vestrel::component
