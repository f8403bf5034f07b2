// Told by an event list of each event it fires. Implemented by the record controller. What it raises reaches
// whoever moved the list's time on.
#pragma once

#include <cstdint>

#include "core/Object.h"

namespace vestrel {

class vxEvent;

class IVXEventListHandler : public virtual Object {
 public:
  VESTREL_OBJECT(IVXEventListHandler)

  // The time of `ev` was reached. eventIndex is its 0-based position in the recording.
  virtual void EventFired(vxEvent* /*ev*/, std::int32_t /*eventIndex*/) {}
};

}  // namespace vestrel
