// Told by a button of every change that matters outside it. Implemented by the controller; a host that uses
// buttons on their own may implement it. A failure travels back to whoever changed the button.
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
  virtual void LockStateChanged(clsButton* /*button*/) {}
  virtual void FaderModeChanged(clsButton* /*button*/) {}
  // The value of a bump button's fader changed; updateUI asks for the fader on screen to follow.
  virtual void FaderValueChanged(clsButton* /*button*/, bool /*updateUI*/) {}
  // A button read from its page file hands over the play state and fader value (0 to 100) saved there.
  virtual void DeferPlaystateFor(clsPage* /*page*/, clsButton* /*button*/, PlayStateEnum /*playState*/,
                                 std::int32_t /*faderValue*/) {}
};

}  // namespace vestrel
