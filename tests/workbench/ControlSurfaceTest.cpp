#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/host/ControlSurface.h"
#include "workbench/host/SimulatedHost.h"

namespace vestrel::workbench {
namespace {

class ControlSurfaceTest : public Workbench {};

TEST_F(ControlSurfaceTest, ALampKeepsItsStateUntilAMaskConcernsIt) {
  SimulatedHost host(folder());
  host.surface().setLED(246, 0x0003, true);
  host.surface().setLED(246, 0x0001, false);
  host.surface().setLED(247, -32768, true);
  EXPECT_EQ(host.surface().LitLamps(0), 0x0000);
  EXPECT_EQ(host.surface().LitLamps(1), 0x0002);
  EXPECT_EQ(host.surface().LitLamps(2), 0x8000);
}

TEST_F(ControlSurfaceTest, AnUnknownRowLightsNothing) {
  SimulatedHost host(folder());
  host.surface().setLED(7, -1, true);
  for (std::size_t row = 0; row < ControlSurface::kRows; ++row) EXPECT_EQ(host.surface().LitLamps(row), 0);
}

TEST_F(ControlSurfaceTest, LampsAreDrawnFromTheFirstOn) {
  EXPECT_EQ(ControlSurface::LampText(245, 0x00FF), "########");
  EXPECT_EQ(ControlSurface::LampText(245, 0x0001), "#.......");
  EXPECT_EQ(ControlSurface::LampText(246, 0x8001), "#..............#");
}

}  // namespace
}  // namespace vestrel::workbench
