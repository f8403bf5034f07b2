#include "workbench/host/ControlSurface.h"

#include "workbench/host/SimulatedHost.h"

namespace vestrel::workbench {

void ControlSurface::setLED(std::uint8_t ledGroupCode, std::int16_t bits, bool state) {
  const auto mask = static_cast<std::uint16_t>(bits);
  const std::size_t row = std::size_t{ledGroupCode} - kFirstRowCode;
  if (row < kRows) lit_.at(row) = static_cast<std::uint16_t>(state ? lit_[row] | mask : lit_[row] & ~mask);
  host_.calls().CallbackWithNote("setLED", state ? " on" : " off", std::int32_t{ledGroupCode},
                                 PlainText{LampText(ledGroupCode, mask)});
}

void ControlSurface::StartLEDTimer() {
  host_.calls().Callback("StartLEDTimer");
  host_.StartBlinking();
}

void ControlSurface::EndLEDTimer() {
  host_.calls().Callback("EndLEDTimer");
  host_.StopBlinking();
}

std::string ControlSurface::LampText(std::uint8_t ledGroupCode, std::uint16_t bits) {
  std::string text(ledGroupCode == kFirstRowCode ? 8 : 16, '.');
  for (std::size_t lamp = 0; lamp < text.size(); ++lamp) {
    if ((std::uint32_t{bits} >> lamp & 1U) != 0) text[lamp] = '#';
  }
  return text;
}

}  // namespace vestrel::workbench
