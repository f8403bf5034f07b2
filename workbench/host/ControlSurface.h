// The control surface: 8 go lamps, two rows of 16 top lamps, and 8 group and 8 bump faders without motors,
// which stand where the operator's hand left them. Owned by the simulated host and held by the library's lamp
// manager; starts and stops the host's blink timer.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "controller/interfaces/ILEDSetter.h"
#include "controller/interfaces/TUIFaderValues.h"

namespace vestrel::workbench {

class SimulatedHost;

class ControlSurface : public virtual ILEDSetter {
 public:
  VESTREL_OBJECT(ControlSurface, ILEDSetter)

  static constexpr std::uint8_t kFirstRowCode = 245;
  static constexpr std::size_t kRows = 3;

  // `host` outlives every call that the library makes.
  explicit ControlSurface(SimulatedHost& host) noexcept : host_(host) {}

  void setLED(std::uint8_t ledGroupCode, std::int16_t bits, bool state) override;
  void StartLEDTimer() override;
  void EndLEDTimer() override;

  // The lit lamps of row 0 to 2 (go buttons, top buttons 1 to 16 and 17 to 32), lamp 1 in bit 0.
  std::uint16_t LitLamps(std::size_t row) const { return lit_.at(row); }
  // A mask as lamps, lamp 1 first, "#" for a bit that is set and "." for one that is not: 8 for the go
  // buttons' row, 16 for the others.
  static std::string LampText(std::uint8_t ledGroupCode, std::uint16_t bits);

  // Where the faders stand, 0 to 100; a hand may put them anywhere.
  const TUIFaderValues& positions() const noexcept { return positions_; }
  TUIFaderValues& positions() noexcept { return positions_; }

 private:
  SimulatedHost& host_;
  std::array<std::uint16_t, kRows> lit_{};
  TUIFaderValues positions_;
};

}  // namespace vestrel::workbench
