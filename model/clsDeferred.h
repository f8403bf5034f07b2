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

  // The page the button belongs to, and the button.
  Ref<clsPage> page;
  Ref<clsButton> button;
  // What the page file says; the fader value is 0 to 100.
  PlayStateEnum playState{};
  std::int32_t faderValue = 0;
};

}  // namespace vestrel
