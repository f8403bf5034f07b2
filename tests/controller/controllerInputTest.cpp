// Presses, releases and clicks of controls, releasing, toggling and the go of a group.
#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class controllerInputTest : public ControllerFixture {
 protected:
  controllerInputTest() { NewShow(); }
};

TEST_F(controllerInputTest, AFakeMouseUpIsOnlyLogged) {
  controller->fakeMouseUp(40, u"surface");
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] fake mouseUp from [40] from [surface]"));
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerInputTest, BeforeInitControlsRaise) {
  const auto fresh = MakeRef<clsButtonGroupController>();
  EXPECT_RAISES(91, fresh->controlPressed(33));
  EXPECT_RAISES(91, fresh->controlReleased(33));
  EXPECT_RAISES(91, fresh->controlClicked(33, 1, 0, 0, 0));
  EXPECT_RAISES(0, fresh->ToggleButtonAt(1, 1));
  EXPECT_RAISES(0, fresh->buttonGroupGo(1));
}

TEST_F(controllerInputTest, PressAndReleaseReachABumpModeButton) {
  const Ref<clsButton> top = Assign(0, 5, u"Top");
  top->SetBumpMode(BumpMode_On);
  controller->controlPressed(5);
  EXPECT_EQ(top->playState(), PlayState_On);
  EXPECT_EQ(transcript.Take()[0], "ButtonStateChanged(Top@0/5, 1, 0, 0, 0)");
  controller->controlReleased(5);
  EXPECT_EQ(top->playState(), PlayState_Off);
}

TEST_F(controllerInputTest, PressAndReleaseOfAnEmptyControlDoNothing) {
  controller->controlPressed(33);
  controller->controlReleased(33);
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerInputTest, PressAndReleaseDoNothingInAnyEditMode) {
  const Ref<clsButton> top = Assign(0, 5, u"Top");
  top->SetBumpMode(BumpMode_On);
  const auto check = [&] {
    Forget();
    controller->controlPressed(5);
    controller->controlReleased(5);
    EXPECT_THAT(transcript.Take(), IsEmpty());
  };
  controller->setModeEditing(true);
  check();
  Pick(*top);
  controller->setModeMove();
  check();
  controller->setModeCopy();
  check();
  controller->setModeAssign(u"New", ButtonType_Sequence, assignment.get());
  check();
}

TEST_F(controllerInputTest, AClickTogglesTheButtonAndMovesTheHighlightOn) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  const Ref<clsButton> chase = Assign(2, 2, u"Chase");
  controller->controlClicked(37, 2, 3, 10.5F, -4);
  EXPECT_EQ(intro->playState(), PlayState_On);
  EXPECT_TRUE(chase->isHighlighted);
  EXPECT_EQ(Group(2)->highlightedButton, chase);
  EXPECT_THAT(transcript.Take(),
              ElementsAre("ButtonStateChanged(Intro@2/1, 2, 3, 10.5, -4)", "StartLEDTimer()",
                          "setLED(245, 2, false)", "ButtonPlaystateChanged(Intro@2/1, 0, 2, 3, 10.5, -4)",
                          "RefreshPage(2, 0, Intro@2/1)", "RefreshPage(2, 0, Chase@2/2)"));
}

TEST_F(controllerInputTest, AClickActsOnTheRunThatIsShown) {
  Assign(2, 1, u"Intro");
  const Ref<clsButton> far = Assign(2, 6, u"Far");
  controller->changeButtonGroupPageOffset(2, PageDir_Next);
  Click(38);
  EXPECT_EQ(far->playState(), PlayState_On);
  EXPECT_EQ(controller->getPageOffset(2), 1);
}

TEST_F(controllerInputTest, TheTriggerModeIsNotConsulted) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  controller->controlClicked(37, 1, 0, 0, 0, TriggerMode_OnToOff);
  EXPECT_EQ(intro->playState(), PlayState_On);
  controller->controlClicked(37, 1, 0, 0, 0, TriggerMode_OffToOn);
  EXPECT_EQ(intro->playState(), PlayState_Off);
}

TEST_F(controllerInputTest, AClickHandsTheButtonBackOnRequest) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Ref<clsButton> answer;
  controller->controlClicked(37, 1, 0, 0, 0, TriggerMode_Toggle, true, &answer);
  EXPECT_EQ(answer, intro);
  controller->controlClicked(38, 1, 0, 0, 0, TriggerMode_Toggle, true, &answer);
  EXPECT_FALSE(answer);
  answer = intro;
  controller->controlClicked(38, 1, 0, 0, 0, TriggerMode_Toggle, false, &answer);
  EXPECT_EQ(answer, intro);
}

TEST_F(controllerInputTest, AClickOnAnEmptySlotMovesNoHighlight) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Click(38);
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_EQ(Group(2)->highlightedButton, intro);
}

TEST_F(controllerInputTest, InEditModeAClickPicksTheEditButtonOrNone) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  controller->setModeEditing(true);
  Click(37);
  EXPECT_THAT(transcript.Take(), ElementsAre("ShowEditPopup(Intro@2/1)"));
  EXPECT_EQ(intro->playState(), PlayState_Off);
  Click(38);
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_RAISES(91, controller->ToggleLockState());
}

TEST_F(controllerInputTest, AControlPastTheLastGroupRaises) {
  EXPECT_RAISES(9, Click(33 + 9 * 4));
}

TEST_F(controllerInputTest, TogglingShowsTheButtonAndMovesTheHighlightOn) {
  Assign(2, 1, u"Intro");
  const Ref<clsButton> far = Assign(2, 6, u"Far");
  const Ref<clsButton> next = Assign(2, 7, u"Next");
  EXPECT_TRUE(controller->ToggleButtonAt(2, 6));
  EXPECT_EQ(controller->getPageOffset(2), 1);
  EXPECT_EQ(Group(2)->highlightedButton, next);
  EXPECT_EQ(far->playState(), PlayState_On);
  const Calls calls = transcript.Take();
  EXPECT_EQ(calls[0], "RefreshPage(1, 2, -)");
  EXPECT_EQ(calls[1], "ButtonStateChanged(Far@2/6, 1, 0, 0, 0)");
  EXPECT_THAT(calls, Contains("ButtonPlaystateChanged(Far@2/6, 0, 1, 0, 0, 0)"));
  EXPECT_THAT(PageBytes(), HasSubstr("Button6_fields=Far|1|1|"));
}

TEST_F(controllerInputTest, TogglingSwitchesOffWhatIsNotOff) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  intro->setPlayState(PlayState_Null, PSEventSource_User, 1, 0, 0, 0, true);
  EXPECT_TRUE(controller->ToggleButtonAt(2, 1));
  EXPECT_EQ(intro->playState(), PlayState_Off);
  EXPECT_FALSE(controller->ToggleButtonAt(2, 2));
  EXPECT_FALSE(controller->ToggleButtonAt(12, 2));
}

class ReleaseTest : public controllerInputTest {
 protected:
  ReleaseTest() {
    one = On(1, 1, u"One");
    two = On(2, 1, u"Two");
    locked = On(2, 2, u"Locked");
    locked->SetLocked(true);
    multi = On(2, 3, u"Multi", ButtonType_Multi);
    top = On(0, 1, u"Top");
    bump = On(9, 1, u"Bump");
    Forget();
  }
  Ref<clsButton> On(std::int32_t g, std::int32_t i, std::u16string_view name,
                    ButtonTypeEnum type = ButtonType_Sequence) {
    const Ref<clsButton> button = Assign(g, i, name, type);
    TurnOn(*button);
    return button;
  }
  // The names of the buttons that were switched off since.
  std::string Released() {
    std::string result;
    for (const std::string& call : transcript.Take("ButtonStateChanged")) {
      result += call.substr(19, call.find('@') - 19) + " ";
    }
    return result;
  }

  Ref<clsButton> one, two, locked, multi, top, bump;
};

TEST_F(ReleaseTest, ReleasesTheGroupsPlayingUnlockedButtonsExceptOne) {
  Ref<clsButton> spared = two;
  controller->releaseButtonsOnPage(2, ButtonType_None, &spared);
  EXPECT_EQ(Released(), "Multi ");
  EXPECT_EQ(spared, two);
  EXPECT_EQ(locked->playState(), PlayState_On);
  EXPECT_EQ(one->playState(), PlayState_On);
}

TEST_F(ReleaseTest, ReleasesAllTenGroupsForANegativeGroup) {
  Ref<clsButton> spared = one;
  controller->releaseButtonsOnPage(-7, ButtonType_None, &spared);
  EXPECT_EQ(Released(), "Top Two Multi Bump ");
}

TEST_F(ReleaseTest, TheGroupsOfTopAndBumpButtonsAreNeverReleased) {
  controller->releaseButtonsOnPage(0);
  controller->releaseButtonsOnPage(9);
  EXPECT_EQ(Released(), "");
  EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(ReleaseTest, OnlyOneTypeOnRequest) {
  controller->releaseButtonsOnPage(-1, ButtonType_Multi);
  EXPECT_EQ(Released(), "Multi ");
}

TEST_F(ReleaseTest, IsAnUnsavedAutomaticRelease) {
  const std::string before = PageBytes();
  controller->releaseButtonsOnPage(1);
  EXPECT_EQ(PageBytes(), before);
  const Calls calls = transcript.Take();
  EXPECT_EQ(calls[0], "ButtonStateChanged(One@1/1, 1, 0, 0, 0)");
  EXPECT_EQ(calls.back(), "ButtonPlaystateChanged(One@1/1, 1, 1, 0, 0, 0)");
}

TEST_F(ReleaseTest, WithoutAnExcludedButtonAPlaceholderTakesItsPlace) {
  Ref<clsButton> spared;
  controller->releaseButtonsOnPage(1, ButtonType_None, &spared);
  ASSERT_TRUE(spared);
  EXPECT_EQ(spared->toString(), u"group: -999, buttonIndex: -999, name: x, type: 999");
  EXPECT_THAT(TakeLog(),
              ElementsAre("[Info] BGC.releaseButtonsOnPage() called with no excluded/source button"));
}

TEST_F(ReleaseTest, ABumpModeButtonReleasesNothing) {
  Ref<clsButton> source = bump;
  ASSERT_EQ(source->BumpMode(), BumpMode_On);
  controller->releaseButtonsOnPage(-1, ButtonType_None, &source);
  EXPECT_EQ(Released(), "");
}

TEST_F(ReleaseTest, AButtonEqualToTheExcludedOneStaysOn) {
  Ref<clsButton> twin = two->Copy();
  controller->releaseButtonsOnPage(2, ButtonType_None, &twin);
  EXPECT_EQ(Released(), "Multi ");
}

TEST_F(ReleaseTest, AFailureIsLoggedAndEndsIt) {
  Group(1)->buttons->SetEventHandler(nullptr, nullptr);
  Group(1)->buttons->AddItem(BoxString(u"no button").get());
  EXPECT_RAISES(0, controller->releaseButtonsOnPage(1));
  EXPECT_THAT(TakeLog(), Contains("[Info] error in releaseButtonsOnPage:Type mismatch"));
}

TEST_F(controllerInputTest, GoFiresTheHighlightedButtonAndMovesOn) {
  Assign(2, 1, u"Intro");
  Assign(2, 6, u"Far");
  controller->highlightButton(2, Highlight_Next, false);
  modLog::SetLogLevel(LogLevel_4_SPEW);
  Forget();
  controller->buttonGroupGo(2, 3, 1.5F, true);
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(1, 2, -)", "GoFromSubmaster(Far@2/6, 3, 1.5, true)",
                                             "RefreshPage(2, 0, Far@2/6)", "RefreshPage(2, 0, Intro@2/1)"));
  EXPECT_THAT(TakeLog(), ElementsAre("[Spew] buttonGroupGo: triggered Far"));
  EXPECT_EQ(Text(controller->getHighlightedButton(2)), "Intro@2/1");
}

TEST_F(controllerInputTest, GoWithNothingHighlightedHighlightsTheFirst) {
  Assign(2, 1, u"Intro");
  Group(2)->highlightedButton = nullptr;
  modLog::SetLogLevel(LogLevel_4_SPEW);
  Forget();
  controller->buttonGroupGo(2);
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(2, 0, Intro@2/1)"));
  EXPECT_THAT(TakeLog(), ElementsAre("[Spew] buttonGroupGo: nothing highlighted"));
}

TEST_F(controllerInputTest, GoIsForTheEightGroupsOnly) {
  Assign(0, 1, u"Top");
  Assign(9, 1, u"Bump");
  for (const std::int32_t group : {0, 9}) controller->highlightButton(group, Highlight_First, false);
  modLog::SetLogLevel(LogLevel_4_SPEW);
  Forget();
  for (const std::int32_t group : {-1, 0, 9, 10}) controller->buttonGroupGo(group);
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_THAT(TakeLog(), Not(Contains(HasSubstr("buttonGroupGo"))));
  EXPECT_EQ(Text(controller->getHighlightedButton(9)), "Bump@9/1");
}

TEST_F(controllerInputTest, GoBeforeInitHasFinishedDoesNothing) {
  controller = MakeRef<clsButtonGroupController>();
  transcript.onCall = [&](const std::string&) { controller->buttonGroupGo(1); };
  modLog::SetLogLevel(LogLevel_4_SPEW);
  controller->Init(form.get(), kApp, lamps.get(), recorder.get());
  EXPECT_THAT(TakeLog(), Not(Contains(HasSubstr("buttonGroupGo"))));
}

TEST_F(controllerInputTest, AFailedGoIsLoggedAndMovesNoHighlight) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Assign(2, 2, u"Chase");
  FailIn("GoFromSubmaster", 5);
  EXPECT_RAISES(0, controller->buttonGroupGo(2));
  EXPECT_THAT(TakeLog(), ElementsAre("[Info]  ButtonGroupGo:host failed"));
  EXPECT_EQ(Group(2)->highlightedButton, intro);
}

TEST_F(controllerInputTest, LettingTheControllerGoInsideACallbackIsSafe) {
  Assign(2, 1, u"Intro");
  auto* const borrowed = controller.get();
  transcript.onCall = [&](const std::string& call) {
    if (call.starts_with("ButtonStateChanged")) controller = nullptr;
  };
  borrowed->controlClicked(37, 1, 0, 0, 0);
  EXPECT_FALSE(controller);
  EXPECT_EQ(transcript.Take().back(), "RefreshPage(2, 0, Intro@2/1)");
}

}  // namespace
}  // namespace vestrel::test
