// Keeps the lamps of the control surface in step with the buttons: remembers the state of every lamp, sends
// only changes, and blinks on the ticks of a timer that the host runs. Owned by the controller; holds the
// host's lamp output. Traps nothing: a failing output reaches the caller.
#pragma once

#include <array>
#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "controller/interfaces/ILEDSetter.h"
#include "core/Ref.h"

namespace vestrel {

class LEDManager : public Object {
 public:
  VESTREL_OBJECT(LEDManager)

  // Keeps `setter`; sends nothing.
  void Init(ILEDSetter* setter);
  // Ends the blink timer and darkens all three rows. The blink masks stay as they are.
  void clearAll();
  // The go button of group 1 to 8; other groups are ignored.
  void setButtonsInGroups1To8(std::int32_t groupIndex, bool hasAssigned, bool hasPlaying);
  // Top button 1 to 32; raises 9 for another one.
  void setButtonInTop32(std::int32_t controlIndex, bool assigned, bool playing);
  // One blink step.
  void TimerTick();

 private:
  Ref<ILEDSetter> setter_;
  std::array<LEDStateEnum, 8> groupStates_{};
  std::array<LEDStateEnum, 32> topStates_{};
  std::array<std::uint16_t, 3> blinkMasks_{};
  bool blinkPhase_ = false;
};

}  // namespace vestrel
