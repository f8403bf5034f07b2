// The host's transport bar. Implemented by the host, called only by the record controller, on the
// user-interface thread; calls may call back into it. What the bar raises reaches whoever called the record
// controller.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "core/Object.h"

namespace vestrel {

class vxEvent;

class IRecordEventHandler : public virtual Object {
 public:
  VESTREL_OBJECT(IRecordEventHandler)

  // Show the transport position, in milliseconds.
  virtual void UpdateTimecodeDisplay(std::int32_t /*value*/) {}
  // Switch the timer whose ticks call clsRecordController::TimerTick on (true, while playing) or off.
  virtual void SetTimerEnabled(bool /*value*/) {}
  // Ends every Play, Record and Stop_, also one that changed nothing: the state the transport is in now and
  // whether a take is being recorded.
  virtual void TransportStateChanged(TransportStateEnum /*transportState*/, bool /*recording*/) {}
  // `ev` was added to the take that is being recorded.
  virtual void NewEventRecorded(vxEvent* /*ev*/) {}
  // An event was fired during playback; eventIndex is its 0-based position in the recording.
  virtual void CurrentPlayingEvent(vxEvent* /*ev*/, std::int32_t /*eventIndex*/) {}
  // The time of an event was changed, and with it perhaps the order: draw the list of events anew.
  virtual void RefreshList() {}
};

}  // namespace vestrel
