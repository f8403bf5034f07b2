#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/host/SimulatedHost.h"

namespace vestrel::workbench {
namespace {

// Keeps the names of the callbacks with the time at which each came.
class Recorder : public HostListener {
 public:
  explicit Recorder(SimulatedHost& host) : host_(host), start_(host.Now()) {}
  void CallbackMade(const HostCall& call) override {
    text += std::to_string(host_.Now() - start_) + " " + std::string(call.name) + "\n";
  }

  std::string text;

 private:
  SimulatedHost& host_;
  std::uint64_t start_;
};

class SimulatedHostTest : public Workbench {};

TEST_F(SimulatedHostTest, TimersFireAsTheyFallDueBlinkingFirst) {
  SimulatedHost host(folder());
  host.transportTimer().SetInterval(250);
  host.controller().mLEDManager->setButtonInTop32(1, true, true);
  host.record().Play();
  Recorder recorder(host);
  host.calls().SetListener(&recorder);
  host.Advance(750);
  EXPECT_EQ(recorder.text,
            "250 UpdateTimecodeDisplay\n500 setLED\n500 UpdateTimecodeDisplay\n750 UpdateTimecodeDisplay\n");
}

TEST_F(SimulatedHostTest, TheTimePassesAlsoWithoutTimers) {
  SimulatedHost host(folder());
  const std::uint64_t start = host.Now();
  host.Advance(1234);
  EXPECT_EQ(host.Now() - start, 1234U);
}

TEST_F(SimulatedHostTest, AFaderStaysWhereTheHandLeftIt) {
  SimulatedHost host(folder());
  host.MoveGroupFader(3, 60);
  host.MoveBumpFader(2, 100);
  TUIFaderValues values;
  host.controller().GetUIFaderValues(values);
  EXPECT_EQ(values.GroupFaders[3], 60);
  EXPECT_EQ(values.BumpFaders[2], 100);
}

TEST_F(SimulatedHostTest, LayingOutGivesEveryVisibleButtonItsControl) {
  PutSample();
  SimulatedHost host(folder());
  host.SetPageSize(4);
  host.LoadShow(u"Harbour Lights");
  host.LayOut();
  const Ref<clsButton> shown = host.controller().buttonWithIndex(2, 3);
  EXPECT_TRUE(shown->isVisible);
  EXPECT_EQ(shown->controlIndex, 39);
  const Ref<clsButton> hidden = host.controller().buttonWithIndex(1, 5);
  EXPECT_FALSE(hidden->isVisible);
  EXPECT_EQ(hidden->controlIndex, -1);
  const Ref<clsButton> bump = host.controller().buttonWithIndex(9, 8);
  EXPECT_TRUE(bump->isVisible);
  EXPECT_EQ(bump->controlIndex, -1);
}

TEST_F(SimulatedHostTest, GroupLevelsReachWhatPlaysOnThePageThatIsShown) {
  PutSample();
  SimulatedHost host(folder());
  host.SetPageSize(4);
  host.LoadShow(u"Harbour Lights");
  host.controller().ToggleButtonAt(1, 1);
  EXPECT_EQ(host.stage().items()[0].level, 80);
  host.MoveGroupFader(1, 85);
  EXPECT_EQ(host.stage().items()[0].level, 85);
  host.controller().SetPage(u"Act One");
  EXPECT_EQ(host.stage().items()[0].level, 85);
}

}  // namespace
}  // namespace vestrel::workbench
