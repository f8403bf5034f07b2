// Memory that runs out at a chosen allocation. Only programs that link tests/faults/CountingNew.cpp count and
// fail; elsewhere these are numbers that nobody reads. Of one thread: the one that tests.
#pragma once

#include <cstddef>

namespace vestrel::test {

class Allocations {
 public:
  // From now on allocation number `at` (from 1) fails, with `always` all that follow as well. 0: none fails,
  // all are counted.
  static void Begin(int at, bool always) noexcept {
    counting_ = true;
    count_ = 0;
    at_ = at;
    always_ = always;
  }
  static void End() noexcept { counting_ = false; }

  // Since Begin.
  static int Count() noexcept { return count_; }
  // Blocks allocated and not freed, of the whole program.
  static long Live() noexcept { return live_; }
  static long LiveBytes() noexcept { return liveBytes_; }

  // For the allocating functions: whether this allocation fails.
  static bool Fails() noexcept {
    if (!counting_ || spared_ > 0) return false;
    ++count_;
    return at_ != 0 && (count_ == at_ || (always_ && count_ > at_));
  }
  static void Came(std::size_t bytes) noexcept {
    ++live_;
    liveBytes_ += static_cast<long>(bytes);
  }
  static void Went(std::size_t bytes) noexcept {
    --live_;
    liveBytes_ -= static_cast<long>(bytes);
  }

  // While one lives, allocations neither count nor fail: what stands in for the system or for a host is not
  // under test.
  class Spared {
   public:
    Spared() noexcept { ++spared_; }
    Spared(const Spared&) = delete;
    Spared& operator=(const Spared&) = delete;
    ~Spared() { --spared_; }
  };

 private:
  static inline bool counting_ = false;
  static inline bool always_ = false;
  static inline int count_ = 0;
  static inline int at_ = 0;
  static inline int spared_ = 0;
  static inline long live_ = 0;
  static inline long liveBytes_ = 0;
};

}  // namespace vestrel::test
