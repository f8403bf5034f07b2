// Told by the controller, as the last step, of every change of a play state, whatever its source. Implemented
// by the record controller, which decides whether to record it. What it raises is logged by the controller.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "core/Object.h"

namespace vestrel {

class clsButton;

class IRecordController : public virtual Object {
 public:
  VESTREL_OBJECT(IRecordController)

  // The button has its new play state already. mouseButton, shift, x and y are those of the click that caused
  // it, as the host reported them.
  virtual void ButtonPlaystateChanged(clsButton* /*button*/, PSEventSourceEnum /*eventSource*/,
                                      std::int16_t /*mouseButton*/, std::int16_t /*shift*/, float /*x*/,
                                      float /*y*/) {}
};

}  // namespace vestrel
