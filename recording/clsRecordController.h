// The transport of the recorder: play, pause, record and stop over one event list, a clock advanced by the
// host's timer, and timecodes. Made by the host, which hands it to the controller; holds the host's transport
// bar. Changes that come from playback or automatic release are never recorded.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controller/interfaces/IRecordController.h"
#include "controller/interfaces/IRecordEventHandler.h"
#include "controller/interfaces/IVXEventListHandler.h"
#include "core/BackRef.h"
#include "recording/vxEventList.h"

namespace vestrel {

class clsDictionary;

class clsRecordController : public virtual IRecordController, public virtual IVXEventListHandler {
 public:
  VESTREL_OBJECT(clsRecordController, IRecordController, IVXEventListHandler)
  VESTREL_HELD_WEAKLY()

  // The recording's events, the list itself.
  Ref<clsObjectList> EventList() const;

  void Init(IRecordEventHandler* eventHandler);
  void ChangePlaystate(TransportStateEnum newState);
  void Play();
  void Record();
  void Stop_();
  void ClearEvents();
  void SetRecordMode(RecordModeEnum mode);
  void SaveEventsTo(std::u16string_view filename);
  void LoadEventsFrom(std::u16string_view filename, clsDictionary* buttonMap);
  void TimerTick();
  void SeekToEventIndex(std::int32_t index);
  void updateEventTime(std::int32_t eventIndex, std::int32_t newTime);
  bool timecodeToMS(std::u16string_view tc, std::int32_t& result);
  std::u16string msToTimecode(std::int32_t x);

  void EventFired(vxEvent* ev, std::int32_t eventIndex) override;
  void ButtonPlaystateChanged(clsButton* button, PSEventSourceEnum eventSource, std::int16_t mouseButton,
                              std::int16_t shift, float x, float y) override;

 private:
  void EndTake();

  Ref<IRecordEventHandler> eventHandler_;
  Ref<vxEventList> eventList_;
  std::uint32_t lastTick_ = 0;
  std::int32_t currentTime_ = 0;
  TransportStateEnum playState_ = Stopped;
  bool recording_ = false;
  WeakSource weakSource_;
};

}  // namespace vestrel
