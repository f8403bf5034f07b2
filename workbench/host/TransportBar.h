// The transport bar: the timecode, the state of the transport and the event that is playing. Owned by the
// simulated host and held by the record controller; starts and stops the host's transport timer.
#pragma once

#include <cstdint>

#include "controller/interfaces/IRecordEventHandler.h"

namespace vestrel::workbench {

class SimulatedHost;

class TransportBar : public virtual IRecordEventHandler {
 public:
  VESTREL_OBJECT(TransportBar, IRecordEventHandler)

  // `host` outlives every call that the library makes.
  explicit TransportBar(SimulatedHost& host) noexcept : host_(host) {}

  void UpdateTimecodeDisplay(std::int32_t value) override;
  void SetTimerEnabled(bool value) override;
  void TransportStateChanged(TransportStateEnum transportState, bool recording) override;
  void NewEventRecorded(vxEvent* ev) override;
  void CurrentPlayingEvent(vxEvent* ev, std::int32_t eventIndex) override;
  void RefreshList() override;

  // Milliseconds.
  std::int32_t timecode() const noexcept { return timecode_; }
  TransportStateEnum state() const noexcept { return state_; }
  bool recording() const noexcept { return recording_; }
  // 0-based position of the event that was played last, -1 before the first.
  std::int32_t playingEvent() const noexcept { return playingEvent_; }

 private:
  SimulatedHost& host_;
  std::int32_t timecode_ = 0;
  TransportStateEnum state_ = Stopped;
  bool recording_ = false;
  std::int32_t playingEvent_ = -1;
};

}  // namespace vestrel::workbench
