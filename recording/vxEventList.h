// All events of a recording in order of time: records a take beside them and merges or overwrites when it
// ends, fires what is due, seeks, and reads and writes the event file. Owned by the record controller, to
// which it reports every event fired. The list of events is shared with hosts, which may change it and its
// events at any time, also from within a callback; every answer is that of the list as it stands then.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "controller/interfaces/IVXEventListHandler.h"
#include "core/BackRef.h"
#include "core/IObjectComparator.h"
#include "core/clsObjectList.h"
#include "recording/EventOrder.h"
#include "recording/vxEvent.h"

namespace vestrel {

class clsDictionary;

class vxEventList : public virtual IObjectComparator {
 public:
  VESTREL_OBJECT(vxEventList, IObjectComparator)

  // The recording itself, not a copy; none before Init. A take that overwrites and a file that is read put
  // another list in its place.
  Ref<clsObjectList> events() const noexcept { return events_; }

  // An empty recording in merge mode, at its start, without a take. The handler (none: nobody is told) points
  // back (core/BackRef.h). Before Init the operations below raise 91 where they need the recording.
  void Init(IVXEventListHandler* handler);
  // Empties the recording (its observer is told of each event); position and a take under way stay.
  void Clear();
  // Begins a take at the current time; one under way is discarded. What this, Init, StopRecording and
  // ReadFromFile replace goes when all is in place: its end may call back.
  void StartRecording();
  // Ends the take: in overwrite mode it first drops the recording's events from the take's start up to, but
  // not including, its end, which makes a new list and is logged at Info. Then the take's events are added
  // and the recording is in order of time; events of equal time keep the order in which they arrived. The
  // observer of the list sees each added at the end. Nothing outside a take. Raises 13 or 91 when the list
  // holds something that is no event.
  void StopRecording();
  // Counts at once, also for the take under way.
  void SetRecordMode(RecordModeEnum newMode);
  // The time moved on to pTime (milliseconds): fires every event up to it that was not passed yet, in list
  // order; in a take in overwrite mode it passes them silently. For each event fired: setPlayState on its
  // button with PSEventSource_RecPlayback, EventFired, a line at Spew. Raises 91 for an event without a
  // button, 13 for an item that is no event; the event that failed is next again.
  void UpdateTime(std::int32_t pTime);
  // The next event to fire is the one at `index` (0-based); answers its time in milliseconds. An index
  // outside the recording answers the time of the item that clsObjectList::GetItem gives for it: past the end
  // nothing is left to fire, and from a negative one on the items up to -1 come before the first. On an empty
  // recording raises 9 for an index from 0 on; a negative one takes what GetItem gives there (91 for none).
  std::int32_t SeekToEventIndex(std::int32_t index);
  // The next event to fire is the first in the list later than pTime (milliseconds). Fires nothing; logs at
  // Info. Raises 13 or 91 for an item on the way that is no event.
  void SeekTime(std::int32_t pTime);
  // Adds to the take under way, in order of time, after those of equal time; the recording stays as it is.
  // Raises 91 outside a take and for no event.
  void AddEvent(vxEvent* pEvent);
  // Writes the recording to f, the number of a text file open for output (docs/event-file.md). Raises as
  // vxEvent::WriteToFile.
  void WriteToFile(std::int16_t f);
  // Reads a recording from f, the number of a text file open for input, into a new list: the events whose
  // button buttonMap knows by name, in the file's order. The position stays. Raises as
  // vxEvent::ReadFromFile; the recording then holds what was read so far.
  void ReadFromFile(std::int16_t f, clsDictionary* buttonMap);
  // Gives the event at eventIndex (as clsObjectList::GetItem) another time (milliseconds) and sorts the
  // recording anew; the position stays. Raises what GetItem raises, 13 or 91 for what is no event.
  void ChangeEventTime(std::int32_t eventIndex, std::int32_t newTime);

  // -1, 0 or 1: orders two events by time alone. Raises 13 or 91 for anything else.
  std::int32_t Compare(Object* a, Object* b) override;

 private:
  clsObjectList& Events() const;
  void MergeTake();
  Ref<clsObjectList> EventsOutsideRange(std::int32_t start, std::int32_t end);
  // Borrowed from the list.
  vxEvent* NextDue(std::int32_t pTime) const;
  Object* ItemBeforeFirst() const;
  void Fire(vxEvent& ev);
  // Apart, so that playing without the log at Spew does without what they take.
  static void LogFired(const clsButton& button, std::int32_t time);
  static void LogSkipped(const vxEvent& ev);

  Ref<clsObjectList> events_;
  std::int32_t recordStart_ = 0;
  std::int32_t recordEnd_ = 0;
  Ref<clsObjectList> newEvents_;
  std::int32_t currentTime_ = 0;
  RecordModeEnum recordMode_ = RecordMode_Merge;
  bool recording_ = false;
  std::int32_t playIndex_ = 0;
  QuickBackRef<IVXEventListHandler> handler_;
  EventOrder order_;
};

}  // namespace vestrel
