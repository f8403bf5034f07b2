#include "recording/clsRecordController.h"

#include <utility>

#include "core/Checked.h"
#include "core/Error.h"
#include "platform/Platform.h"
#include "recording/Timecode.h"
#include "storage/TextFile.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

[[noreturn]] void FailUnset() {
  RaiseError(Error_ObjectNotSet, u"clsRecordController");
}

// A callback may drop the last other reference to what is at work.
template <class T>
Ref<T> Held(const Ref<T>& object) {
  if (!object) FailUnset();
  return object;
}

}  // namespace

inline Ref<vxEventList> clsRecordController::Events() const {
  return Held(eventList_);
}

inline Ref<IRecordEventHandler> clsRecordController::Bar() const {
  return Held(eventHandler_);
}

Ref<clsObjectList> clsRecordController::EventList() const {
  return Events()->events();
}

void clsRecordController::Init(IRecordEventHandler* eventHandler) {
  modLog::Log(u"clsRecordController.Init", LogLevel_4_SPEW);
  const Ref<vxEventList> list = MakeRef<vxEventList>();
  list->Init(this);
  // What was there goes last: a host's objects may go with it, and call back.
  const Ref<vxEventList> former = std::exchange(eventList_, list);
  lastTick_ = platform::clock().TickCount();
  currentTime_ = 0;
  playState_ = Stopped;
  recording_ = false;
  eventHandler_ = eventHandler;
}

void clsRecordController::ChangePlaystate(TransportStateEnum newState) {
  if (newState == playState_) return;
  const Ref<clsRecordController> self(this);
  if (newState == Stopped) {
    Bar()->UpdateTimecodeDisplay(0);
    currentTime_ = 0;
    Events()->SeekTime(0);
  } else if (newState == playing) {
    // What passed while paused or stopped does not count.
    lastTick_ = platform::clock().TickCount();
    playState_ = playing;
  } else if (newState == Paused) {
    playState_ = Paused;
  }
  Bar()->SetTimerEnabled(newState == playing);
  playState_ = newState;
}

void clsRecordController::ReportState() {
  Bar()->TransportStateChanged(playState_, recording_);
}

void clsRecordController::Play() {
  const Ref<clsRecordController> self(this);
  if (playState_ == playing) {
    ChangePlaystate(Paused);
  } else if (playState_ == Stopped || playState_ == Paused) {
    ChangePlaystate(playing);
  }
  ReportState();
}

void clsRecordController::Record() {
  const Ref<clsRecordController> self(this);
  recording_ = !recording_;
  if (recording_) {
    Events()->StartRecording();
    ChangePlaystate(playing);
  } else {
    EndTake();
  }
  ReportState();
}

void clsRecordController::Stop_() {
  const Ref<clsRecordController> self(this);
  if (recording_) EndTake();
  ChangePlaystate(Stopped);
  ReportState();
}

void clsRecordController::EndTake() {
  Events()->StopRecording();
  recording_ = false;
}

void clsRecordController::ClearEvents() {
  Events()->Clear();
}

void clsRecordController::SetRecordMode(RecordModeEnum mode) {
  Events()->SetRecordMode(mode);
}

void clsRecordController::SaveEventsTo(std::u16string_view filename) {
  const Ref<vxEventList> list = Events();
  TextFile::Opened file(filename, TextFile::Mode::Output);
  list->WriteToFile(file.number());
  file.Close();
}

void clsRecordController::LoadEventsFrom(std::u16string_view filename, clsDictionary* buttonMap) {
  const Ref<vxEventList> list = Events();
  const TextFile::Opened file(filename, TextFile::Mode::Input);
  list->ReadFromFile(file.number(), buttonMap);
}

void clsRecordController::TimerTick() {
  const Ref<clsRecordController> self(this);
  const std::uint32_t now = platform::clock().TickCount();
  const std::uint32_t delta = now - lastTick_;
  lastTick_ = now;
  currentTime_ = NarrowChecked(std::int64_t{currentTime_} + delta);
  Bar()->UpdateTimecodeDisplay(currentTime_);
  // Keeps itself alive meanwhile.
  if (!eventList_) FailUnset();
  eventList_->UpdateTime(currentTime_);
}

void clsRecordController::SeekToEventIndex(std::int32_t index) {
  if (playState_ != Stopped) return;
  const Ref<clsRecordController> self(this);
  currentTime_ = Events()->SeekToEventIndex(index);
  Bar()->UpdateTimecodeDisplay(currentTime_);
}

void clsRecordController::updateEventTime(std::int32_t eventIndex, std::int32_t newTime) {
  Events()->ChangeEventTime(eventIndex, newTime);
  Bar()->RefreshList();
}

bool clsRecordController::timecodeToMS(std::u16string_view tc, std::int32_t& result) {
  return TimecodeToMilliseconds(tc, result);
}

std::u16string clsRecordController::msToTimecode(std::int32_t x) {
  return MillisecondsToTimecode(x);
}

void clsRecordController::EventFired(vxEvent* ev, std::int32_t eventIndex) {
  Bar()->CurrentPlayingEvent(ev, eventIndex);
}

void clsRecordController::ButtonPlaystateChanged(clsButton* button, PSEventSourceEnum eventSource,
                                                 std::int16_t mouseButton, std::int16_t shift, float x,
                                                 float y) {
  if (button == nullptr) RaiseError(Error_ObjectNotSet, u"clsRecordController");
  const auto eventType = button->playState() == PlayState_Off ? vxEvent_ButtonOff : vxEvent_ButtonOn;
  if (eventSource != PSEventSource_User || !recording_) return;
  const Ref<vxEvent> ev = MakeRef<vxEvent>();
  ev->Init(currentTime_, button, eventType);
  ev->SetExtras(mouseButton, shift, x, y);
  Events()->AddEvent(ev.get());
  Bar()->NewEventRecorded(ev.get());
}

}  // namespace vestrel
