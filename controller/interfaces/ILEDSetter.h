// The lamp output of the control surface. Implemented by the host, called only by LEDManager.
#pragma once

#include <cstdint>

#include "core/Object.h"

namespace vestrel {

class ILEDSetter : public virtual Object {
 public:
  VESTREL_OBJECT(ILEDSetter)

  // Lights (state true) or darkens every lamp of row `ledGroupCode` (245 go buttons, 246 and 247 top buttons)
  // whose bit is set in `bits`; the others stay as they are.
  virtual void setLED(std::uint8_t /*ledGroupCode*/, std::int16_t /*bits*/, bool /*state*/) {}
  // Start the timer whose ticks call LEDManager::TimerTick; starting a running timer is harmless.
  virtual void StartLEDTimer() {}
  virtual void EndLEDTimer() {}
};

}  // namespace vestrel
