// A clock that stands still until it is told to go on, so that a run prints the same every time. It starts on
// an evening in November, 600,000 ms after its system's start.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Clock.h"

namespace vestrel::workbench {

class SimulatedClock : public platform::Clock {
 public:
  std::uint32_t TickCount() override { return static_cast<std::uint32_t>(now_); }
  // "15/11/2026 19:30:00" at the start.
  std::u16string LocalDateTimeText() override;

  // Milliseconds since the system's start.
  std::uint64_t Now() const noexcept { return now_; }
  // Never backwards.
  void GoOnTo(std::uint64_t now) noexcept { now_ = now; }

 private:
  static constexpr std::uint64_t kStart = 600'000;

  std::uint64_t now_ = kStart;
};

}  // namespace vestrel::workbench
