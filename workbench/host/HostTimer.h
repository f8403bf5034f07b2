// One periodic timer of the host, as a value: it knows when it is due, and its owner, who has the clock, asks
// it. It calls nobody. Times are milliseconds that never wrap.
#pragma once

#include <cstdint>

namespace vestrel::workbench {

class HostTimer {
 public:
  explicit HostTimer(std::uint64_t interval) noexcept : interval_(interval) {}

  // Starts it at `now`; a timer that runs goes on as it was.
  void Start(std::uint64_t now) noexcept;
  void Stop() noexcept { running_ = false; }
  bool running() const noexcept { return running_; }
  // At least 1; counts from the tick that is due now on.
  void SetInterval(std::uint64_t interval) noexcept { interval_ = interval; }
  std::uint64_t interval() const noexcept { return interval_; }

  // When it ticks next. Requires that it runs.
  std::uint64_t due() const noexcept { return due_; }
  bool IsDue(std::uint64_t now) const noexcept { return running_ && due_ <= now; }
  // Notes that the tick that was due was made.
  void Ticked() noexcept { due_ += interval_; }
  // The same where time does not wait: ticks that were missed by `now` are not made up for.
  void Ticked(std::uint64_t now) noexcept;

 private:
  std::uint64_t interval_;
  std::uint64_t due_ = 0;
  bool running_ = false;
};

}  // namespace vestrel::workbench
