#include <ctime>

#include "platform/System.h"

namespace vestrel::platform {
namespace {

class PosixClock final : public Clock {
 public:
  std::uint32_t TickCount() override {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const auto milliseconds = std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
    return static_cast<std::uint32_t>(milliseconds);
  }

  std::u16string LocalDateTimeText() override {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[32];
    const std::size_t length = std::strftime(text, sizeof text, "%d/%m/%Y %H:%M:%S", &local);
    return {text, text + length};
  }
};

}  // namespace

Clock& SystemClock() {
  static PosixClock clock;
  return clock;
}

}  // namespace vestrel::platform
