// What follows when a button or a list of buttons reports a change.
#include <algorithm>

#include "recording/vxEventList.h"
#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class controllerPlayStateTest : public ControllerFixture {
 protected:
  controllerPlayStateTest() { NewShow(); }

  void Set(clsButton& button, PlayStateEnum state, bool suppressSave = false) {
    button.setPlayState(state, PSEventSource_User, 2, 1, 3, 4, false, suppressSave);
  }
  // " PlayStateChanged:..." lines.
  std::vector<std::string> Failures() {
    std::vector<std::string> result;
    for (const std::string& line : TakeLog()) {
      if (line.starts_with("[Info]  PlayStateChanged:")) result.push_back(line.substr(7));
    }
    return result;
  }
};

TEST_F(controllerPlayStateTest, GoingOnRunsTheStepsInOrder) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  std::string savedAtForm;
  std::string playingAtForm;
  std::string playingAtRecorder;
  std::int32_t dimmerAtForm = 0;
  Group(2)->Fader()->SetValue(70, true);
  transcript.onCall = [&](const std::string& call) {
    if (call.starts_with("ButtonStateChanged")) {
      savedAtForm = PageBytes();
      playingAtForm = Playing(2);
      dimmerAtForm = intro->triggeredDimmerValue;
    }
    if (call.starts_with("ButtonPlaystateChanged")) playingAtRecorder = Playing(2);
  };
  Set(*intro, PlayState_On);
  EXPECT_THAT(savedAtForm, HasSubstr("Button1_fields=Intro|1|1|"));
  EXPECT_EQ(dimmerAtForm, 70);
  EXPECT_EQ(playingAtForm, "");
  EXPECT_EQ(playingAtRecorder, "Intro@2/1");
  EXPECT_THAT(transcript.Take(),
              ElementsAre("ButtonStateChanged(Intro@2/1, 2, 1, 3, 4)", "StartLEDTimer()",
                          "setLED(245, 2, false)", "ButtonPlaystateChanged(Intro@2/1, 0, 2, 1, 3, 4)"));
}

TEST_F(controllerPlayStateTest, GoingOffRefreshesTheControlBeforeTheLamps) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  TurnOn(*intro);
  Set(*intro, PlayState_Off);
  EXPECT_THAT(transcript.Take(),
              ElementsAre("ButtonStateChanged(Intro@2/1, 2, 1, 3, 4)", "RefreshPage(2, 0, Intro@2/1)",
                          "EndLEDTimer()", "setLED(245, 2, true)",
                          "ButtonPlaystateChanged(Intro@2/1, 0, 2, 1, 3, 4)"));
}

class controllerPlaybackTest : public controllerPlayStateTest,
                               public testing::WithParamInterface<std::int32_t> {
 protected:
  // The calls of a button that the operator switches on and off again.
  Calls Operated(clsButton& button) {
    Set(button, PlayState_On);
    Set(button, PlayState_Off);
    return transcript.Take();
  }
  // The same two changes as events of a recording, played back.
  Calls PlayedBack(clsButton& button) {
    const auto recording = MakeRef<vxEventList>();
    recording->Init(nullptr);
    for (const auto& [time, type] : {std::pair{10, vxEvent_ButtonOn}, std::pair{20, vxEvent_ButtonOff}}) {
      const auto event = MakeRef<vxEvent>();
      event->Init(time, &button, type);
      event->SetExtras(2, 1, 3, 4);
      recording->events()->AddItem(event.get());
    }
    recording->UpdateTime(10);
    recording->UpdateTime(20);
    return transcript.Take();
  }
};

TEST_P(controllerPlaybackTest, PlaybackMakesTheOperatorsCallsInTheirOrderAndTellsTheRecorderItsSource) {
  const Ref<clsButton> button = Assign(GetParam(), 1, u"Intro");
  const std::string name = Text(button);
  Calls expected = Operated(*button);
  const auto told =
      std::count(expected.begin(), expected.end(), "ButtonPlaystateChanged(" + name + ", 0, 2, 1, 3, 4)");
  EXPECT_EQ(told, 2);
  std::replace(expected.begin(), expected.end(), "ButtonPlaystateChanged(" + name + ", 0, 2, 1, 3, 4)",
               "ButtonPlaystateChanged(" + name + ", 2, 2, 1, 3, 4)");
  EXPECT_EQ(PlayedBack(*button), expected);
}

INSTANTIATE_TEST_SUITE_P(Groups, controllerPlaybackTest, testing::Range(1, 10));

TEST_F(controllerPlayStateTest, ASuppressedSaveLeavesTheFile) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  const std::string before = PageBytes();
  Set(*intro, PlayState_On, true);
  EXPECT_EQ(PageBytes(), before);
}

TEST_F(controllerPlayStateTest, TheDimmerValueFollowsTheGroup) {
  const Ref<clsButton> top = Assign(0, 1, u"Top");
  const Ref<clsButton> intro = Assign(8, 1, u"Intro");
  const Ref<clsButton> bump = Assign(9, 1, u"Bump");
  Group(8)->Fader()->SetValue(35, true);
  bump->Fader()->SetValue(55, true);
  for (const auto& button : {top, intro, bump}) {
    button->triggeredDimmerValue = -1;
    Set(*button, PlayState_On);
  }
  EXPECT_EQ(top->triggeredDimmerValue, 100);
  EXPECT_EQ(intro->triggeredDimmerValue, 35);
  EXPECT_EQ(bump->triggeredDimmerValue, 55);
}

TEST_F(controllerPlayStateTest, TheNowPlayingListIsInIndexOrder) {
  const Ref<clsButton> one = Assign(2, 1, u"One");
  const Ref<clsButton> two = Assign(2, 2, u"Two");
  const Ref<clsButton> three = Assign(2, 3, u"Three");
  const Ref<clsObjectList> list = Group(2)->nowPlayingList;
  TurnOn(*three);
  TurnOn(*one);
  EXPECT_EQ(Playing(2), "One@2/1 Three@2/3");
  two->setPlayState(PlayState_Null, PSEventSource_User, 1, 0, 0, 0);
  EXPECT_EQ(Playing(2), "One@2/1 Three@2/3");
  Set(*one, PlayState_Off);
  EXPECT_EQ(Playing(2), "Three@2/3");
  EXPECT_EQ(Group(2)->nowPlayingList, list);
}

TEST_F(controllerPlayStateTest, AButtonThatIsMovedWhileTheFormHearsThatItIsOffIsNoLongerListed) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  TurnOn(*intro);
  Pick(*intro);
  InFirst("ButtonStateChanged", [&] { Click(41); });
  controller->setModeMove();
  EXPECT_EQ(Buttons(3), "Intro@3/1");
  EXPECT_EQ(Playing(2), "");
  EXPECT_EQ(Playing(3), "");
}

TEST_F(controllerPlayStateTest, TopAndBumpButtonsAreNotListed) {
  TurnOn(*Assign(0, 1, u"Top"));
  TurnOn(*Assign(9, 1, u"Bump"));
  EXPECT_EQ(Playing(0), "");
  EXPECT_EQ(Playing(9), "");
}

TEST_F(controllerPlayStateTest, ABumpButtonIsHighlightedWhileItIsOn) {
  const Ref<clsButton> bump = Assign(9, 3, u"Bump");
  Set(*bump, PlayState_On);
  EXPECT_THAT(transcript.Take(),
              ElementsAre("ButtonStateChanged(Bump@9/3, 2, 1, 3, 4)", "HighlightBump(3, true)",
                          "ButtonPlaystateChanged(Bump@9/3, 0, 2, 1, 3, 4)"));
  Set(*bump, PlayState_Off);
  EXPECT_THAT(transcript.Take(),
              ElementsAre("ButtonStateChanged(Bump@9/3, 2, 1, 3, 4)", "HighlightBump(3, false)",
                          "RefreshPage(2, 0, Bump@9/3)", "ButtonPlaystateChanged(Bump@9/3, 0, 2, 1, 3, 4)"));
  Set(*bump, PlayState_Null);
  EXPECT_THAT(transcript.Take("HighlightBump"), IsEmpty());
}

TEST_F(controllerPlayStateTest, ATopButtonLightsTheLampOfItsIndex) {
  const Ref<clsButton> top = Assign(0, 20, u"Top");
  Set(*top, PlayState_On);
  EXPECT_THAT(transcript.Take(), Contains("setLED(247, 8, false)"));
  Set(*top, PlayState_Off);
  EXPECT_THAT(transcript.Take(), Contains("setLED(247, 8, true)"));
}

TEST_F(controllerPlayStateTest, AButtonWithoutAPageGoesThroughAllSteps) {
  const auto loose = MakeRef<clsButton>();
  loose->InitWithValues(nullptr, 2, 1, u"Loose", ButtonType_Sequence, controller.get());
  Set(*loose, PlayState_On, true);
  EXPECT_THAT(Failures(), IsEmpty());
  EXPECT_EQ(transcript.Take().back(), "ButtonPlaystateChanged(Loose@2/1, 0, 2, 1, 3, 4)");
}

TEST_F(controllerPlayStateTest, AButtonOfAnotherPageIsSavedIntoTheCurrentOne) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  const Ref<clsPage> first = Page();
  controller->AddPage(u"Act 2");
  controller->SetPage(u"Act 2");
  const std::string before = PageBytes();
  Set(*intro, PlayState_On);
  EXPECT_EQ(PageBytes(), before);
  EXPECT_THAT(files.Get(u"C:\\app\\Sequences\\Gala\\Act 2\\pageSetting.ini"),
              HasSubstr("Button1_fields=Intro|1|1|"));
  EXPECT_EQ(Playing(2), "");
  EXPECT_EQ(Text(*first->ButtonGroups(2)->nowPlayingList), "Intro@2/1");
}

struct FailingStep {
  const char* callback;
  std::int32_t location;
};
class controllerLocationTest : public ControllerFixture, public testing::WithParamInterface<FailingStep> {};

TEST_P(controllerLocationTest, TheLogNamesTheStepThatFailedAndTheRestIsSkipped) {
  NewShow();
  const Ref<clsButton> bump = Assign(9, 3, u"Bump");
  TurnOn(*bump);
  FailIn(GetParam().callback, 70);
  bump->setPlayState(PlayState_Off, PSEventSource_User, 1, 0, 0, 0);
  EXPECT_THAT(TakeLog(), ElementsAre("[Info]  PlayStateChanged:host failed Location:" +
                                     std::to_string(GetParam().location)));
  EXPECT_TRUE(transcript.Take().back().starts_with(GetParam().callback));
}

INSTANTIATE_TEST_SUITE_P(Steps, controllerLocationTest,
                         testing::Values(FailingStep{"ButtonStateChanged", 2},
                                         FailingStep{"HighlightBump", 4}, FailingStep{"RefreshPage", 5},
                                         FailingStep{"ButtonPlaystateChanged", 6}),
                         [](const auto& step) { return step.param.callback; });

TEST_F(controllerPlayStateTest, AFailedSaveIsLocationZero) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  intro->groupIndex = 12;
  Set(*intro, PlayState_On);
  EXPECT_THAT(Failures(), ElementsAre(" PlayStateChanged:Subscript out of range Location:0"));
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerPlayStateTest, ADimmerValueThatCannotBeFoundIsLocationOne) {
  const auto unmade = MakeRef<clsButton>();
  unmade->groupIndex = 9;
  controller->PlayStateChanged(unmade.get(), PSEventSource_User, 1, 0, 0, 0, true);
  EXPECT_THAT(Failures(), ElementsAre(" PlayStateChanged:Object variable not set Location:1"));
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerPlayStateTest, AListThatCannotBeReadIsLocationThree) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Group(2)->buttons->SetEventHandler(nullptr, nullptr);
  Group(2)->buttons->AddItem(BoxString(u"no button").get());
  Set(*intro, PlayState_On, true);
  EXPECT_THAT(Failures(), ElementsAre(" PlayStateChanged:Type mismatch Location:3"));
  EXPECT_THAT(transcript.Take(), ElementsAre("ButtonStateChanged(Intro@2/1, 2, 1, 3, 4)"));
}

TEST_F(controllerPlayStateTest, ALampOutsideTheTopRowsIsLocationSix) {
  const Ref<clsButton> top = Assign(0, 1, u"Top");
  top->buttonIndex = 33;
  Set(*top, PlayState_On);
  EXPECT_THAT(Failures(), ElementsAre(" PlayStateChanged:Subscript out of range Location:6"));
  EXPECT_THAT(transcript.Take("ButtonPlaystateChanged"), IsEmpty());
}

TEST_F(controllerPlayStateTest, NoButtonIsLoggedToo) {
  EXPECT_RAISES(0, controller->PlayStateChanged(nullptr, PSEventSource_User, 1, 0, 0, 0));
  EXPECT_THAT(Failures(), ElementsAre(" PlayStateChanged:Object variable not set Location:0"));
}

TEST_F(controllerPlayStateTest, ANestedFailureKeepsTheOuterLocation) {
  const Ref<clsButton> outer = Assign(2, 1, u"Outer");
  const Ref<clsButton> inner = Assign(3, 1, u"Inner");
  transcript.onCall = [&](const std::string& call) {
    if (call.starts_with("ButtonStateChanged(Outer")) Set(*inner, PlayState_On);
    if (call.starts_with("ButtonPlaystateChanged(Inner")) throw Error(5, u"host", u"inner");
    if (call.starts_with("ButtonStateChanged(Outer")) throw Error(5, u"host", u"outer");
  };
  Set(*outer, PlayState_On);
  EXPECT_THAT(Failures(),
              ElementsAre(" PlayStateChanged:inner Location:6", " PlayStateChanged:outer Location:2"));
}

TEST_F(controllerPlayStateTest, ANestedChangeRunsToItsEndFirst) {
  const Ref<clsButton> first = Assign(2, 1, u"First");
  const Ref<clsButton> second = Assign(2, 2, u"Second");
  TurnOn(*first);
  transcript.onCall = [&](const std::string& call) {
    Ref<clsButton> spared = second;
    if (call.starts_with("ButtonStateChanged(Second")) {
      controller->releaseButtonsOnPage(2, ButtonType_None, &spared);
    }
  };
  Click(38);
  EXPECT_EQ(Playing(2), "Second@2/2");
  EXPECT_EQ(first->playState(), PlayState_Off);
  const Calls calls = transcript.Take("ButtonPlaystateChanged");
  EXPECT_THAT(calls, ElementsAre("ButtonPlaystateChanged(First@2/1, 1, 1, 0, 0, 0)",
                                 "ButtonPlaystateChanged(Second@2/2, 0, 1, 0, 0, 0)"));
}

TEST_F(controllerPlayStateTest, TheHostsOwnExceptionsAreTrappedAsWell) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  transcript.onCall = [](const std::string&) { throw std::runtime_error("own"); };
  Set(*intro, PlayState_On);
  EXPECT_THAT(Failures(), ElementsAre(" PlayStateChanged:own Location:2"));
}

TEST_F(controllerPlayStateTest, LockAndFaderModeArePassedToTheForm) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  intro->SetLocked(true);
  intro->SetFaderMode(FaderMode_Speed);
  EXPECT_THAT(transcript.Take(), ElementsAre("LockStateChanged(Intro@2/1)", "FaderModeChanged(Intro@2/1)"));
}

TEST_F(controllerPlayStateTest, ABumpFaderIsReportedAndShownOnRequest) {
  const Ref<clsButton> bump = Assign(9, 3, u"Bump");
  bump->Fader()->SetValue(45, true);
  controller->FaderValueChanged(bump.get(), true);
  EXPECT_THAT(transcript.Take(),
              ElementsAre("UpdateFaderUI(1, 3, 45)", "UpdateFaderModelValue(1, 3, 45, true, Bump@9/3)"));
  controller->FaderValueChanged(bump.get(), false);
  EXPECT_THAT(transcript.Take(), ElementsAre("UpdateFaderModelValue(1, 3, 45, true, Bump@9/3)"));
}

TEST_F(controllerPlayStateTest, OnlyBumpButtonsCarryAFaderValue) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  controller->FaderValueChanged(intro.get(), true);
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_THAT(TakeLog(), ElementsAre("[Warning] BGC IButtonEventHandler_FaderValueChanged: attempted to set "
                                     "fader value for non-bump type?"));
}

TEST_F(controllerPlayStateTest, WhatALoadedButtonDefersIsKeptAndNotApplied) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  intro->Fader()->SetValue(40, true);
  TurnOn(*intro);
  const long before = Object::LiveCount();
  controller->DeferPlaystateFor(Page().get(), intro.get(), PlayState_On, 40);
  EXPECT_EQ(Object::LiveCount(), before + 1);
  controller->LoadShow(u"Gala");
  EXPECT_EQ(controller->buttonWithIndex(2, 1)->playState(), PlayState_Off);
  EXPECT_EQ(controller->buttonWithIndex(2, 1)->faderValue(), 0);
}

TEST_F(controllerPlayStateTest, BeforeInitNothingCanBeDeferred) {
  const auto fresh = MakeRef<clsButtonGroupController>();
  EXPECT_RAISES(91, fresh->DeferPlaystateFor(nullptr, nullptr, PlayState_On, 1));
}

TEST_F(controllerPlayStateTest, TheFirstButtonOfAGroupIsHighlighted) {
  const Ref<clsButton> first = Assign(2, 4, u"First");
  const Ref<clsButton> second = Assign(2, 1, u"Second");
  EXPECT_TRUE(first->isHighlighted);
  EXPECT_FALSE(second->isHighlighted);
  EXPECT_EQ(Group(2)->highlightedButton, first);
}

TEST_F(controllerPlayStateTest, GroupsOfTopAndBumpButtonsHaveNoFirstHighlight) {
  EXPECT_FALSE(Assign(0, 1, u"Top")->isHighlighted);
  EXPECT_FALSE(Assign(9, 1, u"Bump")->isHighlighted);
  EXPECT_FALSE(Group(0)->highlightedButton);
}

TEST_F(controllerPlayStateTest, TheNextLaterButtonInheritsTheHighlight) {
  const Ref<clsButton> one = Assign(2, 1, u"One");
  const Ref<clsButton> two = Assign(2, 2, u"Two");
  Group(2)->buttons->Remove(0);
  EXPECT_FALSE(one->isHighlighted);
  EXPECT_TRUE(two->isHighlighted);
  EXPECT_EQ(Group(2)->highlightedButton, two);
}

TEST_F(controllerPlayStateTest, RemovingTheHighlightedLastButtonLeavesNoHighlight) {
  const Ref<clsButton> one = Assign(2, 1, u"One");
  const Ref<clsButton> two = Assign(2, 2, u"Two");
  controller->highlightButton(2, Highlight_Next);
  Group(2)->buttons->Remove(1);
  EXPECT_FALSE(two->isHighlighted);
  EXPECT_FALSE(one->isHighlighted);
  EXPECT_FALSE(Group(2)->highlightedButton);
}

TEST_F(controllerPlayStateTest, RemovingAnotherButtonMovesNoHighlight) {
  const Ref<clsButton> one = Assign(2, 1, u"One");
  Assign(2, 2, u"Two");
  Group(2)->buttons->Remove(1);
  EXPECT_EQ(Group(2)->highlightedButton, one);
}

TEST_F(controllerPlayStateTest, RemovingTheOnlyButtonLeavesNoHighlight) {
  Assign(2, 1, u"One");
  Group(2)->buttons->Remove(0);
  EXPECT_FALSE(Group(2)->highlightedButton);
}

TEST_F(controllerPlayStateTest, TopAndBumpGroupsHandNoHighlightOn) {
  for (const std::int32_t g : {0, 9}) {
    const Ref<clsButton> one = Assign(g, 1, u"One");
    const Ref<clsButton> two = Assign(g, 2, u"Two");
    controller->highlightButton(g, Highlight_First, false);
    ASSERT_EQ(Group(g)->highlightedButton, one);
    Group(g)->buttons->Remove(0);
    EXPECT_FALSE(Group(g)->highlightedButton);
    EXPECT_FALSE(one->isHighlighted);
    EXPECT_FALSE(two->isHighlighted);
  }
}

TEST_F(controllerPlayStateTest, AFlagOnAnotherTopOrBumpButtonDropsNoHighlight) {
  for (const std::int32_t g : {0, 9}) {
    const Ref<clsButton> one = Assign(g, 1, u"One");
    const Ref<clsButton> two = Assign(g, 2, u"Two");
    controller->highlightButton(g, Highlight_First, false);
    two->isHighlighted = true;
    Group(g)->buttons->Remove(1);
    EXPECT_EQ(Group(g)->highlightedButton, one);
    EXPECT_TRUE(one->isHighlighted);
  }
}

TEST_F(controllerPlayStateTest, TheHighlightIsHandedOnInTheGroupThatReported) {
  Assign(2, 1, u"One");
  const Ref<clsButton> two = Assign(2, 2, u"Two");
  const Ref<clsObjectList> list = Group(2)->buttons;
  const Ref<clsButtonGroup> group = Group(2);
  controller->AddPage(u"Act 2");
  controller->SetPage(u"Act 2");
  list->Remove(0);
  EXPECT_EQ(group->highlightedButton, two);
}

TEST_F(controllerPlayStateTest, ClearingAListLeavesNothingHighlightedOrPlaying) {
  const Ref<clsButton> one = Assign(2, 1, u"One");
  const Ref<clsButton> two = Assign(2, 2, u"Two");
  const Ref<clsButton> three = Assign(2, 3, u"Three");
  TurnOn(*one);
  TurnOn(*three);
  Group(2)->buttons->Clear();
  for (const auto& button : {one, two, three}) EXPECT_FALSE(button->isHighlighted);
  EXPECT_FALSE(Group(2)->highlightedButton);
  EXPECT_EQ(Playing(2), "");
}

TEST_F(controllerPlayStateTest, WhileClearingADroppedButtonIsNeverHighlightedAgain) {
  // Out of order, as a hand-edited file may list them: the highlighted 2 has a later button only behind it.
  files.Put(kPageFile, "[ButtonGroup2]\r\nusedIndices=5|2\r\n");
  controller->LoadShow(u"Gala");
  const Ref<clsButton> five = controller->buttonWithIndex(2, 5);
  const Ref<clsButton> two = controller->buttonWithIndex(2, 2);
  five->isHighlighted = false;
  two->isHighlighted = true;
  Group(2)->highlightedButton = two;
  Group(2)->buttons->Clear();
  EXPECT_FALSE(five->isHighlighted);
  EXPECT_FALSE(Group(2)->highlightedButton);
}

TEST_F(controllerPlayStateTest, APlayingButtonThatLeavesIsNoLongerListed) {
  const Ref<clsButton> one = Assign(2, 1, u"One");
  const Ref<clsButton> two = Assign(2, 2, u"Two");
  TurnOn(*one);
  TurnOn(*two);
  controller->removeButton(one.get());
  EXPECT_EQ(Playing(2), "Two@2/1");
}

TEST_F(controllerPlayStateTest, AForeignListOrItemIsATypeMismatch) {
  const auto list = MakeRef<clsObjectList>();
  EXPECT_RAISES(91, controller->ItemAdded(list.get(), list.get(), 0, nullptr));
  EXPECT_RAISES(13, controller->ItemAdded(list.get(), list.get(), 0, list.get()));
  EXPECT_RAISES(13, controller->ItemRemoved(list.get(), list.get(), 0, Group(2).get()));
}

}  // namespace
}  // namespace vestrel::test
