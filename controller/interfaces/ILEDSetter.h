// The lamp output of the control surface. Implemented by the host, called only by LEDManager, on the
// user-interface thread. What it raises reaches whoever changed the lamps.
#pragma once

#include <cstdint>

#include "core/Object.h"

namespace vestrel {

class ILEDSetter : public virtual Object {
 public:
  VESTREL_OBJECT(ILEDSetter)

  // Light (state true) or darken every lamp of row `ledGroupCode` (245 plus the LEDGroupEnum value: 245 go
  // buttons, 246 top buttons 1 to 16, 247 top buttons 17 to 32) whose bit is set in `bits`, bit 0 the first
  // lamp; the others stay as they are.
  virtual void setLED(std::uint8_t /*ledGroupCode*/, std::int16_t /*bits*/, bool /*state*/) {}
  // Start the timer whose ticks call LEDManager::TimerTick, at a blink period of the host's choice. Called
  // for a running timer too, which goes on.
  virtual void StartLEDTimer() {}
  // Stop it. Called for a stopped timer too.
  virtual void EndLEDTimer() {}
};

}  // namespace vestrel
