// Pick-up of a fader that has no motor: keeps the stored (model) value apart from the last known position of
// the physical fader, which takes control only once it is moved onto or through the stored value. Owned by a
// button or a group. Puts no range on values; its users hold them to 0 to 100.
#pragma once

#include <cstdint>

#include "core/Object.h"
#include "core/Variant.h"

namespace vestrel {

class clsFaderCatch : public Object {
 public:
  VESTREL_OBJECT(clsFaderCatch)

  // The model value.
  std::int32_t value() const noexcept { return value_; }
  // Whether the physical fader controls the value now.
  bool Engaged() const noexcept { return engaged_; }

  // Value 0, outer value 0, not engaged.
  void Init() noexcept;
  // Disengages and nothing else.
  void PauseTracking() noexcept;
  // Notes where the physical fader stands; answers whether that is the model value. Does not engage.
  bool ResumeTracking(std::int32_t outerValue) noexcept;
  // Notes where the physical fader stands; engaged from now on exactly when that is the model value. The
  // result is always empty.
  Variant SetOuterValue(std::int32_t value) noexcept;
  // The physical fader moved to `value`; answers whether the model value follows. With forceCatch it does in
  // any case, without engaging.
  bool SetValue(std::int32_t value, bool forceCatch = false) noexcept;

 private:
  bool engaged_ = false;
  std::int32_t value_ = 0;
  std::int32_t outerValue_ = 0;
};

}  // namespace vestrel
