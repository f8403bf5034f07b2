// Lamp changes, by old and new state (equal states send nothing):
//
//   old \ new   off                   on                    blinking
//   off                               setLED on             blink bit, timer, setLED phase
//   on          setLED off                                  blink bit, timer, setLED phase
//   blinking    bit off, timer, off   bit off, timer, on
#include "leds/LEDManager.h"

#include "core/Error.h"

namespace vestrel {
namespace {

constexpr std::uint16_t kAllLamps = 0xFFFF;

}  // namespace

void LEDManager::Init(ILEDSetter* setter) {
  lamps_.ResetBlinking();
  // Last: the end of the one before may call back.
  setter_ = setter;
}

void LEDManager::clearAll() {
  const Ref<LEDManager> self(this);
  Setter()->EndLEDTimer();
  lamps_.SetPhase(false);
  DarkenRow(LEDGroup_GoButtons);
  lamps_.Darken(LEDGroup_TopButtons_Row2);
  DarkenRow(LEDGroup_TopButtons_Row1);
  // Once more: the host may have reported a lamp of this row from within the row before.
  DarkenRow(LEDGroup_TopButtons_Row2);
}

void LEDManager::setButtonsInGroups1To8(std::int32_t groupIndex, bool hasAssigned, bool hasPlaying) {
  if (groupIndex < 1 || groupIndex > 8) return;
  Report(GoLamp(groupIndex), LampStateFor(hasAssigned, hasPlaying));
}

void LEDManager::setButtonInTop32(std::int32_t controlIndex, bool assigned, bool playing) {
  if (controlIndex < 1 || controlIndex > 32) RaiseError(Error_SubscriptOutOfRange);
  Report(TopLamp(controlIndex), LampStateFor(assigned, playing));
}

void LEDManager::TimerTick() {
  const Ref<LEDManager> self(this);
  lamps_.SetPhase(!lamps_.phase());
  for (std::int32_t row = 0; row < LampStates::kRows; ++row) {
    const auto rowGroup = static_cast<LEDGroupEnum>(row);
    const std::uint16_t mask = lamps_.blinkMask(rowGroup);
    if (mask != 0) Send(rowGroup, mask, lamps_.phase());
  }
}

void LEDManager::Report(Lamp lamp, LEDStateEnum newState) {
  const LEDStateEnum oldState = lamps_.state(lamp);
  if (newState == oldState) return;
  const Ref<LEDManager> self(this);
  lamps_.SetState(lamp, newState);
  if (newState == LEDState_Blinking || oldState == LEDState_Blinking) {
    ChangeBlinking(lamp, newState == LEDState_Blinking);
  }
  // A host that reported this lamp from within the timer call has had the later state sent already.
  if (lamps_.state(lamp) == newState) Send(lamp.row, LampMask(lamp.bit), lamps_.IsLit(newState));
}

void LEDManager::ChangeBlinking(Lamp lamp, bool blinking) {
  lamps_.SetBlinking(lamp, blinking);
  if (lamps_.AnyBlinking()) {
    Setter()->StartLEDTimer();
  } else {
    Setter()->EndLEDTimer();
  }
}

void LEDManager::DarkenRow(LEDGroupEnum row) {
  lamps_.Darken(row);
  Send(row, kAllLamps, false);
}

void LEDManager::Send(LEDGroupEnum row, std::uint16_t mask, bool lit) const {
  Setter()->setLED(LampRowCode(row), static_cast<std::int16_t>(mask), lit);
}

// A copy, so that the output lives through its call even when the host hands in another one meanwhile.
Ref<ILEDSetter> LEDManager::Setter() const {
  if (!setter_) RaiseError(Error_ObjectNotSet);
  return setter_;
}

}  // namespace vestrel
