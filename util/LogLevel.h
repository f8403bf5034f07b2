// The levels of the log, most important first. Their numbers are part of the host interface.
#pragma once

#include <cstdint>

namespace vestrel {

enum LogLevel_Enum : std::int32_t {
  LogLevel_0_SYSTEM = 0,
  LogLevel_1_SEVERE = 1,
  LogLevel_2_WARNING = 2,
  LogLevel_3_INFO = 3,
  LogLevel_4_SPEW = 4,
};

}  // namespace vestrel
