#include "recording/EventOrder.h"

#include <algorithm>
#include <vector>

#include "core/Cast.h"

namespace vestrel {
namespace {

// Of an item that is known to be an event.
std::int32_t TimeOf(Object* event) noexcept {
  return static_cast<vxEvent*>(event)->time();
}

// Where the run of events whose times never fall, which starts at `begin`, ends. An item that is no event
// ends it.
Object* const* EndOfRun(Object* const* begin, Object* const* end) noexcept {
  const vxEvent* previous = nullptr;
  for (; begin != end; ++begin) {
    const auto* event = TryCast<vxEvent>(*begin);
    if (event == nullptr || (previous != nullptr && event->time() < previous->time())) break;
    previous = event;
  }
  return begin;
}

std::int32_t ScanForLaterThan(const ItemSnapshot& items, std::int32_t time) {
  std::int32_t position = 0;
  while (position < items.size() && Cast<vxEvent>(items[position]).time() <= time) ++position;
  return position;
}

// Two sorted runs, a recording and a take, are merged; the general case is a file that was edited by hand.
void SortByTime(std::vector<Object*>& events) {
  Object** const begin = events.data();
  Object** const end = begin + events.size();
  Object** const middle = begin + (EndOfRun(begin, end) - begin);
  const auto earlier = [](Object* a, Object* b) { return TimeOf(a) < TimeOf(b); };
  if (EndOfRun(middle, end) == end) {
    std::inplace_merge(begin, middle, end, earlier);
  } else {
    std::stable_sort(begin, end, earlier);
  }
}

}  // namespace

bool EventOrder::StillKnown(const clsObjectList& list) const noexcept {
  return known_ != Known::Nothing && listChanges_ == list.Changes() && timeChanges_ == vxEvent::TimeChanges();
}

void EventOrder::Know(const clsObjectList& list, Known what) noexcept {
  listChanges_ = list.Changes();
  timeChanges_ = vxEvent::TimeChanges();
  known_ = what;
}

bool EventOrder::IsSorted(const clsObjectList& list) {
  if (!StillKnown(list)) {
    const ItemSnapshot items = list.Snapshot();
    Know(list, EndOfRun(items.begin(), items.end()) == items.end() ? Known::Sorted : Known::Unsorted);
  }
  return known_ == Known::Sorted;
}

std::int32_t EventOrder::FirstLaterThan(const clsObjectList& list, std::int32_t time) {
  return IsSorted(list) ? PlaceFor(list, time) : ScanForLaterThan(list.Snapshot(), time);
}

std::int32_t EventOrder::PlaceFor(const clsObjectList& list, std::int32_t time) {
  const ItemSnapshot items = list.Snapshot();
  const auto later = [](std::int32_t value, Object* event) { return value < TimeOf(event); };
  return static_cast<std::int32_t>(std::upper_bound(items.begin(), items.end(), time, later) - items.begin());
}

void EventOrder::Sort(clsObjectList& list) {
  if (list.Size() < 2 || IsSorted(list)) return;
  std::vector<Object*> events;
  {
    const ItemSnapshot items = list.Snapshot();
    events.assign(items.begin(), items.end());
  }
  for (Object* item : events) Cast<vxEvent>(item);
  SortByTime(events);
  list.Rearrange(events);
  Know(list, Known::Sorted);
}

}  // namespace vestrel
