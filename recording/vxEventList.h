// All events of a recording in order of time: records a take beside them and merges or overwrites when it
// ends, fires what is due, seeks, and reads and writes the event file. Owned by the record controller, to
// which it reports every event fired.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "controller/interfaces/IVXEventListHandler.h"
#include "core/BackRef.h"
#include "core/IObjectComparator.h"
#include "core/clsObjectList.h"
#include "recording/vxEvent.h"

namespace vestrel {

class clsDictionary;

class vxEventList : public virtual IObjectComparator {
 public:
  VESTREL_OBJECT(vxEventList, IObjectComparator)

  // The recording itself, not a copy.
  Ref<clsObjectList> events() const noexcept { return events_; }

  void Init(IVXEventListHandler* handler);
  // Empties the recording; position and a take under way stay.
  void Clear();
  // Begins a take at the current time; one under way is discarded.
  void StartRecording();
  // Ends the take: merges it, or puts it in the place of what the recording holds between its bounds.
  void StopRecording();
  void SetRecordMode(RecordModeEnum newMode);
  // Fires every event up to pTime (milliseconds) that was not passed yet, in list order.
  void UpdateTime(std::int32_t pTime);
  // The next event to fire is the one at `index` (0-based, as clsObjectList::GetItem); answers its time.
  std::int32_t SeekToEventIndex(std::int32_t index);
  // The next event to fire is the first later than pTime.
  void SeekTime(std::int32_t pTime);
  // Adds to the take under way; raises 91 outside one.
  void AddEvent(vxEvent* pEvent);
  void WriteToFile(std::int16_t f);
  void ReadFromFile(std::int16_t f, clsDictionary* buttonMap);
  // Gives an event another time and sorts the recording anew.
  void ChangeEventTime(std::int32_t eventIndex, std::int32_t newTime);

  // Orders two events by time alone.
  std::int32_t Compare(Object* a, Object* b) override;

 private:
  Ref<clsObjectList> events_;
  std::int32_t recordStart_ = 0;
  std::int32_t recordEnd_ = 0;
  Ref<clsObjectList> newEvents_;
  std::int32_t currentTime_ = 0;
  RecordModeEnum recordMode_ = RecordMode_Merge;
  bool recording_ = false;
  std::int32_t playIndex_ = 0;
  BackRef<IVXEventListHandler> handler_;
};

}  // namespace vestrel
