// What the lamps of the surface show, as a value: the last state reported for every lamp, the lamps of each
// row that blink, and the phase they are in. Pure: it sends nothing and knows no timer; LEDManager owns one
// and does both.
#pragma once

#include <array>
#include <cstdint>

#include "controller/interfaces/Enumerations.h"

namespace vestrel {

// One lamp: its row and its bit in the row's mask, 0 to 15.
struct Lamp {
  LEDGroupEnum row = LEDGroup_GoButtons;
  std::int32_t bit = 0;
};

// The go button of group 1 to 8, top button 1 to 32. The numbers are not checked.
Lamp GoLamp(std::int32_t groupIndex) noexcept;
Lamp TopLamp(std::int32_t controlIndex) noexcept;

// The code byte of a row: 245, 246, 247. Raises 6 for a row whose code does not fit a byte.
std::uint8_t LampRowCode(std::int32_t row);
// The mask of one lamp: bit 15 for every number of 15 or more.
std::uint16_t LampMask(std::int32_t bit) noexcept;
// Playing lamps blink, whatever else; assigned ones are on.
LEDStateEnum LampStateFor(bool assigned, bool playing) noexcept;

class LampStates {
 public:
  static constexpr std::int32_t kRows = 3;

  LEDStateEnum state(Lamp lamp) const noexcept { return states_[Row(lamp.row)][Bit(lamp)]; }
  // Stores the state alone; the blink bits follow by SetBlinking.
  void SetState(Lamp lamp, LEDStateEnum state) noexcept { states_[Row(lamp.row)][Bit(lamp)] = state; }
  // Every lamp of the row is off; its blink mask stays.
  void Darken(LEDGroupEnum row) noexcept { states_[Row(row)].fill(LEDState_Off); }

  void SetBlinking(Lamp lamp, bool blinking) noexcept;
  std::uint16_t blinkMask(LEDGroupEnum row) const noexcept { return blinkMasks_[Row(row)]; }
  bool AnyBlinking() const noexcept;
  // No lamp blinks and the phase is dark; the stored states stay.
  void ResetBlinking() noexcept;

  bool phase() const noexcept { return phase_; }
  void SetPhase(bool phase) noexcept { phase_ = phase; }
  // Whether a lamp in this state is lit now.
  bool IsLit(LEDStateEnum state) const noexcept;

 private:
  static std::size_t Row(LEDGroupEnum row) noexcept { return static_cast<std::size_t>(row); }
  static std::size_t Bit(Lamp lamp) noexcept { return static_cast<std::size_t>(lamp.bit); }

  std::array<std::array<LEDStateEnum, 16>, kRows> states_{};
  std::array<std::uint16_t, kRows> blinkMasks_{};
  bool phase_ = false;
};

}  // namespace vestrel
