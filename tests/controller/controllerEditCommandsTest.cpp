// The commands on the edit button: the mode they end in, the order of their steps, what they refuse.
#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class controllerEditCommandsTest : public ControllerFixture {
 protected:
  controllerEditCommandsTest() { NewShow(); }

  // "<number>: <description>" of what `action` raises.
  static std::string Failure(const std::function<void()>& action) {
    try {
      action();
    } catch (const Error& error) {
      return std::to_string(error.number()) + ": " + ToUtf8(error.description());
    }
    return "nothing raised";
  }
};

struct EditCommand {
  const char* name;
  void (*run)(clsButtonGroupController&);
};
class controllerEditCommandTest : public controllerEditCommandsTest,
                                  public testing::WithParamInterface<EditCommand> {
 protected:
  void Enter(int mode) {
    if (mode == 1) controller->setModeAssign(u"Fresh", ButtonType_Auto, assignment.get());
    if (mode == 2) controller->setModeMove();
    if (mode == 3) controller->setModeCopy();
  }
};

TEST_P(controllerEditCommandTest, EndsInNoEditModeFromAnyMode) {
  const Ref<clsButton> other = Assign(3, 1, u"Other");
  for (int mode = 0; mode <= 3; ++mode) {
    const Ref<clsButton> edited = Assign(2, 1, u"Intro");
    Pick(*edited);
    Enter(mode);
    Forget();
    GetParam().run(*controller);
    EXPECT_EQ(transcript.Take().back(), "DisableEditMode()") << mode;
    const PlayStateEnum before = other->playState();
    Click(41);
    EXPECT_NE(other->playState(), before) << mode;
    EXPECT_EQ(Buttons(3), "Other@3/1") << mode;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Commands, controllerEditCommandTest,
    testing::Values(
        EditCommand{"DeleteButton", [](clsButtonGroupController& c) { c.DeleteButton(); }},
        EditCommand{"Mark", [](clsButtonGroupController& c) { c.AssignMarkFade(MarkFadeType_Mark); }},
        EditCommand{"Fade", [](clsButtonGroupController& c) { c.AssignMarkFade(MarkFadeType_Fade); }},
        EditCommand{"RenameButton", [](clsButtonGroupController& c) { c.RenameButton(); }},
        EditCommand{"ToggleBumpMode", [](clsButtonGroupController& c) { c.ToggleBumpMode(); }},
        EditCommand{"ToggleLockState", [](clsButtonGroupController& c) { c.ToggleLockState(); }},
        EditCommand{"ChangeFaderMode",
                    [](clsButtonGroupController& c) { c.ChangeFaderMode(FaderMode_Speed); }}),
    [](const auto& command) { return command.param.name; });

TEST_F(controllerEditCommandsTest, RenamingSavesThenRefreshesThenSwitchesOn) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  TurnOn(*intro);
  Pick(*intro);
  form->newName = u"Opening";
  std::string atRefresh;
  transcript.onCall = [&](const std::string& call) {
    if (call.starts_with("RefreshPage(2, 2,")) atRefresh = PageBytes();
  };
  controller->RenameButton();
  EXPECT_THAT(atRefresh, HasSubstr("Button1_fields=Opening|1|0|"));
  EXPECT_THAT(
      transcript.Take(),
      ElementsAre("ButtonStateChanged(Intro@2/1, 1, 0, 0, 0)", "RefreshPage(2, 0, Intro@2/1)",
                  "EndLEDTimer()", "setLED(245, 2, true)", "ButtonPlaystateChanged(Intro@2/1, 0, 1, 0, 0, 0)",
                  "RenameButton(Intro@2/1, 37)", "RefreshPage(2, 2, Opening@2/1)",
                  "ButtonStateChanged(Opening@2/1, 1, 0, 0, 0)", "StartLEDTimer()", "setLED(245, 2, false)",
                  "ButtonPlaystateChanged(Opening@2/1, 0, 1, 0, 0, 0)", "DisableEditMode()"));
}

TEST_F(controllerEditCommandsTest, RenamingWhileTheHostSetsUpAnotherShowWritesNothingIntoIt) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  TurnOn(*intro);
  Pick(*intro);
  form->newName = u"Opening";
  InFirst("RenameButton", [&] {
    ReplaceShow();
    controller->assignButton(2, 1, u"Other", ButtonType_Auto);
  });
  controller->RenameButton();
  EXPECT_EQ(intro->playState(), PlayState_On);
  EXPECT_THAT(files.Get(kOtherFile), HasSubstr("Button1_fields=Other|4|0|0|0|0|False"));
}

TEST_F(controllerEditCommandsTest, AMarkOrFadeIsAnnouncedBeforeItIsInItsGroup) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Pick(*intro);
  std::string atForm;
  transcript.onCall = [&](const std::string& call) {
    if (call.starts_with("CreateMarkFadeButton")) atForm = Buttons(2);
  };
  controller->AssignMarkFade(MarkFadeType_Fade);
  EXPECT_EQ(atForm, "Intro@2/1");
  EXPECT_EQ(Buttons(2), "Intro@2/1 Intro Fade@2/2");
}

TEST_F(controllerEditCommandsTest, AMarkOfATopOrBumpButtonMovesNobody) {
  for (const std::int32_t g : {0, 9}) {
    const Ref<clsButton> source = Assign(g, 3, u"Source");
    Pick(*source);
    controller->AssignMarkFade(MarkFadeType_Mark);
    EXPECT_THAT(TakeLog(), Contains("[Info] BGC.ShiftButtons(): attempted to shift a group outside of 1-8"));
    EXPECT_EQ(source->buttonIndex, 3);
    EXPECT_THAT(Buttons(g), HasSubstr("Source Mark@" + std::to_string(g) + "/3"));
    EXPECT_EQ(Group(g)->buttons->Size(), 2);
  }
}

TEST_F(controllerEditCommandsTest, AFadeOfATopOrBumpButtonStandsBesideIt) {
  for (const std::int32_t g : {0, 9}) {
    Pick(*Assign(g, 3, u"Source"));
    controller->AssignMarkFade(MarkFadeType_Fade);
    const Ref<clsButton> fade = controller->buttonWithIndex(g, 4);
    ASSERT_TRUE(fade);
    EXPECT_EQ(fade->name, u"Source Fade");
    EXPECT_EQ(fade->BumpMode(), g == 9 ? BumpMode_On : BumpMode_Off);
  }
}

TEST_F(controllerEditCommandsTest, AFadeBehindTheLastTopButtonIsRefusedAndChangesNothing) {
  Pick(*Assign(0, 32, u"Last"));
  const std::string before = PageBytes();
  EXPECT_EQ(Failure([&] { controller->AssignMarkFade(MarkFadeType_Fade); }),
            std::to_string(BGCErr_ButtonIndexOutOfRange) +
                ": 33 - invalid buttonIndex: clsButtonGroupController.assignButtonInternal");
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_EQ(PageBytes(), before);
  EXPECT_EQ(Buttons(0), "Last@0/32");
  Click(32);
  EXPECT_THAT(transcript.Take(), ElementsAre("ShowEditPopup(Last@0/32)"));
}

}  // namespace
}  // namespace vestrel::test
