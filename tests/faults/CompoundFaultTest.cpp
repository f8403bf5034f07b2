// A process is killed while it saves, and a file call of the next one fails: nothing is torn or lost, and the
// one after that works as if nothing had been.
#include <gtest/gtest.h>

#include <iterator>
#include <random>

#include "tests/faults/Recovery.h"

namespace vestrel::test {
namespace {

TEST(CompoundFaultTest, AFileCallThatFailsAfterACrashLosesNothing) {
  const int rounds = Times("VESTREL_ROUNDS", RunsLong() ? 10'000 : 60);
  std::mt19937 random(11);
  for (int round = 0; round < rounds && !testing::Test::HasFailure();) {
    const KilledEvening evening(random);
    for (const Fault& fault : kFaults) {
      ++round;
      const int at = std::uniform_int_distribution<int>(1, evening.calls)(random);
      Recovery recovery(*evening.left);
      recovery.point.Begin(at, fault);
      recovery.Run(evening.firstStep);
      recovery.point.End();
      EXPECT_EQ(evening.FaultsOf(recovery), "")
          << "call " << at << " of " << evening.calls << ", " << fault.name << ", round " << round;
    }
  }
}

}  // namespace
}  // namespace vestrel::test
