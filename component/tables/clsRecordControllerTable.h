// The table of clsRecordController.
#pragma once

#include "component/Table.h"
#include "component/tables/IRecordControllerTable.h"
#include "component/tables/IVXEventListHandlerTable.h"
#include "core/clsDictionary.h"
#include "recording/clsRecordController.h"

namespace vestrel::component {

template <>
struct TableOf<clsRecordController> {
  using T = clsRecordController;
  static constexpr auto kTable = MakeTable<T>(
      "The transport of the recorder: play, pause, record and stop over one event list, a clock advanced by "
      "the host's timer, and timecodes.",
      Get<&T::EventList>("EventList", "The recording's events, the list itself."),
      Method<&T::Init>("Init", "Starts stopped at 0 with an empty recording.", "eventHandler"),
      Method<&T::ChangePlaystate>("ChangePlaystate", "Switches the transport.", "newState"),
      Method<&T::Play>("Play", "Plays, or pauses while playing."),
      Method<&T::Record>("Record", "Starts or ends a take."),
      Method<&T::Stop_>("Stop_", "Stops the transport and ends a take."),
      Method<&T::ClearEvents>("ClearEvents", "Empties the recording."),
      Method<&T::SetRecordMode>("SetRecordMode", "How a take is combined with the recording.", "mode"),
      Method<&T::SaveEventsTo>("SaveEventsTo", "Writes an event file.", "filename"),
      Method<&T::LoadEventsFrom>("LoadEventsFrom",
                                 "Reads an event file; buttons are found in the map by name.", "filename",
                                 "buttonMap"),
      Method<&T::TimerTick>("TimerTick", "One step of the clock: fires what is due."),
      Method<&T::SeekToEventIndex>("SeekToEventIndex", "Goes to the time of an event.", "index"),
      Method<&T::updateEventTime>("updateEventTime", "Gives an event another time.", "eventIndex", "newTime"),
      Method<&T::timecodeToMS>("timecodeToMS", "Reads a timecode; whether it was understood.", "tc",
                               Out("result")),
      MethodByValue<&T::msToTimecode>("msToTimecode", "The timecode of a time in milliseconds.", "x"),
      Implements<IVXEventListHandler>(), Implements<IRecordController>());
};

}  // namespace vestrel::component
