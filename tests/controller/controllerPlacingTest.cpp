// Putting buttons into groups and taking them out, moves and copies.
#include "tests/controller/ControllerFixture.h"
#include "tests/support/Ending.h"

namespace vestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class controllerPlacingTest : public ControllerFixture {
 protected:
  static constexpr std::u16string_view kSecondFile = u"C:\\app\\Sequences\\Gala\\Act 2\\pageSetting.ini";
  static constexpr const char* kRefusal =
      "[Info] BGC.ShiftButtons(): attempted to shift a group outside of 1-8";

  controllerPlacingTest() { NewShow(); }

  void Fill(const std::vector<std::int32_t>& indices, std::int32_t group = 2) {
    for (const std::int32_t index : indices) Assign(group, index, LongToText(index));
  }
  void SecondPage() {
    controller->AddPage(u"Act 2");
    controller->SetPage(u"Act 2");
    Forget();
  }
  void Move(clsButton& button, std::int32_t control) {
    Pick(button);
    controller->setModeMove();
    Forget();
    Click(control);
  }
  // Picks on this page, places on the next.
  void PickForPage2(clsButton& button, bool copy) {
    Pick(button);
    copy ? controller->setModeCopy() : controller->setModeMove();
    SecondPage();
  }
  static std::u16string DescriptionOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const Error& error) {
      return error.description();
    }
    return u"nothing raised";
  }
};

// A host's observer of a group's list that does not want new buttons in it.
class RefusingObserver : public IObjListEventHandler {
 public:
  VESTREL_OBJECT(RefusingObserver, IObjListEventHandler)

  bool removesItself = false;

  void ItemAdded(clsObjectList* list, Object* /*item*/, std::int32_t atIndex, Object* /*userData*/) override {
    if (removesItself) list->Remove(atIndex);
    throw Error(5, u"host", u"host failed");
  }
};

TEST_F(controllerPlacingTest, AButtonThatAHostsObserverRefusesLeavesItsGroupAsItWas) {
  for (const std::int32_t group : {0, 2}) {
    for (const bool removesItself : {false, true}) {
      Group(group)->buttons->Clear();
      Fill({1, 2, 4}, group);
      const std::string before = Buttons(group);
      const std::string bytes = PageBytes();
      const auto observer = MakeRef<RefusingObserver>();
      observer->removesItself = removesItself;
      Group(group)->buttons->SetEventHandler(observer.get(), nullptr);
      EXPECT_RAISES(5, controller->assignButton(group, 1, u"Refused", ButtonType_Auto));
      EXPECT_RAISES(5, controller->assignButton(group, 3, u"Refused", ButtonType_Auto));
      EXPECT_EQ(Buttons(group), before);
      EXPECT_EQ(PageBytes(), bytes);
      Group(group)->buttons->SetEventHandler(nullptr, nullptr);
    }
  }
}

TEST_F(controllerPlacingTest, AnAssignedButtonBelongsToThePageAndIsSaved) {
  controller->assignButton(2, 3, u"Intro", ButtonType_Timeline);
  const Ref<clsButton> button = controller->buttonWithIndex(2, 3);
  ASSERT_TRUE(button);
  EXPECT_EQ(button->Page(), Page());
  EXPECT_EQ(button->buttonType, ButtonType_Timeline);
  EXPECT_THAT(PageBytes(), HasSubstr("usedIndices=3\r\nButton3_fields=Intro|3|0|0|0|0|False\r\n"));
  EXPECT_THAT(transcript.Take(), ElementsAre("setLED(245, 2, true)"));
}

TEST_F(controllerPlacingTest, TheSlotIsThatOfTheRunInView) {
  Group(2)->pageOffset = 2;
  controller->assignButton(2, 3, u"Intro", ButtonType_Sequence);
  EXPECT_EQ(Buttons(2), "Intro@2/11");
}

TEST_F(controllerPlacingTest, IndicesAreValidated) {
  struct Row {
    std::int32_t group, slot, number;
    const char16_t* description;
  };
  const std::vector<Row> rows{
      {-1, 1, BGCErr_GroupOutOfRange, u"-1 - invalid group: clsButtonGroupController.assignButton()"},
      {10, 1, BGCErr_GroupOutOfRange, u"10 - invalid group: clsButtonGroupController.assignButton()"},
      {2, 41, BGCErr_ButtonIndexOutOfRange,
       u"41 - invalid buttonIndex: clsButtonGroupController.assignButton()"},
      {2, 0, BGCErr_ButtonIndexOutOfRange,
       u"0 - invalid buttonIndex: clsButtonGroupController.assignButton()"},
      {0, 33, BGCErr_ButtonIndexOutOfRange,
       u"33 - invalid buttonIndex: clsButtonGroupController.assignButton()"},
      {9, 41, BGCErr_ButtonIndexOutOfRange,
       u"41 - invalid buttonIndex: clsButtonGroupController.assignButton()"}};
  for (const Row& row : rows) {
    try {
      controller->assignButton(row.group, row.slot, u"x", ButtonType_Sequence);
      ADD_FAILURE() << row.group << "/" << row.slot;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), row.number);
      EXPECT_EQ(error.description(), row.description);
    }
  }
  EXPECT_EQ(controller->getButtons()->Size(), 0);
}

TEST_F(controllerPlacingTest, TheLastIndicesAreAccepted) {
  Fill({40}, 2);
  Fill({40}, 9);
  controller->setButtonGroupPageSize(1);
  Fill({32}, 0);
  EXPECT_EQ(controller->getButtons()->Size(), 3);
}

TEST_F(controllerPlacingTest, WithoutARealPageTheOperatorIsToldAndItGoesOn) {
  controller->CreateNewShow(u"Empty");
  const std::vector<std::u16string> before = files.Paths();
  Forget();
  controller->assignButton(2, 1, u"Intro", ButtonType_Sequence);
  EXPECT_THAT(
      TakeLog(),
      ElementsAre("[Severe] BGC.assignButton(): Attempted to assign button [Intro] to invalid/null page"));
  ASSERT_EQ(hostServices.boxes.size(), 1U);
  EXPECT_EQ(hostServices.boxes[0].caption, u"Error");
  EXPECT_EQ(hostServices.boxes[0].text,
            u"Error in BGC.assignButton(): page is invalid.\r\n\r\nPlease try creating a new show, or report "
            u"this error to Talvo Systems Inc.");
  EXPECT_THAT(transcript.Take(), Not(Contains("HideSplashScreen()")));
  EXPECT_EQ(Buttons(2), "Intro@2/1");
  EXPECT_EQ(files.Paths(), before);
}

TEST_F(controllerPlacingTest, ATakenIndexMovesThatAndLaterButtonsUp) {
  Fill({1, 2, 3, 5});
  controller->assignButton(2, 2, u"New", ButtonType_Sequence);
  EXPECT_EQ(Buttons(2), "1@2/1 New@2/2 2@2/3 3@2/4 5@2/6");
  EXPECT_THAT(PageBytes(), HasSubstr("usedIndices=1|2|3|4|6\r\n"));
}

TEST_F(controllerPlacingTest, AFreeIndexMovesNobody) {
  Fill({1, 4});
  controller->assignButton(2, 3, u"New", ButtonType_Sequence);
  EXPECT_EQ(Buttons(2), "1@2/1 New@2/3 4@2/4");
}

TEST_F(controllerPlacingTest, TopAndBumpButtonsAreNeverShifted) {
  for (const std::int32_t group : {0, 9}) {
    Fill({1, 2}, group);
    controller->assignButton(group, 1, u"Twin", ButtonType_Sequence);
    EXPECT_THAT(TakeLog(), ElementsAre(kRefusal));
    EXPECT_EQ(Group(group)->buttons->Size(), 3);
    EXPECT_EQ(controller->buttonWithIndex(group, 2)->name, u"2");
    controller->removeButton(controller->buttonWithIndex(group, 1).get());
    EXPECT_THAT(TakeLog(), ElementsAre(kRefusal));
    EXPECT_EQ(controller->buttonWithIndex(group, 2)->name, u"2");
  }
}

TEST_F(controllerPlacingTest, RemovingClosesTheGap) {
  Fill({1, 2, 3, 5});
  controller->removeButton(controller->buttonWithIndex(2, 2).get());
  EXPECT_EQ(Buttons(2), "1@2/1 3@2/2 5@2/4");
  EXPECT_THAT(PageBytes(), HasSubstr("usedIndices=1|2|4\r\n"));
}

TEST_F(controllerPlacingTest, RemovingTheLastButtonDarkensTheGroup) {
  Fill({1});
  Assign(0, 5, u"Top");
  controller->removeButton(controller->buttonWithIndex(2, 1).get());
  controller->removeButton(controller->buttonWithIndex(0, 5).get());
  EXPECT_THAT(transcript.Take(), ElementsAre("setLED(245, 2, false)", "setLED(246, 16, false)"));
}

TEST_F(controllerPlacingTest, RemovingAButtonThatIsNotThereOnlySaves) {
  Fill({1, 2});
  const auto stranger = MakeRef<clsButton>();
  stranger->InitWithValues(nullptr, 2, 1, u"Stranger", ButtonType_Sequence, nullptr);
  files.Put(kPageFile, "");
  controller->removeButton(stranger.get());
  EXPECT_EQ(Buttons(2), "1@2/1 2@2/2");
  EXPECT_THAT(PageBytes(), HasSubstr("usedIndices=1|2\r\n"));
  stranger->groupIndex = -1;
  EXPECT_RAISES(9, controller->removeButton(stranger.get()));
}

TEST_F(controllerPlacingTest, WhileAShowLoadsNothingIsSaved) {
  Fill({1});
  std::string bytes;
  transcript.onCall = [&](const std::string&) {
    if (!controller->PageManager()->IsLoading()) return;
    transcript.onCall = nullptr;
    files.Put(kPageFile, "");
    controller->assignButton(3, 1, u"Early", ButtonType_Sequence);
    controller->removeButton(controller->buttonWithIndex(2, 1).get());
    bytes = PageBytes();
  };
  controller->LoadShow(u"Gala");
  EXPECT_EQ(bytes, "");
  EXPECT_EQ(Buttons(3), "Early@3/1");
  EXPECT_EQ(Buttons(2), "");
}

TEST_F(controllerPlacingTest, TheBumpGroupPreparesItsButtons) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  EXPECT_EQ(intro->BumpMode(), BumpMode_Off);
  intro->Fader()->SetValue(60, true);
  Move(*intro, 65);
  EXPECT_EQ(Text(intro), "Intro@9/1");
  EXPECT_EQ(intro->BumpMode(), BumpMode_On);
  EXPECT_EQ(intro->faderValue(), 0);
  intro->Fader()->SetValue(30, true);
  Move(*intro, 33);
  EXPECT_EQ(Text(intro), "Intro@1/1");
  EXPECT_EQ(intro->BumpMode(), BumpMode_Off);
  EXPECT_EQ(intro->faderValue(), 30);
}

TEST_F(controllerPlacingTest, BetweenOtherGroupsAButtonKeepsBumpModeAndFader) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  intro->SetBumpMode(BumpMode_On);
  intro->Fader()->SetValue(60, true);
  Move(*intro, 1);
  EXPECT_EQ(Text(intro), "Intro@0/1");
  EXPECT_EQ(intro->BumpMode(), BumpMode_On);
  EXPECT_EQ(intro->faderValue(), 60);
}

struct MoveRow {
  std::int32_t from, control;
  const char* result;
};
class controllerMoveTest : public controllerPlacingTest, public testing::WithParamInterface<MoveRow> {};

TEST_P(controllerMoveTest, ClosesTheGapFirstAndThenInserts) {
  Fill({1, 2, 3, 4});
  Move(*controller->buttonWithIndex(2, GetParam().from), GetParam().control);
  EXPECT_EQ(Buttons(2), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(WithinAGroup, controllerMoveTest,
                         testing::Values(MoveRow{1, 39, "2@2/1 3@2/2 1@2/3 4@2/4"},
                                         MoveRow{1, 40, "2@2/1 3@2/2 4@2/3 1@2/4"},
                                         MoveRow{4, 37, "4@2/1 1@2/2 2@2/3 3@2/4"},
                                         MoveRow{3, 38, "1@2/1 3@2/2 2@2/3 4@2/4"},
                                         MoveRow{2, 38, "1@2/1 2@2/2 3@2/3 4@2/4"}));

TEST_F(controllerPlacingTest, AMoveToAnotherGroupTellsTheFormOfTheTarget) {
  Fill({1, 2});
  Fill({1}, 3);
  const Ref<clsButton> moved = controller->buttonWithIndex(2, 1);
  Move(*moved, 41);
  EXPECT_EQ(Buttons(2), "2@2/1");
  EXPECT_EQ(Buttons(3), "1@3/1 1@3/2");
  EXPECT_EQ(controller->buttonWithIndex(3, 1), moved);
  EXPECT_THAT(transcript.Take(),
              ElementsAre("RefreshPage(1, 3, -)", "DisableEditMode()", "SetFlashing(false)"));
  EXPECT_THAT(PageBytes(),
              HasSubstr("[ButtonGroup3]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=1|2\r\n"));
}

TEST_F(controllerPlacingTest, AMoveOntoItselfOnlyEndsTheMode) {
  Fill({1});
  files.Put(kPageFile, "as it was");
  Pick(*controller->buttonWithIndex(2, 1));
  controller->setModeMove();
  Forget();
  Click(37);
  EXPECT_THAT(transcript.Take(), ElementsAre("DisableEditMode()", "SetFlashing(false)"));
  EXPECT_EQ(PageBytes(), "as it was");
  Click(37);
  EXPECT_EQ(Playing(2), "1@2/1");
}

TEST_F(controllerPlacingTest, TheEndOfAButtonThatAReloadReplacesMayReloadOrAssign) {
  const std::function<void()> ends[] = {[this] { Page()->loadFromINI(); },
                                        [this] { controller->assignButton(2, 4, u"4", ButtonType_Auto); }};
  for (const std::function<void()>& end : ends) {
    Fill({1, 2, 3});
    const auto once = [work = end]() mutable {
      if (work) std::exchange(work, nullptr)();
    };
    Ref<clsButton> guest = MakeRef<clsButton>();
    guest->InitWithValues(Page().get(), 2, 2, u"Guest", ButtonType_Auto,
                          MakeRef<Ending<IButtonEventHandler>>(once).get());
    Group(2)->buttons->AddItemBefore(guest.get(), 1);
    guest = nullptr;
    Page()->loadFromINI();
    const std::string shown = Buttons(2);
    EXPECT_EQ(shown, &end == &ends[0] ? "1@2/1 2@2/2 3@2/3" : "1@2/1 2@2/2 3@2/3 4@2/4");
    Page()->loadFromINI();
    EXPECT_EQ(Buttons(2), shown);
    while (Group(2)->buttons->Size() > 0) controller->removeButton(controller->buttonWithIndex(2, 1).get());
  }
}

TEST_F(controllerPlacingTest, AMovedButtonWhoseListWasReplacedBringsNoHighlightAlong) {
  Fill({1, 2});
  Fill({1}, 3);
  const Ref<clsButton> moved = controller->buttonWithIndex(2, 1);
  Pick(*moved);
  controller->setModeMove();
  controller->setButtonGroupButtonList(2, controller->getButtons(2).get());
  EXPECT_TRUE(moved->isHighlighted);
  Click(42);
  EXPECT_EQ(Buttons(3), "1@3/1 1@3/2");
  EXPECT_FALSE(moved->isHighlighted);
  EXPECT_EQ(Group(3)->highlightedButton, controller->buttonWithIndex(3, 1));
}

TEST_F(controllerPlacingTest, AMoveToAnotherPageMovesTheFilesAndTheButtonBelongsThere) {
  Fill({1, 2});
  const Ref<clsButton> moved = controller->buttonWithIndex(2, 1);
  const Ref<clsPage> first = Page();
  PickForPage2(*moved, false);
  Click(41);
  EXPECT_EQ(Text(*first->ButtonGroups(2)->buttons), "2@2/1");
  EXPECT_EQ(Buttons(3), "1@3/1");
  EXPECT_EQ(moved->Page(), Page());
  EXPECT_EQ(moved->Copy()->Page(), Page());
  EXPECT_THAT(PageBytes(), HasSubstr("usedIndices=1\r\nButton1_fields=2|"));
  EXPECT_THAT(files.Get(kSecondFile), HasSubstr("usedIndices=1\r\nButton1_fields=1|"));
  EXPECT_THAT(transcript.Take(),
              ElementsAre("CopyButtonFiles(1, Act 1, 1, Act 2, 1, true)", "setLED(245, 4, true)",
                          "RefreshPage(1, 3, -)", "DisableEditMode()", "SetFlashing(false)"));
}

TEST_F(controllerPlacingTest, ACrossPageMoveShowsTheLampsOfThePageInView) {
  Fill({1, 2});
  const Ref<clsButton> moved = controller->buttonWithIndex(2, 1);
  PickForPage2(*moved, false);
  Click(41);
  // Group 2 of the first page still has a button; the second page, which is shown, has none there.
  EXPECT_THAT(transcript.Take(), Not(Contains("setLED(245, 2, true)")));
}

TEST_F(controllerPlacingTest, AMoveToTheSameSlotOfAnotherPageMoves) {
  Fill({1});
  const Ref<clsButton> moved = controller->buttonWithIndex(2, 1);
  const Ref<clsPage> first = Page();
  PickForPage2(*moved, false);
  Click(37);
  EXPECT_EQ(Buttons(2), "1@2/1");
  EXPECT_EQ(first->ButtonGroups(2)->buttons->Size(), 0);
}

TEST_F(controllerPlacingTest, AButtonOfAnotherPageThanTheSourceLeavesItsOwn) {
  Fill({1});
  const Ref<clsButton> moved = controller->buttonWithIndex(2, 1);
  const Ref<clsPage> first = Page();
  Pick(*moved);
  SecondPage();
  // Only now is the move begun, on the second page.
  controller->setModeMove();
  Forget();
  Click(37);
  EXPECT_EQ(first->ButtonGroups(2)->buttons->Size(), 0);
  EXPECT_EQ(Buttons(2), "1@2/1");
  EXPECT_THAT(transcript.Take(), Contains("CopyButtonFiles(1, Act 1, 1, Act 2, 1, true)"));
}

TEST_F(controllerPlacingTest, AButtonOfTheBumpGroupLeavesItsOwnPageToo) {
  Fill({1}, 9);
  const Ref<clsButton> moved = controller->buttonWithIndex(9, 1);
  const Ref<clsPage> first = Page();
  Pick(*moved);
  SecondPage();
  controller->setModeMove();
  Click(37);
  EXPECT_EQ(first->ButtonGroups(9)->buttons->Size(), 0);
  EXPECT_EQ(Buttons(2), "1@2/1");
}

TEST_F(controllerPlacingTest, ATargetOutOfRangeLosesNoButton) {
  Fill({1, 2});
  const Ref<clsButton> moved = controller->buttonWithIndex(2, 1);
  Pick(*moved);
  controller->setModeMove();
  Forget();
  Group(3)->pageOffset = 10;
  const std::string before = PageBytes();
  EXPECT_EQ(DescriptionOf([&] { Click(41); }),
            u"41 - invalid buttonIndex: clsButtonGroupController.assignButtonInternal");
  EXPECT_EQ(PageBytes(), before);
  EXPECT_EQ(Buttons(2), "1@2/1 2@2/2");
  EXPECT_THAT(transcript.Take(), IsEmpty());
  // The mode is still on: the operator may try another target.
  Click(37 + 3);
  EXPECT_EQ(Buttons(2), "2@2/1 1@2/4");
}

TEST_F(controllerPlacingTest, ALockedPlayingButtonIsListedWhereItWent) {
  Fill({1});
  const Ref<clsButton> moved = controller->buttonWithIndex(2, 1);
  TurnOn(*moved);
  moved->SetLocked(true);
  Move(*moved, 41);
  EXPECT_EQ(Playing(2), "");
  EXPECT_EQ(Playing(3), "1@3/1");
  EXPECT_THAT(transcript.Take(), Contains("setLED(245, 4, false)"));
}

TEST_F(controllerPlacingTest, APlayingButtonIsListedInIndexOrderWhereItWent) {
  Fill({1});
  Fill({1}, 3);
  TurnOn(*controller->buttonWithIndex(3, 1));
  const Ref<clsButton> moved = controller->buttonWithIndex(2, 1);
  TurnOn(*moved);
  moved->SetLocked(true);
  moved->name = u"moved";
  Move(*moved, 41);
  EXPECT_EQ(Playing(3), "moved@3/1 1@3/2");
}

TEST_F(controllerPlacingTest, ACopyIsNamedAfterItsSource) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro", ButtonType_Multi);
  intro->SetLocked(true);
  Pick(*intro);
  controller->setModeCopy();
  Forget();
  Click(38);
  EXPECT_EQ(Buttons(2), "Intro@2/1 Intro copy@2/2");
  const Ref<clsButton> copy = controller->buttonWithIndex(2, 2);
  EXPECT_EQ(copy->buttonType, ButtonType_Multi);
  EXPECT_FALSE(copy->Locked());
  EXPECT_THAT(transcript.Take(),
              ElementsAre("CopyButtonFiles(2, Act 1, Intro, Act 1, Intro copy, false)",
                          "RefreshPage(1, 2, -)", "DisableEditMode()", "SetFlashing(false)"));
}

TEST_F(controllerPlacingTest, ACopyOntoATakenSlotIsInserted) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Pick(*intro);
  controller->setModeCopy();
  Click(37);
  EXPECT_EQ(Buttons(2), "Intro copy@2/1 Intro@2/2");
}

TEST_F(controllerPlacingTest, ACopyOnAnotherPageBelongsThere) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  const Ref<clsPage> first = Page();
  PickForPage2(*intro, true);
  Click(41);
  EXPECT_EQ(Text(*first->ButtonGroups(2)->buttons), "Intro@2/1");
  const Ref<clsButton> copy = controller->buttonWithIndex(3, 1);
  EXPECT_EQ(copy->Page(), Page());
  EXPECT_EQ(intro->Page(), first);
  EXPECT_THAT(transcript.Take(), Contains("CopyButtonFiles(1, Act 1, Intro, Act 2, Intro copy, false)"));
}

TEST_F(controllerPlacingTest, ACopyOutOfRangeCopiesNoFiles) {
  const Ref<clsButton> intro = Assign(2, 1, u"Intro");
  Pick(*intro);
  controller->setModeCopy();
  Forget();
  Group(3)->pageOffset = 10;
  EXPECT_RAISES(BGCErr_ButtonIndexOutOfRange, Click(41));
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerPlacingTest, AMoveFinishedFromWithinAMoveLeavesTheButtonInOnePlace) {
  Fill({1, 2});
  const Ref<clsButton> moved = controller->buttonWithIndex(2, 1);
  Pick(*moved);
  controller->setModeMove();
  hostServices.onPump = [&] {
    hostServices.onPump = nullptr;
    Click(45);
  };
  Click(41);
  int places = 0;
  const Ref<clsObjectList> all = controller->getButtons();
  for (Object* item : all->Snapshot()) places += item == moved.get() ? 1 : 0;
  EXPECT_EQ(places, 1);
  EXPECT_EQ(Buttons(3), "1@3/1");
}

}  // namespace
}  // namespace vestrel::test
