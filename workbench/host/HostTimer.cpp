#include "workbench/host/HostTimer.h"

namespace vestrel::workbench {

void HostTimer::Start(std::uint64_t now) noexcept {
  if (running_) return;
  running_ = true;
  due_ = now + interval_;
}

}  // namespace vestrel::workbench
