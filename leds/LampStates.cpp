#include "leds/LampStates.h"

#include <algorithm>

#include "core/Error.h"

namespace vestrel {
namespace {

constexpr std::int32_t kFirstRowCode = 245;
constexpr std::int32_t kLampsInTopRow = 16;

}  // namespace

Lamp GoLamp(std::int32_t groupIndex) noexcept {
  return {LEDGroup_GoButtons, groupIndex - 1};
}

Lamp TopLamp(std::int32_t controlIndex) noexcept {
  if (controlIndex > kLampsInTopRow) return {LEDGroup_TopButtons_Row2, controlIndex - kLampsInTopRow - 1};
  return {LEDGroup_TopButtons_Row1, controlIndex - 1};
}

std::uint8_t LampRowCode(std::int32_t row) {
  if (row < 0 || row > 255 - kFirstRowCode) RaiseError(Error_Overflow);
  return static_cast<std::uint8_t>(kFirstRowCode + row);
}

std::uint16_t LampMask(std::int32_t bit) noexcept {
  return static_cast<std::uint16_t>(1U << static_cast<unsigned>(std::min(bit, 15)));
}

LEDStateEnum LampStateFor(bool assigned, bool playing) noexcept {
  if (playing) return LEDState_Blinking;
  return assigned ? LEDState_On : LEDState_Off;
}

void LampStates::SetBlinking(Lamp lamp, bool blinking) noexcept {
  const unsigned mask = LampMask(lamp.bit);
  const unsigned others = blinkMasks_[Row(lamp.row)] & ~mask;
  blinkMasks_[Row(lamp.row)] = static_cast<std::uint16_t>(blinking ? others | mask : others);
}

bool LampStates::AnyBlinking() const noexcept {
  return std::any_of(blinkMasks_.begin(), blinkMasks_.end(), [](std::uint16_t mask) { return mask != 0; });
}

void LampStates::ResetBlinking() noexcept {
  blinkMasks_.fill(0);
  phase_ = false;
}

bool LampStates::IsLit(LEDStateEnum state) const noexcept {
  return state == LEDState_Blinking ? phase_ : state == LEDState_On;
}

}  // namespace vestrel
