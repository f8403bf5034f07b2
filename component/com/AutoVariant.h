// A VARIANT that clears itself.
#pragma once

#include "component/com/Windows.h"

namespace vestrel::component {

class AutoVariant : public VARIANT {
 public:
  AutoVariant() noexcept { VariantInit(this); }
  AutoVariant(const AutoVariant&) = delete;
  AutoVariant& operator=(const AutoVariant&) = delete;
  ~AutoVariant() { VariantClear(this); }

  // Gives the value up.
  void MoveTo(VARIANT& target) noexcept {
    target = *this;
    VariantInit(this);
  }
};

}  // namespace vestrel::component
