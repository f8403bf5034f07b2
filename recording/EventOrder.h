// The order of a list of events by time, and what is known of it. A list that was found sorted is known to
// stay so until the list or the time of any event changes, so that a seek need not look through it again.
// Belongs to one event list; the object list may be changed by anyone between two calls.
#pragma once

#include <cstdint>

#include "core/clsObjectList.h"
#include "recording/vxEvent.h"

namespace vestrel {

class EventOrder {
 public:
  // Whether the list holds events alone and their times never fall. Looks through the list only when it is
  // not known.
  bool IsSorted(const clsObjectList& list);
  // The position of the first event later than `time`, or the list's size: what looking through it from the
  // start finds, also where it is not sorted. Raises 13 or 91 for an item on the way that is no event.
  std::int32_t FirstLaterThan(const clsObjectList& list, std::int32_t time);
  // The position after all events not later than `time`, in a list of events that is sorted.
  static std::int32_t PlaceFor(const clsObjectList& list, std::int32_t time);
  // Brings the list into order; events of equal time keep theirs. A list of two sorted runs is merged.
  // Raises 13 or 91, with the list as it was, when one of two or more items is no event.
  void Sort(clsObjectList& list);
  // Another list took the place of the one that is known.
  void Forget() noexcept { known_ = Known::Nothing; }

 private:
  enum class Known : std::uint8_t { Nothing, Sorted, Unsorted };

  bool StillKnown(const clsObjectList& list) const noexcept;
  void Know(const clsObjectList& list, Known what) noexcept;

  std::uint64_t listChanges_ = 0;
  std::uint64_t timeChanges_ = 0;
  Known known_ = Known::Nothing;
};

}  // namespace vestrel
