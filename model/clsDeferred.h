// The play state and fader value that a button loaded from its page file has not applied. Kept in the
// controller's list of deferred states.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "model/clsButton.h"
#include "model/clsPage.h"

namespace vestrel {

class clsDeferred : public Object {
 public:
  VESTREL_OBJECT(clsDeferred)

  Ref<clsPage> page;
  Ref<clsButton> button;
  PlayStateEnum playState{};
  std::int32_t faderValue = 0;
};

}  // namespace vestrel
