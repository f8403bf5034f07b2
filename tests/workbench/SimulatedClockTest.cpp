#include <gtest/gtest.h>

#include "workbench/host/SimulatedClock.h"

namespace vestrel::workbench {
namespace {

TEST(SimulatedClockTest, StandsStillUntilItIsToldToGoOn) {
  SimulatedClock clock;
  EXPECT_EQ(clock.TickCount(), 600000U);
  EXPECT_EQ(clock.TickCount(), 600000U);
  clock.GoOnTo(clock.Now() + 1500);
  EXPECT_EQ(clock.TickCount(), 601500U);
}

TEST(SimulatedClockTest, TellsTheTimeOfTheEvening) {
  SimulatedClock clock;
  EXPECT_EQ(clock.LocalDateTimeText(), u"15/11/2026 19:30:00");
  clock.GoOnTo(clock.Now() + 61'999);
  EXPECT_EQ(clock.LocalDateTimeText(), u"15/11/2026 19:31:01");
}

TEST(SimulatedClockTest, TheDateGoesOnAfterMidnight) {
  SimulatedClock clock;
  clock.GoOnTo(clock.Now() + std::uint64_t{16} * 24 * 3600 * 1000 + 5 * 3600 * 1000);
  EXPECT_EQ(clock.LocalDateTimeText(), u"02/12/2026 00:30:00");
}

TEST(SimulatedClockTest, TheTickCountWraps) {
  SimulatedClock clock;
  clock.GoOnTo((std::uint64_t{1} << 32) + 5);
  EXPECT_EQ(clock.TickCount(), 5U);
}

}  // namespace
}  // namespace vestrel::workbench
