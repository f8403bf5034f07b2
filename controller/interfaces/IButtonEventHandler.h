// Told by a button of every change that matters outside it, once the change is complete. Implemented by the
// controller; a host that uses buttons on their own may implement it. Calls are synchronous and may call back
// into the button. A failure travels back to whoever changed the button.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "core/Object.h"

namespace vestrel {

class clsButton;
class clsPage;

class IButtonEventHandler : public virtual Object {
 public:
  VESTREL_OBJECT(IButtonEventHandler)

  // The play state was set to another value. mouseButton, shift, x and y are those of the click that caused
  // it, as the host reported them. suppressSave asks not to save the button.
  virtual void PlayStateChanged(clsButton* /*button*/, PSEventSourceEnum /*eventSource*/,
                                std::int16_t /*mouseButton*/, std::int16_t /*shift*/, float /*x*/,
                                float /*y*/, bool /*suppressSave*/ = false) {}
  // Locked was set to another value.
  virtual void LockStateChanged(clsButton* /*button*/) {}
  // FaderMode was set to another value.
  virtual void FaderModeChanged(clsButton* /*button*/) {}
  // The fader of a button in bump mode took a value, another one or, with updateUI, perhaps the same;
  // updateUI asks for the fader on screen to follow.
  virtual void FaderValueChanged(clsButton* /*button*/, bool /*updateUI*/) {}
  // A button read from its page file hands over the play state and fader value (0 to 100) saved there, which
  // it does not apply. `page` is the button's page, none when it is gone.
  virtual void DeferPlaystateFor(clsPage* /*page*/, clsButton* /*button*/, PlayStateEnum /*playState*/,
                                 std::int32_t /*faderValue*/) {}
};

}  // namespace vestrel
