// Time as the library sees it: the system's millisecond tick count and the local date and time as text.
#pragma once

#include <cstdint>
#include <string>

namespace vestrel::platform {

class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  // Milliseconds since the system started, modulo 2^32.
  virtual std::uint32_t TickCount() = 0;
  // The local date and time in the platform's general form, for example "15/11/2026 07:31:41".
  virtual std::u16string LocalDateTimeText() = 0;
};

}  // namespace vestrel::platform
