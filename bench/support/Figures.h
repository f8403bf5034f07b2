// Figures as the tables show them: three digits that count, times in the unit that suits them.
#pragma once

#include <cstdio>
#include <string>

namespace vestrel::bench {

inline std::string Number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.3g", value);
  return text;
}

inline std::string Time(double nanoseconds) {
  if (nanoseconds < 999.5) return Number(nanoseconds) + " ns";
  if (nanoseconds < 999.5e3) return Number(nanoseconds / 1e3) + " us";
  return Number(nanoseconds / 1e6) + " ms";
}

}  // namespace vestrel::bench
