// A host that calls back: inside every callback every public operation is called, and afterwards the show is
// consistent, nothing has leaked and the controller still works. All pairs are served; none is refused.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/scenarios/GoingScene.h"
#include "tests/scenarios/SceneTest.h"
#include "tests/support/Scale.h"

namespace vestrel::test {
namespace {

// What makes the callback come.
struct Trigger {
  const char* callback;
  const char* name;
  void (*run)(Scene& scene, clsButtonGroupController& controller);
};

#define TRIGGER(callback, ...)                                                               \
  Trigger {                                                                                  \
    callback, #__VA_ARGS__,                                                                  \
        [](Scene& s, clsButtonGroupController& c) { (void)s, (void)c, (void)(__VA_ARGS__); } \
  }

const std::vector<Trigger>& Triggers() {
  static const std::vector<Trigger> kTriggers{
      TRIGGER("RefreshPage", c.highlightButton(2, Highlight_Next)),
      TRIGGER("RefreshPage", c.goToPageWithButtonIndex(2, 6)),
      TRIGGER("RefreshPage", c.clearAll()),
      TRIGGER("SetFlashing", c.setModeMove()),
      TRIGGER("SetFlashing", c.setModeCopy()),
      TRIGGER("SetFlashing", c.setModeAssign(u"Fresh", ButtonType_Auto, s.assignment.get())),
      TRIGGER("SetFlashing", c.setModeAdjFadeInOut()),
      TRIGGER("ShowEditPopup", c.setModeEditing(true), c.controlClicked(37, 1, 0, 0, 0)),
      TRIGGER("DisableEditMode", c.CancelEditMode()),
      TRIGGER("DisableEditMode", c.DeleteButton()),
      TRIGGER("DisableEditMode", c.setModeCopy(), c.controlClicked(39, 1, 0, 0, 0)),
      TRIGGER("CopyButtonFiles", c.setModeCopy(), c.controlClicked(37, 1, 0, 0, 0)),
      TRIGGER("CopyButtonFiles", c.setModeMove(), c.SetPage(u"Act 2"), c.controlClicked(37, 1, 0, 0, 0)),
      TRIGGER("DeleteButton", c.DeleteButton()),
      TRIGGER("RenameButton", c.RenameButton()),
      TRIGGER("ButtonStateChanged", c.controlClicked(37, 1, 0, 0, 0)),
      TRIGGER("ButtonStateChanged", c.controlClicked(38, 1, 0, 0, 0)),
      TRIGGER("ButtonStateChanged", c.formShutdown()),
      TRIGGER("ButtonStateChanged", c.releaseButtonsOnPage(-1)),
      TRIGGER("ButtonStateChanged", c.clearAll()),
      TRIGGER("LockStateChanged", c.ToggleLockState()),
      TRIGGER("UpdateFaderUI", c.PushCurrentGroupFaderValues()),
      TRIGGER("UpdateFaderUI", c.BumpFaderChanged(1, 40, true)),
      TRIGGER("FaderModeChanged", c.ChangeFaderMode(FaderMode_Speed)),
      TRIGGER("HighlightBump", c.ToggleButtonAt(9, 1)),
      TRIGGER("GoFromSubmaster", c.buttonGroupGo(2)),
      TRIGGER("GetUIFaderValues", c.SetPage(u"Act 2")),
      TRIGGER("GetUIFaderValues", c.LoadShow(u"Gala")),
      TRIGGER("UpdateFaderModelValue", c.groupFaderChanged(3, 40)),
      TRIGGER("UpdateFaderModelValue", c.DeletePage(u"Act 1")),
      TRIGGER("UpdateFaderModelValue", c.RefocusCurrentPage()),
      TRIGGER("HideSplashScreen", c.HideSplashScreen()),
      TRIGGER("HideSplashScreen",
              s.files.SetReadOnly(u"C:\\app\\Sequences\\Gala\\Act 1\\pageSetting.ini", true),
              s.clock.ticks = 1, c.SetPage(u"Act 1")),
      TRIGGER("CreateMarkFadeButton", c.AssignMarkFade(MarkFadeType_Fade)),
      TRIGGER("PromptButtonOverwrite", c.setModeAssign(u"Far", ButtonType_Auto, s.assignment.get())),
      TRIGGER("CompleteAssignment", c.setModeAssign(u"Fresh", ButtonType_Auto, s.assignment.get()),
              c.controlClicked(38, 1, 0, 0, 0)),
      TRIGGER("CompleteAssignment", c.setModeAssign(u"Fresh", ButtonType_Auto, s.assignment.get()),
              c.autoAssignNextAvailable(2)),
      TRIGGER("setLED", c.controlClicked(38, 1, 0, 0, 0)),
      TRIGGER("setLED", c.formGotFocus()),
      TRIGGER("setLED", c.Init(s.form.get(), u"C:\\app", s.lamps.get(), s.record.get())),
      TRIGGER("setLED", c.mLEDManager->TimerTick()),
      TRIGGER("StartLEDTimer", c.controlClicked(2, 1, 0, 0, 0)),
      TRIGGER("EndLEDTimer", c.formLostFocus()),
      TRIGGER("EndLEDTimer", c.CreateNewShow(u"Encore")),
      TRIGGER("PumpMessages", c.AddPage(u"Act 3")),
      TRIGGER("PumpMessages", c.formShutdown()),
      TRIGGER("PumpMessages", c.assignButton(2, 1, u"New", ButtonType_Multi)),
      TRIGGER("PumpMessages", c.removeButton(s.chase.get())),
      TRIGGER("PumpMessages", c.setModeMove(), c.controlClicked(41, 1, 0, 0, 0)),
      TRIGGER("PumpMessages", c.setButtonGroupButtonList(2, c.getButtons(2).get())),
      TRIGGER("PumpMessages", c.changeButtonGroupPageOffset(2, PageDir_Next)),
      TRIGGER("PumpMessages", c.groupFaderChanged(3, 40)),
      TRIGGER("UpdateTimecodeDisplay", s.record->TimerTick()),
      TRIGGER("UpdateTimecodeDisplay", s.record->Stop_()),
      TRIGGER("SetTimerEnabled", s.record->Play()),
      TRIGGER("TransportStateChanged", s.record->Record()),
      TRIGGER("NewEventRecorded", c.controlClicked(38, 1, 0, 0, 0)),
      TRIGGER("CurrentPlayingEvent", s.record->Stop_(), s.record->Play(), s.clock.ticks += 100,
              s.record->TimerTick()),
      TRIGGER("RefreshList", s.record->Stop_(), s.record->updateEventTime(0, 3)),
  };
  return kTriggers;
}

using ReentrancyTest = SceneTest;

class CallbackTest : public SceneTest, public testing::WithParamInterface<std::size_t> {
 protected:
  // Runs the trigger with `action` inside the callback, down to `depth` levels. Answers how often it ran.
  int RunPair(const Trigger& trigger, const HostAction& action, int depth) {
    Scene scene(files, hostServices, clock);
    int level = 0;
    int runs = 0;
    scene.onCallback = [&](const std::string& callback) {
      if (callback != trigger.callback || level >= depth) return;
      ++level;
      ++runs;
      Try([&] { action.run(scene); });
      --level;
    };
    // Borrowed, as by a host that lets go of its reference inside the callback.
    clsButtonGroupController& borrowed = *scene.controller;
    Try([&] { trigger.run(scene, borrowed); });
    Check(scene);
    return runs;
  }
};

TEST_P(CallbackTest, EveryOperationIsServedInside) {
  const Trigger& trigger = Triggers()[GetParam()];
  const long before = Object::LiveCount();
  // The quick suite takes every third pair, another third for each row.
  const std::size_t step = RunsLong() ? 1 : 3;
  for (std::size_t i = GetParam() % step; i < HostActions().size(); i += step) {
    const HostAction& action = HostActions()[i];
    for (int depth = 1; depth <= (RunsLong() ? 3 : 1); ++depth) {
      const int runs = RunPair(trigger, action, depth);
      EXPECT_GT(runs, 0) << "the callback did not come";
      ASSERT_EQ(Object::LiveCount(), before) << action.name << " leaks";
      ASSERT_FALSE(HasFailure()) << trigger.callback << " in " << trigger.name << ", inside it "
                                 << action.name << ", depth " << depth;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Pairs, CallbackTest, testing::Range(std::size_t{0}, Triggers().size()),
                         [](const auto& row) {
                           return std::string(Triggers()[row.param].callback) + "_" +
                                  std::to_string(row.param);
                         });

TEST_F(ReentrancyTest, EveryCallbackOfTheHostIsCovered) {
  for (const char* callback : {"RefreshPage",
                               "SetFlashing",
                               "ShowEditPopup",
                               "DisableEditMode",
                               "CopyButtonFiles",
                               "DeleteButton",
                               "RenameButton",
                               "ButtonStateChanged",
                               "LockStateChanged",
                               "UpdateFaderUI",
                               "FaderModeChanged",
                               "HighlightBump",
                               "GoFromSubmaster",
                               "GetUIFaderValues",
                               "UpdateFaderModelValue",
                               "HideSplashScreen",
                               "CreateMarkFadeButton",
                               "PromptButtonOverwrite",
                               "setLED",
                               "StartLEDTimer",
                               "EndLEDTimer",
                               "CompleteAssignment",
                               "UpdateTimecodeDisplay",
                               "SetTimerEnabled",
                               "TransportStateChanged",
                               "NewEventRecorded",
                               "CurrentPlayingEvent",
                               "RefreshList",
                               "PumpMessages"}) {
    bool covered = false;
    for (const Trigger& trigger : Triggers())
      covered = covered || std::string_view(trigger.callback) == callback;
    EXPECT_TRUE(covered) << callback;
  }
}

// Random operations, any of which may come inside any callback of another, or inside the end of an object of
// the host that another lets go, eight levels deep. The show is looked over after each that no other one
// called, and at the end of each round, which is one seed.
TEST_F(ReentrancyTest, RandomNestingLeavesTheShowConsistent) {
  const int operations = RunsLong() ? 1'000'000 : 30'000;
  int done = 0;
  int deepest = 0;
  std::mt19937 random;
  const auto any = [&](std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
  };
  const long before = Object::LiveCount();
  for (unsigned round = 0; done < operations; ++round) {
    random.seed(round);
    std::string story;
    {
      GoingScene going(files, hostServices, clock);
      Scene& scene = going.scene;
      int level = 0;
      int left = 200;
      const auto act = [&] {
        const HostAction& action = HostActions()[any(HostActions().size() - 2)];
        story += std::string(static_cast<std::size_t>(level) * 2, ' ') + action.name + "\n";
        ++done;
        deepest = std::max(deepest, level);
        Try([&] { action.run(scene); });
      };
      const auto nest = [&] {
        if (level >= 8 || left <= 0 || any(3) != 0) return;
        --left;
        ++level;
        act();
        --level;
      };
      for (int i = 0; i < 10 && !HasFailure(); ++i) {
        if (any(3) == 0) Try([&] { going.Plant(); });
        scene.onCallback = [&](const std::string&) { nest(); };
        going.atEnd = nest;
        act();
        scene.onCallback = nullptr;
        going.atEnd = nullptr;
        EXPECT_EQ(scene.controller ? scene.Faults() : std::string(), "");
      }
      Check(scene);
    }
    ASSERT_EQ(Object::LiveCount(), before) << "round " << round << "\n" << story;
    ASSERT_FALSE(HasFailure()) << "round " << round << "\n" << story;
  }
  EXPECT_EQ(deepest, 8);
  RecordProperty("operations", done);
}

}  // namespace
}  // namespace vestrel::test
