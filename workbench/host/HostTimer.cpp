#include "workbench/host/HostTimer.h"

namespace vestrel::workbench {

void HostTimer::Start(std::uint64_t now) noexcept {
  if (running_) return;
  running_ = true;
  due_ = now + interval_;
}

void HostTimer::Ticked(std::uint64_t now) noexcept {
  Ticked();
  if (due_ <= now) due_ = now + interval_;
}

}  // namespace vestrel::workbench
