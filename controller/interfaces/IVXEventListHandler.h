// Told by an event list of each event it fires. Implemented by the record controller.
#pragma once

#include <cstdint>

#include "core/Object.h"

namespace vestrel {

class vxEvent;

class IVXEventListHandler : public virtual Object {
 public:
  VESTREL_OBJECT(IVXEventListHandler)

  // eventIndex is the event's 0-based position in the recording.
  virtual void EventFired(vxEvent* /*ev*/, std::int32_t /*eventIndex*/) {}
};

}  // namespace vestrel
