// What a page and its groups need of the controller that owns them: the button and list handlers and the two
// fader operations below. The controller implements it; the model never sees more of the controller.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "controller/interfaces/IButtonEventHandler.h"
#include "controller/interfaces/TUIFaderValues.h"
#include "core/IObjListEventHandler.h"

namespace vestrel {

class IPageController : public virtual IButtonEventHandler, public virtual IObjListEventHandler {
 public:
  VESTREL_OBJECT(IPageController, IButtonEventHandler, IObjListEventHandler)

  // Whether pages made from now on read and write their files.
  virtual bool persist() const { return true; }
  // Fills `values` with the host's current fader positions, 0 to 100.
  virtual void GetUIFaderValues(TUIFaderValues& /*values*/) {}
  // Reports the model value (0 to 100) of fader `index` (1 to 8); `button` is the button of a bump fader,
  // none for a group fader. caught says whether the physical fader stands on that value.
  virtual void UpdateFaderModelValue(IFSSFaderTypeEnum /*faderType*/, std::int32_t /*index*/,
                                     std::int32_t /*value*/, bool /*caught*/,
                                     clsButton* /*button*/ = nullptr) {}
};

}  // namespace vestrel
