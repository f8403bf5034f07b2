// The edit modes and what they do to the edit button.
#include "tests/controller/ControllerFixture.h"
#include "tests/support/Ending.h"

namespace vestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class controllerEditingTest : public ControllerFixture {
 protected:
  controllerEditingTest() { NewShow(); }

  // The edit mode as a click on the empty control 44 (group 3, slot 4) shows it, and where that does nothing
  // one on control 37, which has a button.
  std::string ModeByClick() {
    transcript.Take();
    Click(44);
    const Calls calls = transcript.Take();
    if (calls.empty()) {
      Click(37);
      const Calls answers = transcript.Take();
      return answers.empty() ? "?" : answers[0].starts_with("ShowEditPopup") ? "edit" : "none";
    }
    for (const std::string& call : calls) {
      if (call.starts_with("CompleteAssignment")) return "assign";
      if (call.starts_with("CopyButtonFiles")) return "copy";
      if (call == "DisableEditMode()") return "move";
    }
    return "?";
  }
  void StartAssign(std::u16string_view name) {
    controller->setModeAssign(name, ButtonType_Multi, assignment.get());
    Forget();
  }
};

TEST_F(controllerEditingTest, BeforeInitEditsRaise) {
  const auto fresh = MakeRef<clsButtonGroupController>();
  EXPECT_RAISES(91, fresh->assignButton(1, 1, u"x", ButtonType_Sequence));
  EXPECT_RAISES(91, fresh->removeButton(MakeRef<clsButton>().get()));
  EXPECT_RAISES(91, fresh->setModeAssign(u"x", ButtonType_Sequence, nullptr));
  EXPECT_RAISES(0, fresh->autoAssignNextAvailable(1));
  EXPECT_RAISES(0, fresh->setModeEditing(false));
  EXPECT_RAISES(91, fresh->setModeMove());
  EXPECT_RAISES(91, fresh->setModeCopy());
  EXPECT_RAISES(91, fresh->CancelEditMode());
}

TEST_F(controllerEditingTest, EveryEditOfNoButtonRaises) {
  EXPECT_RAISES(91, controller->setModeAdjFadeInOut());
  EXPECT_RAISES(91, controller->beginEditCue());
  EXPECT_RAISES(91, controller->DeleteButton());
  EXPECT_RAISES(91, controller->AssignMarkFade(MarkFadeType_Mark));
  EXPECT_RAISES(91, controller->RenameButton());
  EXPECT_RAISES(91, controller->ToggleBumpMode());
  EXPECT_RAISES(91, controller->ToggleLockState());
  EXPECT_RAISES(91, controller->ChangeFaderMode(FaderMode_Speed));
  controller->setModeCopy();
  EXPECT_RAISES(91, Click(44));
  EXPECT_RAISES(91, controller->setModeMove());
  EXPECT_RAISES(91, Click(44));
  EXPECT_RAISES(91, controller->removeButton(nullptr));
}

// The four modes a host can set, each followed by each of the six events.
struct Transition {
  const char* from;
  const char* event;
  const char* to;
};
class controllerTransitionTest : public controllerEditingTest,
                                 public testing::WithParamInterface<Transition> {
 protected:
  void Do(const std::string& event) {
    if (event == "editing on") controller->setModeEditing(true);
    if (event == "editing off") controller->setModeEditing(false);
    if (event == "assign") controller->setModeAssign(u"Fresh", ButtonType_Sequence, assignment.get());
    if (event == "move") controller->setModeMove();
    if (event == "copy") controller->setModeCopy();
    if (event == "edit") controller->ToggleLockState();
  }
};

TEST_P(controllerTransitionTest, EndsInTheModeOfTheTable) {
  const Ref<clsButton> button = Assign(2, 1, u"Intro");
  Pick(*button);
  Do(GetParam().from);
  Do(GetParam().event);
  EXPECT_EQ(ModeByClick(), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(
    Table, controllerTransitionTest,
    testing::Values(Transition{"editing on", "editing on", "edit"},
                    Transition{"editing on", "editing off", "none"},
                    Transition{"editing on", "assign", "assign"}, Transition{"editing on", "move", "move"},
                    Transition{"editing on", "copy", "copy"}, Transition{"editing on", "edit", "none"},
                    Transition{"assign", "editing on", "edit"}, Transition{"assign", "editing off", "none"},
                    Transition{"assign", "assign", "assign"}, Transition{"assign", "move", "move"},
                    Transition{"assign", "copy", "copy"}, Transition{"assign", "edit", "none"},
                    Transition{"move", "editing on", "edit"}, Transition{"move", "editing off", "none"},
                    Transition{"move", "assign", "assign"}, Transition{"move", "move", "move"},
                    Transition{"move", "copy", "copy"}, Transition{"move", "edit", "none"},
                    Transition{"copy", "editing on", "edit"}, Transition{"copy", "editing off", "none"},
                    Transition{"copy", "assign", "assign"}, Transition{"copy", "move", "move"},
                    Transition{"copy", "copy", "copy"}, Transition{"copy", "edit", "none"}));

TEST_F(controllerEditingTest, OnlyAnEnabledEditModeLetsAClickPick) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  controller->setModeEditing(true);
  Click(37);
  EXPECT_THAT(transcript.Take(), ElementsAre("ShowEditPopup(Intro@2/1)"));
  controller->setModeEditing(false);
  Click(37);
  EXPECT_EQ(intro->playState(), PlayState_On);
}

TEST_F(controllerEditingTest, CancellingOnlyTellsTheForm) {
  StartAssign(u"New");
  controller->CancelEditMode();
  EXPECT_THAT(transcript.Take(), ElementsAre("DisableEditMode()"));
  EXPECT_EQ(ModeByClick(), "assign");
}

TEST_F(controllerEditingTest, AnAssignmentWaitsForAClick) {
  controller->setModeAssign(u"New", ButtonType_Multi, assignment.get());
  EXPECT_THAT(transcript.Take(), ElementsAre("SetFlashing(true)"));
  Click(38);
  EXPECT_THAT(transcript.Take(), ElementsAre("CompleteAssignment(false)", "setLED(245, 2, true)",
                                             "SetFlashing(false)", "RefreshPage(1, 2, -)"));
  const Ref<clsButton> placed = controller->buttonWithIndex(2, 2);
  ASSERT_TRUE(placed);
  EXPECT_EQ(placed->name, u"New");
  EXPECT_EQ(placed->buttonType, ButtonType_Multi);
}

TEST_F(controllerEditingTest, AClickInAssignModePassesTheSlotOfTheRunInView) {
  controller->goToPageWithButtonIndex(2, 5);
  StartAssign(u"New");
  Click(38);
  EXPECT_EQ(Buttons(2), "New@2/6");
}

TEST_F(controllerEditingTest, TheModeStaysAssignUntilTheHostEndsIt) {
  StartAssign(u"New");
  Click(37);
  Click(38);
  EXPECT_EQ(Buttons(2), "New@2/1 New@2/2");
  controller->setModeEditing(false);
  Click(37);
  EXPECT_EQ(Playing(2), "New@2/1");
}

TEST_F(controllerEditingTest, AnAssignmentNeedsNobodyToTell) {
  controller->setModeAssign(u"New", ButtonType_Multi, nullptr);
  Click(37);
  EXPECT_EQ(Buttons(2), "New@2/1");
}

TEST_F(controllerEditingTest, WhatIsPlacedIsWhatWasPendingWhenItBegan) {
  StartAssign(u"New");
  InFirst("CompleteAssignment(false)",
          [&] { controller->setModeAssign(u"Other", ButtonType_Sequence, assignment.get()); });
  Click(37);
  EXPECT_EQ(Buttons(2), "New@2/1");
}

TEST_F(controllerEditingTest, AnExistingNameIsNotOverwrittenUnlessWanted) {
  Assign(2, 1, u"Intro");
  controller->setModeAssign(u"Intro", ButtonType_Multi, assignment.get());
  EXPECT_THAT(transcript.Take(),
              ElementsAre("PromptButtonOverwrite(Do you want to overwrite the existing [Intro] button?)"));
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] cancelling button assignment -- no overwrite wanted"));
  EXPECT_EQ(Buttons(2), "Intro@2/1");
  EXPECT_EQ(ModeByClick(), "none");
}

TEST_F(controllerEditingTest, ARefusedOverwriteKeepsModeAndPendingButton) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  const auto refuse = [&] { controller->setModeAssign(u"Intro", ButtonType_Auto, nullptr); };
  StartAssign(u"New");
  refuse();
  EXPECT_EQ(ModeByClick(), "assign");
  const Ref<clsButton> placed = controller->buttonWithIndex(3, 4);
  ASSERT_TRUE(placed);
  EXPECT_EQ(placed->name, u"New");
  EXPECT_EQ(placed->buttonType, ButtonType_Multi);
  controller->removeButton(placed.get());
  controller->setModeEditing(true);
  refuse();
  EXPECT_EQ(ModeByClick(), "edit");
  controller->setModeMove();
  refuse();
  EXPECT_EQ(ModeByClick(), "move");
  EXPECT_EQ(Buttons(3), "Intro@3/4");
}

TEST_F(controllerEditingTest, OverwritingPutsTheNewButtonInTheOldOnesPlace) {
  Assign(2, 5, u"Before");
  const Ref<clsButton> old = Assign(2, 6, u"Intro");
  Assign(2, 7, u"After");
  TurnOn(*old);
  form->overwrite = true;
  controller->setModeAssign(u"Intro", ButtonType_Multi, assignment.get());
  EXPECT_THAT(transcript.Take(),
              ElementsAre("PromptButtonOverwrite(Do you want to overwrite the existing [Intro] button?)",
                          "ButtonStateChanged(Intro@2/6, 1, 0, 0, 0)", "RefreshPage(2, 0, Intro@2/6)",
                          "EndLEDTimer()", "setLED(245, 2, true)",
                          "ButtonPlaystateChanged(Intro@2/6, 0, 1, 0, 0, 0)", "DeleteButton(Intro@2/6, true)",
                          "RefreshPage(1, 2, -)", "DisableEditMode()", "CompleteAssignment(true)",
                          "SetFlashing(false)", "RefreshPage(1, 2, -)", "RefreshPage(0, 0, -)"));
  EXPECT_THAT(TakeLog(), Contains("[Info] overwrote existing button: Intro"));
  EXPECT_EQ(Buttons(2), "Before@2/5 Intro@2/6 After@2/7");
  EXPECT_NE(controller->buttonWithIndex(2, 6), old);
  EXPECT_EQ(controller->buttonWithIndex(2, 6)->buttonType, ButtonType_Multi);
}

// Each time something goes that the controller alone holds, and its end edits something else.
TEST_F(controllerEditingTest, WhatIsOverwrittenAndPlacedIsWhatWasAskedFor) {
  Assign(2, 1, u"Intro");
  Assign(2, 2, u"Chase");
  form->overwrite = true;
  controller->setModeAssign(u"Fresh", ButtonType_Auto, MakeRef<Ending<IAssignmentCallback>>([this] {
                                                         controller->setModeAssign(u"Wrong", ButtonType_Multi,
                                                                                   nullptr);
                                                       }).get());
  controller->setModeAssign(u"Chase", ButtonType_Sequence, nullptr);
  EXPECT_EQ(Buttons(2), "Intro@2/1 Chase@2/2");

  const Ref<clsObjectList> buttons = Group(2)->buttons;
  Ref<clsButton> guest = MakeRef<clsButton>();
  const auto pickIntro = [this] { Pick(*controller->buttonWithIndex(2, 1)); };
  guest->InitWithValues(Page().get(), 2, 3, u"Guest", ButtonType_Auto,
                        MakeRef<Ending<IButtonEventHandler>>(pickIntro).get());
  buttons->AddItem(guest.get());
  Pick(*guest);
  guest = nullptr;
  buttons->Remove(-1);
  const Ref<clsButton> other = MakeRef<clsButton>();
  buttons->AddItem(other.get());
  buttons->Remove(-1);
  controller->setModeAssign(u"Chase", ButtonType_Multi, nullptr);
  EXPECT_EQ(Buttons(2), "Intro@2/1 Chase@2/2");
  EXPECT_EQ(controller->buttonWithIndex(2, 2)->buttonType, ButtonType_Multi);
}

TEST_F(controllerEditingTest, AButtonWhosePlaceTakesNoneAnyMoreIsNotOverwritten) {
  const Ref<clsButton> old = Assign(2, 9, u"Intro");
  controller->setButtonGroupPageSize(0);
  form->overwrite = true;
  try {
    controller->setModeAssign(u"Intro", ButtonType_Multi, assignment.get());
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), BGCErr_ButtonIndexOutOfRange);
    EXPECT_EQ(error.description(), u"9 - invalid buttonIndex: clsButtonGroupController.assignButton()");
  }
  EXPECT_EQ(controller->buttonWithIndex(2, 9), old);
  EXPECT_THAT(transcript.Take("DeleteButton"), IsEmpty());
}

TEST_F(controllerEditingTest, OverwritingWorksForEveryGroup) {
  Assign(0, 7, u"Top");
  Assign(9, 3, u"Bump");
  form->overwrite = true;
  controller->setModeAssign(u"Top", ButtonType_Auto, assignment.get());
  controller->setModeAssign(u"Bump", ButtonType_Auto, assignment.get());
  EXPECT_EQ(Buttons(0), "Top@0/7");
  EXPECT_EQ(Buttons(9), "Bump@9/3");
}

TEST_F(controllerEditingTest, AutoAssignmentTakesTheFirstFreeIndex) {
  for (const std::int32_t index : {1, 2, 3, 4, 5, 7}) Assign(2, index, u"b");
  StartAssign(u"New");
  controller->autoAssignNextAvailable(2);
  EXPECT_EQ(Text(controller->buttonWithIndex(2, 6)), "New@2/6");
  EXPECT_EQ(controller->getPageOffset(2), 1);
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(1, 2, -)", "CompleteAssignment(false)",
                                             "SetFlashing(false)", "RefreshPage(1, 2, -)"));
}

TEST_F(controllerEditingTest, TheNextFreeSlotWithoutARealPageTellsTheOperator) {
  controller->CreateNewShow(u"Empty");
  controller->setModeAssign(u"Intro", ButtonType_Sequence, assignment.get());
  Forget();
  controller->autoAssignNextAvailable(2);
  EXPECT_EQ(hostServices.boxes.size(), 1U);
  EXPECT_EQ(Buttons(2), "Intro@2/1");
}

TEST_F(controllerEditingTest, AutoAssignmentServesTopAndBumpButtonsToo) {
  for (std::int32_t index = 1; index <= 5; ++index) Assign(0, index, u"b");
  Assign(9, 1, u"b");
  StartAssign(u"New");
  controller->autoAssignNextAvailable(0);
  controller->autoAssignNextAvailable(9);
  EXPECT_EQ(Text(controller->buttonWithIndex(0, 6)), "New@0/6");
  EXPECT_EQ(Text(controller->buttonWithIndex(9, 2)), "New@9/2");
}

TEST_F(controllerEditingTest, AutoAssignmentOutsideAssignModeDoesNothing) {
  controller->setModeEditing(true);
  controller->autoAssignNextAvailable(2);
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_EQ(Buttons(2), "");
}

TEST_F(controllerEditingTest, AFullGroupRefusesAutoAssignment) {
  controller->setButtonGroupPageSize(1);
  for (std::int32_t index = 1; index <= 10; ++index)
    controller->assignButton(2, index, u"b", ButtonType_Auto);
  StartAssign(u"New");
  EXPECT_RAISES(BGCErr_ButtonIndexOutOfRange, controller->autoAssignNextAvailable(2));
}

TEST_F(controllerEditingTest, MovingStartsWithTheButtonOff) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  TurnOn(*intro);
  Pick(*intro);
  controller->setModeMove();
  EXPECT_EQ(intro->playState(), PlayState_Off);
  const Calls calls = transcript.Take();
  EXPECT_EQ(calls[0], "SetFlashing(true)");
  EXPECT_EQ(calls[1], "ButtonStateChanged(Intro@2/1, 1, 0, 0, 0)");
  EXPECT_EQ(calls.back(), "ButtonPlaystateChanged(Intro@2/1, 0, 1, 0, 0, 0)");
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] turned button [Intro] off prior to move"));
}

TEST_F(controllerEditingTest, CopyingStartsByFlashing) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  TurnOn(*intro);
  Pick(*intro);
  controller->setModeCopy();
  EXPECT_THAT(transcript.Take(), ElementsAre("SetFlashing(true)"));
  EXPECT_EQ(intro->playState(), PlayState_On);
}

TEST_F(controllerEditingTest, AdjustingFadesSwitchesOnWithoutRecording) {
  const Ref<clsButton> intro = Assign(2, 7, u"Intro");
  Pick(*intro);
  EXPECT_EQ(controller->setModeAdjFadeInOut(), intro);
  EXPECT_EQ(intro->playState(), PlayState_On);
  // Laid out nowhere yet.
  EXPECT_EQ(intro->controlIndex, -1);
  const Calls calls = transcript.Take();
  EXPECT_EQ(calls.front(), "ButtonStateChanged(Intro@2/7, 1, 0, 0, 0)");
  EXPECT_THAT(calls, Contains("ButtonPlaystateChanged(Intro@2/7, 1, 1, 0, 0, 0)"));
  EXPECT_EQ(calls[calls.size() - 2], "DisableEditMode()");
  EXPECT_EQ(calls.back(), "SetFlashing(false)");
  // The mode is left to the host.
  Click(37);
  EXPECT_THAT(transcript.Take("ShowEditPopup"), IsEmpty());
  EXPECT_RAISES(91, controller->ToggleLockState());
}

TEST_F(controllerEditingTest, AdjustingFadesSwitchesOnEvenWithoutAPageSize) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Pick(*intro);
  controller->setButtonGroupPageSize(0);
  EXPECT_RAISES(0, controller->setModeAdjFadeInOut());
  EXPECT_EQ(intro->playState(), PlayState_On);
}

TEST_F(controllerEditingTest, AdjustingFadesLeavesAPlayingButtonAlone) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  TurnOn(*intro);
  Pick(*intro);
  controller->setModeAdjFadeInOut();
  EXPECT_THAT(transcript.Take(), ElementsAre("DisableEditMode()", "SetFlashing(false)"));
}

TEST_F(controllerEditingTest, EditingACueTellsTheFormOnlyInAnEnabledEditMode) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Pick(*intro);
  controller->beginEditCue();
  EXPECT_EQ(intro->playState(), PlayState_On);
  EXPECT_EQ(transcript.Take().back(), "DisableEditMode()");
  controller->setModeEditing(false);
  controller->beginEditCue();
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerEditingTest, EditingACueSwitchesOnAsAutomaticRelease) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Pick(*intro);
  controller->beginEditCue();
  const Calls calls = transcript.Take();
  EXPECT_EQ(calls.front(), "ButtonStateChanged(Intro@2/1, 1, 0, 0, 0)");
  EXPECT_THAT(calls, Contains("ButtonPlaystateChanged(Intro@2/1, 1, 1, 0, 0, 0)"));
}

TEST_F(controllerEditingTest, EditingSwitchesOnOnlyWhatIsOff) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Pick(*intro);
  intro->setPlayState(PlayState_Null, PSEventSource_User, 1, 0, 0, 0, true);
  controller->beginEditCue();
  controller->setModeAdjFadeInOut();
  EXPECT_EQ(intro->playState(), PlayState_Null);
  EXPECT_THAT(transcript.Take(), ElementsAre("DisableEditMode()", "DisableEditMode()", "SetFlashing(false)"));
}

TEST_F(controllerEditingTest, DeletingTakesTheStepsInOrder) {
  Assign(2, 1, u"Intro");
  const Ref<clsButton> chase = Assign(2, 2, u"Chase");
  Assign(2, 3, u"Last");
  Assign(2, 5, u"Gap");
  TurnOn(*chase);
  Pick(*chase);
  std::string listAtForm;
  transcript.onCall = [&](const std::string& call) {
    if (call.starts_with("DeleteButton")) listAtForm = Buttons(2);
  };
  controller->DeleteButton();
  EXPECT_EQ(listAtForm, "Intro@2/1 Chase@2/2 Last@2/3 Gap@2/5");
  EXPECT_EQ(Buttons(2), "Intro@2/1 Last@2/2 Gap@2/4");
  EXPECT_EQ(chase->playState(), PlayState_Off);
  EXPECT_THAT(PageBytes(), HasSubstr("usedIndices=1|2|4\r\n"));
  EXPECT_THAT(
      transcript.Take(),
      ElementsAre("ButtonStateChanged(Chase@2/2, 1, 0, 0, 0)", "RefreshPage(2, 0, Chase@2/2)",
                  "EndLEDTimer()", "setLED(245, 2, true)", "ButtonPlaystateChanged(Chase@2/2, 0, 1, 0, 0, 0)",
                  "DeleteButton(Chase@2/2, false)", "RefreshPage(1, 2, -)", "DisableEditMode()"));
}

TEST_F(controllerEditingTest, TheSwitchingOffOfADeletedButtonIsNotSaved) {
  const Ref<clsButton> chase = Assign(2, 1, u"Chase");
  TurnOn(*chase);
  Pick(*chase);
  std::string atForm;
  transcript.onCall = [&](const std::string& call) {
    if (call.starts_with("DeleteButton")) atForm = PageBytes();
  };
  controller->DeleteButton(true);
  EXPECT_THAT(atForm, HasSubstr("Button1_fields=Chase|1|1|"));
}

TEST_F(controllerEditingTest, AMarkComesJustBeforeItsSource) {
  Assign(2, 1, u"Intro");
  const Ref<clsButton> chase = Assign(2, 2, u"Chase", ButtonType_Timeline);
  Assign(2, 3, u"Last");
  Pick(*chase);
  controller->AssignMarkFade(MarkFadeType_Mark);
  EXPECT_EQ(Buttons(2), "Intro@2/1 Chase Mark@2/2 Chase@2/3 Last@2/4");
  EXPECT_EQ(controller->buttonWithIndex(2, 2)->buttonType, ButtonType_Timeline);
  EXPECT_THAT(transcript.Take(), ElementsAre("CreateMarkFadeButton(Chase Mark@2/2, Chase, 0)",
                                             "RefreshPage(1, 2, -)", "DisableEditMode()"));
}

TEST_F(controllerEditingTest, AFadeComesJustAfterItsSource) {
  const Ref<clsButton> chase = Assign(2, 2, u"100% \\n", ButtonType_Auto);
  Assign(2, 3, u"Last");
  Pick(*chase);
  controller->AssignMarkFade(MarkFadeType_Fade);
  EXPECT_EQ(Buttons(2), "100% \\n@2/2 100% \\n Fade@2/3 Last@2/4");
  EXPECT_EQ(controller->buttonWithIndex(2, 3)->buttonType, ButtonType_Auto);
}

TEST_F(controllerEditingTest, AFadeBehindTheLastIndexIsRefusedBeforeTheHostHearsOfIt) {
  controller->goToPageWithButtonIndex(2, 40);
  controller->assignButton(2, 4, u"End", ButtonType_Sequence);
  Pick(*controller->buttonWithIndex(2, 40));
  EXPECT_RAISES(BGCErr_ButtonIndexOutOfRange, controller->AssignMarkFade(MarkFadeType_Fade));
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerEditingTest, RenamingSwitchesOffAsksSavesAndSwitchesOn) {
  const Ref<clsButton> intro = Assign(2, 7, u"Intro");
  TurnOn(*intro);
  Pick(*intro);
  form->newName = u"Opening";
  PlayStateEnum whenAsked = PlayState_Null;
  transcript.onCall = [&](const std::string& call) {
    if (call.starts_with("RenameButton")) whenAsked = intro->playState();
  };
  controller->RenameButton();
  EXPECT_EQ(whenAsked, PlayState_Off);
  EXPECT_EQ(intro->playState(), PlayState_On);
  EXPECT_EQ(intro->name, u"Opening");
  EXPECT_THAT(PageBytes(), HasSubstr("Button7_fields=Opening|1|1|"));
  const Calls calls = transcript.Take();
  EXPECT_THAT(calls, Contains("RenameButton(Intro@2/7, 39)"));
  EXPECT_THAT(calls, Contains("RefreshPage(2, 2, Opening@2/7)"));
  EXPECT_THAT(calls, Contains("ButtonPlaystateChanged(Intro@2/7, 0, 1, 0, 0, 0)"));
  EXPECT_THAT(calls, Contains("ButtonPlaystateChanged(Opening@2/7, 0, 1, 0, 0, 0)"));
  EXPECT_EQ(calls.back(), "DisableEditMode()");
}

TEST_F(controllerEditingTest, RenamingSavesTheWholeGroup) {
  Assign(2, 1, u"First");
  const Ref<clsButton> intro = Assign(2, 2, u"Intro");
  Pick(*intro);
  files.Put(kPageFile, "");
  form->newName = u"Opening";
  controller->RenameButton();
  EXPECT_EQ(PageBytes(),
            "[ButtonGroup2]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=1|2\r\n"
            "Button1_fields=First|1|0|0|0|0|False\r\nButton2_fields=Opening|1|0|0|0|0|False\r\n");
}

TEST_F(controllerEditingTest, AnEmptyNameRenamesNothing) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Pick(*intro);
  const std::string before = PageBytes();
  controller->RenameButton();
  EXPECT_EQ(intro->name, u"Intro");
  EXPECT_EQ(intro->playState(), PlayState_Off);
  EXPECT_EQ(PageBytes(), before);
  EXPECT_THAT(transcript.Take(), ElementsAre("RenameButton(Intro@2/1, 37)", "DisableEditMode()"));
}

TEST_F(controllerEditingTest, BumpModeLockAndFaderModeChangeWithoutSaving) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Pick(*intro);
  const std::string before = PageBytes();
  controller->ToggleBumpMode();
  EXPECT_EQ(intro->BumpMode(), BumpMode_On);
  EXPECT_THAT(transcript.Take(), ElementsAre("DisableEditMode()"));
  controller->ToggleBumpMode();
  EXPECT_EQ(intro->BumpMode(), BumpMode_Off);
  transcript.Take();
  controller->ToggleLockState();
  EXPECT_TRUE(intro->Locked());
  EXPECT_THAT(transcript.Take(), ElementsAre("LockStateChanged(Intro@2/1)", "DisableEditMode()"));
  controller->ChangeFaderMode(FaderMode_Proportional);
  EXPECT_EQ(intro->FaderMode(), FaderMode_Proportional);
  EXPECT_THAT(transcript.Take(), ElementsAre("FaderModeChanged(Intro@2/1)", "DisableEditMode()"));
  EXPECT_EQ(PageBytes(), before);
}

TEST_F(controllerEditingTest, AShowReplacedWhileANameIsAskedForIsNotDisturbed) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Pick(*intro);
  form->newName = u"Opening";
  InFirst("RenameButton", [&] {
    controller->CreateNewShow(u"Encore");
    controller->AddPage(u"Act 1");
  });
  controller->RenameButton();
  EXPECT_EQ(Buttons(2), "");
  EXPECT_EQ(intro->name, u"Opening");
}

}  // namespace
}  // namespace vestrel::test
