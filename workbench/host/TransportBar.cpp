#include "workbench/host/TransportBar.h"

#include "recording/vxEvent.h"
#include "workbench/host/SimulatedHost.h"

namespace vestrel::workbench {

void TransportBar::UpdateTimecodeDisplay(std::int32_t value) {
  timecode_ = value;
  host_.calls().Callback("UpdateTimecodeDisplay", value);
}

void TransportBar::SetTimerEnabled(bool value) {
  host_.calls().Callback("SetTimerEnabled", value);
  host_.RunTransportTimer(value);
}

void TransportBar::TransportStateChanged(TransportStateEnum transportState, bool recording) {
  state_ = transportState;
  recording_ = recording;
  host_.calls().Callback("TransportStateChanged", transportState, recording);
}

void TransportBar::NewEventRecorded(vxEvent* ev) {
  host_.calls().Callback("NewEventRecorded", ev);
}

void TransportBar::CurrentPlayingEvent(vxEvent* ev, std::int32_t eventIndex) {
  playingEvent_ = eventIndex;
  host_.calls().Callback("CurrentPlayingEvent", ev, eventIndex);
}

void TransportBar::RefreshList() {
  host_.calls().Callback("RefreshList");
}

}  // namespace vestrel::workbench
