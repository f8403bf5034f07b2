// A process is killed while it saves, and the next one runs out of memory: nothing is torn or lost, nothing
// leaks, and the one after that works as if nothing had been.
#include <gtest/gtest.h>

#include <new>
#include <random>

#include "core/Object.h"
#include "tests/faults/Recovery.h"
#include "tests/support/Allocations.h"

namespace vestrel::test {
namespace {

std::string FaultsAfter(const KilledEvening& evening, int at, bool always) {
  const long objects = Object::LiveCount();
  Recovery recovery(*evening.left);
  Allocations::Begin(at, always);
  try {
    recovery.Run(evening.firstStep);
  } catch (const std::bad_alloc&) {
    // Not even the start of a process.
  }
  Allocations::End();
  std::string faults = evening.FaultsOf(recovery);
  return faults.empty() && Object::LiveCount() != objects ? "an object stays" : faults;
}

int AllocationsOf(const KilledEvening& evening) {
  Recovery recovery(*evening.left);
  Allocations::Begin(0, false);
  recovery.Run(evening.firstStep);
  Allocations::End();
  return Allocations::Count();
}

TEST(CompoundAllocationTest, MemoryThatRunsOutAfterACrashLosesNothing) {
  const int rounds = Times("VESTREL_ROUNDS", RunsLong() ? 10'000 : 60);
  std::mt19937 random(12);
  for (int round = 0; round < rounds && !testing::Test::HasFailure();) {
    const KilledEvening evening(random);
    const int allocations = AllocationsOf(evening);
    for (int i = 0; i < 10; ++i) {
      ++round;
      const int at = std::uniform_int_distribution<int>(1, allocations)(random);
      EXPECT_EQ(FaultsAfter(evening, at, i % 2 == 1), "")
          << "allocation " << at << " of " << allocations << (i % 2 == 1 ? " and all that follow" : "")
          << ", round " << round;
    }
  }
}

}  // namespace
}  // namespace vestrel::test
