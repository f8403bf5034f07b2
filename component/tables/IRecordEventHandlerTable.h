// The table of IRecordEventHandler.
#pragma once

#include "component/Table.h"
#include "controller/interfaces/IRecordEventHandler.h"
#include "recording/vxEvent.h"

namespace vestrel::component {

template <>
struct TableOf<IRecordEventHandler> {
  using T = IRecordEventHandler;
  static constexpr auto kTable = MakeTable<T>(
      "The host's transport bar.",
      Method<&T::UpdateTimecodeDisplay>("UpdateTimecodeDisplay",
                                        "Show the transport position, in milliseconds.", "value"),
      Method<&T::SetTimerEnabled>(
          "SetTimerEnabled", "Switch the timer whose ticks call clsRecordController.TimerTick.", "value"),
      Method<&T::TransportStateChanged>("TransportStateChanged",
                                        "Ends every Play, Record and Stop_, also one that changed nothing: "
                                        "the state now and whether a take is being recorded.",
                                        "transportState", "recording"),
      Method<&T::NewEventRecorded>("NewEventRecorded", "An event was recorded.", "ev"),
      Method<&T::CurrentPlayingEvent>(
          "CurrentPlayingEvent",
          "An event was fired during playback; eventIndex is its 0-based position in the recording.", "ev",
          "eventIndex"),
      Method<&T::RefreshList>("RefreshList",
                              "The time of an event was changed; draw the list of events anew."));
};

}  // namespace vestrel::component
