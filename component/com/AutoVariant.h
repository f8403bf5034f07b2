// A VARIANT that clears itself.
#pragma once

#include "component/com/Windows.h"

namespace vestrel::component {

// As the system's functions, which cost more than most calls have to spend on a number.
inline void MakeEmpty(VARIANT& value) noexcept {
  V_VT(&value) = VT_EMPTY;
}
inline void Clear(VARIANT& value) noexcept {
  switch (V_VT(&value)) {
    case VT_EMPTY:
    case VT_I2:
    case VT_I4:
    case VT_R8:
    case VT_BOOL:
      return MakeEmpty(value);
    default:
      VariantClear(&value);
  }
}

class AutoVariant : public VARIANT {
 public:
  AutoVariant() noexcept { MakeEmpty(*this); }
  AutoVariant(const AutoVariant&) = delete;
  AutoVariant& operator=(const AutoVariant&) = delete;
  ~AutoVariant() { Clear(*this); }

  // Gives the value up.
  void MoveTo(VARIANT& target) noexcept {
    target = *this;
    MakeEmpty(*this);
  }
};

}  // namespace vestrel::component
