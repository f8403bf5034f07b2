// The table of vxEventList.
#pragma once

#include "component/Table.h"
#include "component/tables/IObjectComparatorTable.h"
#include "core/clsDictionary.h"
#include "recording/vxEventList.h"

namespace vestrel::component {

template <>
struct TableOf<vxEventList> {
  using T = vxEventList;
  static constexpr auto kTable = MakeTable<T>(
      "All events of a recording in order of time: records takes, fires what is due, seeks, and reads and "
      "writes the event file.",
      Get<&T::events>("events", "The recording, the list itself."),
      Method<&T::Init>("Init", "Starts empty; the handler hears of every event fired.", "handler"),
      Method<&T::Clear>("Clear", "Empties the recording."),
      Method<&T::StartRecording>("StartRecording", "Begins a take at the current time."),
      Method<&T::StopRecording>("StopRecording",
                                "Ends the take and merges it into the recording or overwrites with it."),
      Method<&T::SetRecordMode>("SetRecordMode", "How a take is combined with the recording.", "newMode"),
      Method<&T::UpdateTime>(
          "UpdateTime", "Fires every event up to that time (milliseconds) that was not passed yet.", "pTime"),
      Method<&T::SeekToEventIndex>("SeekToEventIndex",
                                   "The next event to fire is the one at that position; answers its time.",
                                   "index"),
      Method<&T::SeekTime>("SeekTime", "The next event to fire is the first later than that time.", "pTime"),
      Method<&T::AddEvent>("AddEvent", "Adds to the take under way. Error 91 outside one.", "pEvent"),
      Method<&T::WriteToFile>("WriteToFile", "Writes the event file to an open text file.", "f"),
      Method<&T::ReadFromFile>("ReadFromFile", "Reads an event file from an open text file.", "f",
                               "buttonMap"),
      Method<&T::ChangeEventTime>("ChangeEventTime",
                                  "Gives an event another time and sorts the recording anew.", "eventIndex",
                                  "newTime"),
      Implements<IObjectComparator>());
};

}  // namespace vestrel::component
