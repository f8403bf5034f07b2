#include "model/clsFaderCatch.h"

#include <algorithm>

namespace vestrel {
namespace {

bool IsBetween(std::int32_t x, std::int32_t a, std::int32_t b) noexcept {
  return std::min(a, b) <= x && x <= std::max(a, b);
}

}  // namespace

void clsFaderCatch::Init() noexcept {
  value_ = 0;
  outerValue_ = 0;
  engaged_ = false;
}

void clsFaderCatch::PauseTracking() noexcept {
  engaged_ = false;
}

bool clsFaderCatch::ResumeTracking(std::int32_t outerValue) noexcept {
  outerValue_ = outerValue;
  return outerValue_ == value_;
}

Variant clsFaderCatch::SetOuterValue(std::int32_t value) noexcept {
  outerValue_ = value;
  engaged_ = value == value_;
  return {};
}

bool clsFaderCatch::SetValue(std::int32_t value, bool forceCatch) noexcept {
  const bool follows = forceCatch || engaged_;
  const bool crossed = !follows && IsBetween(value_, outerValue_, value);
  if (crossed) engaged_ = true;
  if (follows || crossed) value_ = value;
  outerValue_ = value;
  return follows || crossed;
}

}  // namespace vestrel
