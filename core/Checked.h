// 32-bit arithmetic on indices and times that raises 6 (overflow) or 11 (division by zero) where the plain
// operators would be undefined.
#pragma once

#include <cstdint>
#include <limits>

#include "core/Error.h"

namespace vestrel {

inline std::int32_t NarrowChecked(std::int64_t value) {
  if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
    RaiseError(Error_Overflow);
  }
  return static_cast<std::int32_t>(value);
}

inline std::int32_t AddChecked(std::int32_t a, std::int32_t b) {
  return NarrowChecked(std::int64_t{a} + b);
}

inline std::int32_t SubtractChecked(std::int32_t a, std::int32_t b) {
  return NarrowChecked(std::int64_t{a} - b);
}

inline std::int32_t MultiplyChecked(std::int32_t a, std::int32_t b) {
  return NarrowChecked(std::int64_t{a} * b);
}

// Truncates toward zero.
inline std::int32_t DivideChecked(std::int32_t a, std::int32_t b) {
  if (b == 0) RaiseError(Error_DivisionByZero);
  return NarrowChecked(std::int64_t{a} / b);
}

// The remainder has the sign of `a`.
inline std::int32_t RemainderChecked(std::int32_t a, std::int32_t b) {
  if (b == 0) RaiseError(Error_DivisionByZero);
  return static_cast<std::int32_t>(std::int64_t{a} % b);
}

}  // namespace vestrel
