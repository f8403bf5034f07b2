// A wrapper's reference for the length of a call.
#pragma once

#include "component/com/Wrapper.h"

namespace vestrel::component {

// A callback may let go of the host's last reference, and the module must not be thought idle while the call
// runs.
class KeptWrapper {
 public:
  explicit KeptWrapper(Wrapper& wrapper) noexcept : wrapper_(wrapper) { wrapper_.AddRef(); }
  KeptWrapper(const KeptWrapper&) = delete;
  KeptWrapper& operator=(const KeptWrapper&) = delete;
  ~KeptWrapper() { wrapper_.Release(); }

 private:
  Wrapper& wrapper_;
};

}  // namespace vestrel::component
