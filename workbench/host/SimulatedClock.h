// A clock that stands still until it is told to go on, so that a run prints the same every time. Unless told
// otherwise it starts on an evening in November, 600,000 ms after its system's start.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "platform/Clock.h"

namespace vestrel::workbench {

// When a clock starts: milliseconds since the system's start, and the date and time of the place.
struct ClockStart {
  static constexpr std::chrono::sys_seconds kEvening =
      std::chrono::sys_days{std::chrono::year{2026} / std::chrono::November / 15} + std::chrono::hours{19} +
      std::chrono::minutes{30};

  std::uint64_t ticks = 600'000;
  std::chrono::sys_seconds local = kEvening;
};

class SimulatedClock : public platform::Clock {
 public:
  explicit SimulatedClock(const ClockStart& start = {}) noexcept : start_(start), now_(start.ticks) {}

  std::uint32_t TickCount() override { return static_cast<std::uint32_t>(now_); }
  // "15/11/2026 19:30:00" at the start.
  std::u16string LocalDateTimeText() override;

  // Milliseconds since the system's start.
  std::uint64_t Now() const noexcept { return now_; }
  // Never backwards.
  void GoOnTo(std::uint64_t now) noexcept { now_ = now; }

 private:
  ClockStart start_;
  std::uint64_t now_;
};

}  // namespace vestrel::workbench
