#include <gtest/gtest.h>

#include "workbench/host/HostTimer.h"

namespace vestrel::workbench {
namespace {

TEST(HostTimerTest, IsDueAnIntervalAfterItsStart) {
  HostTimer timer(500);
  EXPECT_FALSE(timer.IsDue(100000));
  timer.Start(1000);
  EXPECT_FALSE(timer.IsDue(1499));
  EXPECT_TRUE(timer.IsDue(1500));
}

TEST(HostTimerTest, ATickMovesItToTheNextInterval) {
  HostTimer timer(500);
  timer.Start(1000);
  timer.Ticked();
  EXPECT_EQ(timer.due(), 2000U);
}

TEST(HostTimerTest, StartingARunningTimerChangesNothing) {
  HostTimer timer(500);
  timer.Start(1000);
  timer.Start(1400);
  EXPECT_EQ(timer.due(), 1500U);
}

TEST(HostTimerTest, AStoppedTimerStartsAnew) {
  HostTimer timer(500);
  timer.Start(1000);
  timer.Stop();
  EXPECT_FALSE(timer.IsDue(1500));
  timer.Start(1600);
  EXPECT_EQ(timer.due(), 2100U);
}

}  // namespace
}  // namespace vestrel::workbench
