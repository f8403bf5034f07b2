#include "recording/vxEventList.h"

#include <utility>

#include "core/Cast.h"
#include "core/Error.h"
#include "recording/EventFile.h"
#include "storage/TextFile.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

[[noreturn]] void FailWithoutButton() {
  RaiseError(Error_ObjectNotSet, u"vxEventList");
}

const std::u16string& ButtonName(const vxEvent& ev) {
  if (!ev.button) RaiseError(Error_ObjectNotSet);
  return ev.button->name;
}

}  // namespace

void vxEventList::Init(IVXEventListHandler* handler) {
  // What was there goes last: a host's objects may go with it, and call back.
  const Ref<clsObjectList> formerEvents = std::exchange(events_, MakeRef<clsObjectList>());
  const Ref<clsObjectList> formerTake = std::exchange(newEvents_, nullptr);
  recordMode_ = RecordMode_Merge;
  recording_ = false;
  order_.Forget();
  recordStart_ = 0;
  recordEnd_ = 0;
  currentTime_ = 0;
  playIndex_ = 0;
  handler_ = handler;
}

clsObjectList& vxEventList::Events() const {
  return Cast<clsObjectList>(events_.get());
}

void vxEventList::Clear() {
  const Ref<clsObjectList> list(&Events());
  list->Clear();
}

void vxEventList::StartRecording() {
  const Ref<clsObjectList> discarded = std::exchange(newEvents_, MakeRef<clsObjectList>());
  recordStart_ = currentTime_;
  recording_ = true;
}

void vxEventList::AddEvent(vxEvent* pEvent) {
  if (!newEvents_ || pEvent == nullptr) RaiseError(Error_ObjectNotSet, u"vxEventList");
  const clsObjectList& take = *newEvents_;
  const std::int32_t size = take.Size();
  const bool isLast = size == 0 || Cast<vxEvent>(take.GetItem(-1).get()).time() <= pEvent->time();
  newEvents_->AddItemBefore(pEvent, isLast ? size : EventOrder::PlaceFor(take, pEvent->time()));
}

void vxEventList::StopRecording() {
  if (!recording_) return;
  recording_ = false;
  recordEnd_ = currentTime_;
  const Ref<vxEventList> self(this);
  const bool overwrite = recordMode_ == RecordMode_Overwrite;
  Ref<clsObjectList> replaced;
  if (overwrite) {
    replaced = std::exchange(events_, EventsOutsideRange(recordStart_, recordEnd_));
    order_.Forget();
  }
  MergeTake();
  // Last, so that a log that cannot be written costs no events.
  if (overwrite) {
    modLog::LogFormat(LogLevel_3_INFO, u"deleting events between %d and %d", recordStart_, recordEnd_);
  }
}

void vxEventList::MergeTake() {
  const Ref<clsObjectList> list(&Events());
  const Ref<clsObjectList> take = newEvents_;
  // A host may have changed the times of events that it was told of.
  EventOrder().Sort(*take);
  list->ExtendWith(take.get());
  // The list's observer may have begun anew, with another list.
  if (events_ == list) {
    order_.Sort(*list);
  } else {
    EventOrder().Sort(*list);
  }
  // The list's observer may have begun another take.
  if (newEvents_ == take) newEvents_ = nullptr;
}

Ref<clsObjectList> vxEventList::EventsOutsideRange(std::int32_t start, std::int32_t end) {
  Ref<clsObjectList> outside = MakeRef<clsObjectList>();
  for (Object* item : Events().Snapshot()) {
    const std::int32_t time = Cast<vxEvent>(item).time();
    if (time < start || time >= end) outside->AddItem(item);
  }
  return outside;
}

void vxEventList::SetRecordMode(RecordModeEnum newMode) {
  recordMode_ = newMode;
}

Object* vxEventList::ItemBeforeFirst() const {
  return events_->GetItem(playIndex_).get();
}

// Asked anew for each event: what the last one set off may have changed or replaced the list.
inline vxEvent* vxEventList::NextDue(std::int32_t pTime) const {
  Object* item = nullptr;
  if (playIndex_ >= 0) {
    Object* const* const items = events_->begin();
    if (playIndex_ >= events_->end() - items) return nullptr;
    item = items[playIndex_];
  } else {
    if (playIndex_ >= events_->Size()) return nullptr;
    item = ItemBeforeFirst();
  }
  auto& ev = Cast<vxEvent>(item);
  return ev.time() > pTime ? nullptr : &ev;
}

// Event, button and handler are kept as what their count is part of, so that it is looked for once.
inline void vxEventList::Fire(vxEvent& ev) {
  clsButton* const button = ev.button.get();
  if (button == nullptr) FailWithoutButton();
  const Ref<Object> heldButton(button);
  const auto newState = ev.eventType == vxEvent_ButtonOn ? PlayState_On : PlayState_Off;
  button->setPlayState(newState, PSEventSource_RecPlayback, ev.mouseButton, ev.shift, ev.x, ev.y);
  // Handler and index are those that the button's change leaves.
  if (Object* const told = handler_.Alive()) {
    const Ref<Object> heldHandler(told);
    handler_->EventFired(&ev, playIndex_);
  }
  if (modLog::Passes(LogLevel_4_SPEW)) LogFired(*button, ev.time());
}

void vxEventList::UpdateTime(std::int32_t pTime) {
  const Ref<vxEventList> self(this);
  if (!events_) RaiseError(Error_ObjectNotSet);
  while (vxEvent* const due = NextDue(pTime)) {
    const Ref<Object> held(due);
    if (recording_ && recordMode_ == RecordMode_Overwrite) {
      LogSkipped(*due);
    } else {
      Fire(*due);
    }
    ++playIndex_;
  }
  currentTime_ = pTime;
}

void vxEventList::LogFired(const clsButton& button, std::int32_t time) {
  modLog::LogFormat(LogLevel_4_SPEW, u"Playing button %s @ time %d", button.name, time);
}

void vxEventList::LogSkipped(const vxEvent& ev) {
  modLog::LogFormat(LogLevel_4_SPEW, u"Overwrite-mode-skipping playback of %s @ time %d", ButtonName(ev),
                    ev.time());
}

std::int32_t vxEventList::SeekToEventIndex(std::int32_t index) {
  playIndex_ = index;
  currentTime_ = Cast<vxEvent>(Events().GetItem(index).get()).time();
  return currentTime_;
}

void vxEventList::SeekTime(std::int32_t pTime) {
  playIndex_ = order_.FirstLaterThan(Events(), pTime);
  modLog::LogFormat(LogLevel_3_INFO, u"post-seek playback index: %d", playIndex_);
  currentTime_ = pTime;
}

void vxEventList::ChangeEventTime(std::int32_t eventIndex, std::int32_t newTime) {
  const Ref<clsObjectList> list(&Events());
  Cast<vxEvent>(list->GetItem(eventIndex).get()).SetTime(newTime);
  order_.Sort(*list);
}

void vxEventList::WriteToFile(std::int16_t f) {
  TextOutput& out = TextFile::Output(f);
  const ItemSnapshot items = Events().Snapshot();
  out.WriteLong(items.size());
  out.EndLine();
  for (Object* item : items) WriteEvent(out, Cast<vxEvent>(item));
}

void vxEventList::ReadFromFile(std::int16_t f, clsDictionary* buttonMap) {
  TextInput& in = TextFile::Input(f);
  // With it a host's objects may go, and close the file.
  const Ref<clsObjectList> replaced = std::exchange(events_, MakeRef<clsObjectList>());
  order_.Forget();
  EventReader reader(in, buttonMap);
  for (std::int32_t left = in.ReadLong(); left > 0; --left) {
    const Ref<vxEvent> ev = MakeRef<vxEvent>();
    if (reader.Read(*ev)) events_->AddItem(ev.get());
  }
}

std::int32_t vxEventList::Compare(Object* a, Object* b) {
  const std::int32_t first = Cast<vxEvent>(a).time();
  const std::int32_t second = Cast<vxEvent>(b).time();
  return first < second ? -1 : static_cast<std::int32_t>(first > second);
}

}  // namespace vestrel
