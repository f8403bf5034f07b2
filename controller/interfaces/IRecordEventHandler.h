// The host's transport bar. Implemented by the host, called only by the record controller.
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
  // Switch the timer whose ticks call clsRecordController::TimerTick.
  virtual void SetTimerEnabled(bool /*value*/) {}
  virtual void TransportStateChanged(TransportStateEnum /*transportState*/, bool /*recording*/) {}
  virtual void NewEventRecorded(vxEvent* /*ev*/) {}
  // An event was fired during playback; eventIndex is its 0-based position in the recording.
  virtual void CurrentPlayingEvent(vxEvent* /*ev*/, std::int32_t /*eventIndex*/) {}
  // The recording's list changed its order; draw it anew.
  virtual void RefreshList() {}
};

}  // namespace vestrel
