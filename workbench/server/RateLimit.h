// How fast somebody may talk: so many at once and so many a second after that. Told the time by its user.
#pragma once

#include <algorithm>
#include <chrono>

namespace vestrel::workbench {

class RateLimit {
 public:
  using Time = std::chrono::steady_clock::time_point;

  RateLimit(double perSecond, double atOnce, Time now)
      : perSecond_(perSecond), atOnce_(atOnce), left_(atOnce), at_(now) {}

  // Takes one; answers how long to wait before the next.
  std::chrono::milliseconds Take(Time now) {
    const std::chrono::duration<double> passed = now - at_;
    at_ = now;
    left_ = std::min(atOnce_, left_ + passed.count() * perSecond_) - 1;
    if (left_ >= 1) return std::chrono::milliseconds(0);
    return std::chrono::milliseconds(static_cast<long>((1 - left_) / perSecond_ * 1000) + 1);
  }

 private:
  double perSecond_;
  double atOnce_;
  double left_;
  Time at_;
};

}  // namespace vestrel::workbench
