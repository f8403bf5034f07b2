// The transport of the recorder: play, pause, record and stop over one event list, a clock advanced by the
// host's timer, and timecodes. Made by the host, which hands it to the controller; keeps the host's transport
// bar alive. Changes that come from playback or automatic release are never recorded. Every callback may
// call back into it.
//
//   from      Play      Record (begins a take)   Record (ends it)   Stop_
//   Stopped   playing   playing                  -                  Stopped, at 0
//   playing   Paused    playing                  playing            Stopped, at 0
//   Paused    playing   playing                  Paused             Stopped, at 0
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

  // The recording's events, the list itself; a take that overwrites and a file that is loaded put another
  // list in its place. Before Init this and the operations below raise 91 where they need the recording or
  // the transport bar.
  Ref<clsObjectList> EventList() const;

  // An empty recording, stopped at 0. Operations that report to the transport bar raise 91 without one.
  void Init(IRecordEventHandler* eventHandler);
  // Nothing when already in that state. Stopped rewinds to 0 (UpdateTimecodeDisplay), playing measures time
  // from now on, Paused and any other value keep the position; then SetTimerEnabled, true for playing alone.
  void ChangePlaystate(TransportStateEnum newState);
  // Plays, or pauses when playing; ends with TransportStateChanged.
  void Play();
  // Begins a take and plays, or ends the take and leaves the transport as it is; ends with
  // TransportStateChanged.
  void Record();
  // Ends a take, stops and rewinds; ends with TransportStateChanged, also when nothing changed.
  void Stop_();
  // Empties the recording; position and a take under way stay.
  void ClearEvents();
  // How a take is combined with the recording; counts at once, also for the take under way.
  void SetRecordMode(RecordModeEnum mode);
  // Writes the recording to the file (docs/event-file.md), whole or not at all. Raises file errors (70, 75,
  // 76, ...) and 91 for an event without a button.
  void SaveEventsTo(std::u16string_view filename);
  // Reads the file's events, those whose button buttonMap knows by name, in place of the recording. The
  // position stays. Raises file errors (53, 62, 76, ...) and 13 or 6 for a malformed field; the recording
  // then holds what was read so far.
  void LoadEventsFrom(std::u16string_view filename, clsDictionary* buttonMap);
  // Moves the position by the milliseconds since the last tick (or since playing began), shows it
  // (UpdateTimecodeDisplay) and fires what is due, in whatever state. Two tick counts differ modulo 2^32, so
  // the count may wrap. Raises 6 when the position leaves 32 bits; the position then stays, and the time of
  // that tick is lost. Also raises as vxEventList::UpdateTime.
  void TimerTick();
  // When stopped: moves the position to the event's time (`index` as clsObjectList::GetItem) and shows it;
  // that event fires first. Ignored otherwise. Raises as vxEventList::SeekToEventIndex.
  void SeekToEventIndex(std::int32_t index);
  // vxEventList::ChangeEventTime (newTime in milliseconds), and what it raises; then RefreshList.
  void updateEventTime(std::int32_t eventIndex, std::int32_t newTime);
  // TimecodeToMilliseconds and MillisecondsToTimecode (recording/Timecode.h).
  bool timecodeToMS(std::u16string_view tc, std::int32_t& result);
  std::u16string msToTimecode(std::int32_t x);

  // From the event list: passed on as CurrentPlayingEvent.
  void EventFired(vxEvent* ev, std::int32_t eventIndex) override;
  // From the controller: in a take, a change by PSEventSource_User becomes an event at the position in force
  // (NewEventRecorded); other changes are ignored. Raises 91 for no button.
  void ButtonPlaystateChanged(clsButton* button, PSEventSourceEnum eventSource, std::int16_t mouseButton,
                              std::int16_t shift, float x, float y) override;

 private:
  Ref<vxEventList> Events() const;
  Ref<IRecordEventHandler> Bar() const;
  void EndTake();
  void ReportState();

  Ref<IRecordEventHandler> eventHandler_;
  Ref<vxEventList> eventList_;
  std::uint32_t lastTick_ = 0;
  std::int32_t currentTime_ = 0;
  TransportStateEnum playState_ = Stopped;
  bool recording_ = false;
  WeakSource weakSource_;
};

}  // namespace vestrel
