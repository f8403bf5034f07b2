// Keeps the lamps of the control surface in step with the buttons: remembers the state of every lamp, sends
// only changes, and blinks on the ticks of a timer that the host runs. Owned by the controller; holds the
// host's lamp output. Draws no conclusions from buttons or groups; the controller reports what they are.
//
// Traps nothing: a failure of the host's output reaches the caller, after the state was stored. The host may
// call back into the manager from any of its callbacks; a lamp ends up showing what was reported last. All
// operations but Init raise 91 when they have something to send and there is no output.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "controller/interfaces/ILEDSetter.h"
#include "core/Ref.h"
#include "leds/LampStates.h"

namespace vestrel {

class LEDManager : public Object {
 public:
  VESTREL_OBJECT(LEDManager)

  // Keeps `setter` alive and forgets which lamps blink; the stored lamp states stay. Sends nothing.
  void Init(ILEDSetter* setter);
  // Calls EndLEDTimer and darkens the three rows: setLED(245, -1, false), then 246 and 247. The blink masks
  // stay as they are, so lamps that blinked start again with the timer.
  void clearAll();
  // The go button of group 1 to 8; other groups are ignored. Blinking when hasPlaying, else on when
  // hasAssigned, else off. When the state is another than before: if the lamp starts or stops blinking,
  // EndLEDTimer when none blinks any more and otherwise StartLEDTimer, also while the timer runs; then setLED
  // with this one lamp.
  void setButtonsInGroups1To8(std::int32_t groupIndex, bool hasAssigned, bool hasPlaying);
  // The same for top button 1 to 32; raises 9 for another one.
  void setButtonInTop32(std::int32_t controlIndex, bool assigned, bool playing);
  // One blink step: flips the phase and calls setLED with the blink mask of each row that has one, in row
  // order.
  void TimerTick();

 private:
  void Report(Lamp lamp, LEDStateEnum newState);
  void ChangeBlinking(Lamp lamp, bool blinking);
  void DarkenRow(LEDGroupEnum row);
  void Send(LEDGroupEnum row, std::uint16_t mask, bool lit) const;
  Ref<ILEDSetter> Setter() const;

  Ref<ILEDSetter> setter_;
  LampStates lamps_;
};

}  // namespace vestrel
