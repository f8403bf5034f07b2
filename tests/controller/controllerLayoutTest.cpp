// Which button a control shows, paging of groups, the highlight.
#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class controllerLayoutTest : public ControllerFixture {
 protected:
  controllerLayoutTest() { NewShow(); }
  // Buttons named by their index in group 2.
  void Fill(const std::vector<std::int32_t>& indices, std::int32_t group = 2) {
    for (const std::int32_t index : indices) Assign(group, index, LongToText(index));
  }
  // A list of new buttons named "New".
  Ref<clsObjectList> ListOf(std::int32_t group, const std::vector<std::int32_t>& indices) {
    Ref<clsObjectList> list = MakeRef<clsObjectList>();
    for (const std::int32_t index : indices) {
      const auto button = MakeRef<clsButton>();
      button->InitWithValues(Page().get(), group, index, u"New", ButtonType_Multi, controller.get());
      list->AddItem(button.get());
    }
    return list;
  }
  std::string Highlight() { return Text(controller->getHighlightedButton(2)); }
};

TEST_F(controllerLayoutTest, BeforeInitQuietOperationsAnswerNothingAndOthersRaise) {
  const auto fresh = MakeRef<clsButtonGroupController>();
  std::int32_t before = 3;
  EXPECT_EQ(fresh->getPageOffset(1), 0);
  EXPECT_FALSE(fresh->changeButtonGroupPageOffset(1, PageDir_Next));
  EXPECT_FALSE(fresh->getNextButton(1, 1));
  EXPECT_FALSE(fresh->buttonWithIndex(1, 1));
  EXPECT_EQ(fresh->getButtons()->Size(), 0);
  EXPECT_FALSE(fresh->buttonIsVisible(nullptr));
  EXPECT_RAISES(0, fresh->highlightButton(1, Highlight_Next));
  EXPECT_RAISES(0, fresh->resetVisibility());
  EXPECT_RAISES(0, fresh->setButtonGroupPageSize(4));
  EXPECT_RAISES(91, fresh->getVisibleGroupButtons(1));
  EXPECT_RAISES(91, fresh->getPrevButton(1, before));
  EXPECT_RAISES(91, fresh->goToPageWithButtonIndex(1, 1));
  EXPECT_RAISES(91, fresh->getHighlightedButton(1));
  EXPECT_RAISES(91, fresh->buttonAtControlIndex(33));
  EXPECT_RAISES(91, fresh->setButtonGroupButtonList(1, MakeRef<clsObjectList>().get()));
}

TEST_F(controllerLayoutTest, AGroupOutsideTheTenIsQuietNoneOrRaises) {
  std::int32_t before = 3;
  for (const std::int32_t group : {-1, 10}) {
    EXPECT_EQ(controller->getPageOffset(group), 0);
    EXPECT_FALSE(controller->changeButtonGroupPageOffset(group, PageDir_Next));
    EXPECT_FALSE(controller->getNextButton(group, 1));
    EXPECT_FALSE(controller->buttonWithIndex(group, 1));
    EXPECT_FALSE(controller->getVisibleGroupButtons(group));
    EXPECT_RAISES(0, controller->highlightButton(group, Highlight_Next));
    EXPECT_RAISES(9, controller->getPrevButton(group, before));
    EXPECT_RAISES(9, controller->goToPageWithButtonIndex(group, 9));
    EXPECT_RAISES(9, controller->getHighlightedButton(group));
  }
  EXPECT_EQ(controller->getButtons(10)->Size(), 0);
}

TEST_F(controllerLayoutTest, ControlsMapOntoGroupsAndSlots) {
  struct Row {
    std::int32_t control, group, index;
  };
  for (const Row& row : {Row{1, 0, 1}, Row{32, 0, 32}, Row{33, 1, 1}, Row{36, 1, 4}, Row{37, 2, 1},
                         Row{64, 8, 4}, Row{65, 9, 1}}) {
    const Ref<clsButton> button = Assign(row.group, row.index, u"b");
    EXPECT_EQ(controller->buttonAtControlIndex(row.control), button) << row.control;
    controller->removeButton(button.get());
    EXPECT_FALSE(controller->buttonAtControlIndex(row.control)) << row.control;
  }
}

TEST_F(controllerLayoutTest, AControlShowsTheButtonOfTheRunInView) {
  Fill({1, 5, 9});
  EXPECT_EQ(Text(controller->buttonAtControlIndex(37)), "1@2/1");
  controller->changeButtonGroupPageOffset(2, PageDir_Next);
  EXPECT_EQ(Text(controller->buttonAtControlIndex(37)), "5@2/5");
  EXPECT_EQ(Text(controller->buttonAtControlIndex(38)), "-");
}

TEST_F(controllerLayoutTest, ASizeOfZeroCannotBeDividedBy) {
  controller->setButtonGroupPageSize(0);
  EXPECT_RAISES(11, controller->buttonAtControlIndex(33));
  EXPECT_RAISES(11, controller->goToPageWithButtonIndex(1, 1));
  EXPECT_RAISES(11, Click(33));
}

TEST_F(controllerLayoutTest, IndicesThatLeave32BitsRaise) {
  Group(2)->pageOffset = 1000000000;
  EXPECT_RAISES(6, controller->buttonAtControlIndex(37));
  EXPECT_RAISES(6, controller->getVisibleGroupButtons(2));
  EXPECT_RAISES(6, controller->goToPageWithButtonIndex(2, -2147483648));
}

TEST_F(controllerLayoutTest, PagingStepsWithinTenRunsAndSavesInAnyCase) {
  struct Row {
    std::int32_t offset;
    PageDirEnum direction;
    bool moved;
    std::int32_t result;
  };
  const auto onward = static_cast<PageDirEnum>(5);
  for (const Row& row :
       {Row{0, PageDir_Prev, false, 0}, Row{0, PageDir_Next, true, 1}, Row{9, PageDir_Next, false, 9},
        Row{9, PageDir_Prev, true, 8}, Row{1, PageDir_Prev, true, 0}, Row{8, onward, true, 9},
        Row{11, PageDir_Next, false, 11}, Row{-1, PageDir_Prev, false, -1}}) {
    Group(2)->pageOffset = row.offset;
    files.Put(kPageFile, "");
    EXPECT_EQ(controller->changeButtonGroupPageOffset(2, row.direction), row.moved);
    EXPECT_EQ(controller->getPageOffset(2), row.result);
    EXPECT_EQ(PageBytes(),
              "[ButtonGroup2]\r\npageOffset=" + std::to_string(row.result) + "\r\nfaderValue=0\r\n");
  }
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerLayoutTest, APageThatCannotBeSavedStillHasMoved) {
  hostServices.onPump = [] { RaiseError(Error_InvalidProcedureCall); };
  EXPECT_TRUE(controller->changeButtonGroupPageOffset(2, PageDir_Next));
  EXPECT_EQ(controller->getPageOffset(2), 1);
}

TEST_F(controllerLayoutTest, VisibleButtonsAreThoseOfTheRun) {
  Fill({1, 4, 5, 8, 9});
  EXPECT_EQ(Text(*controller->getVisibleGroupButtons(2)), "1@2/1 4@2/4");
  controller->changeButtonGroupPageOffset(2, PageDir_Next);
  EXPECT_EQ(Text(*controller->getVisibleGroupButtons(2)), "5@2/5 8@2/8");
  EXPECT_NE(controller->getVisibleGroupButtons(2), Group(2)->buttons);
}

TEST_F(controllerLayoutTest, TopAndBumpButtonsAreVisibleWhateverTheRun) {
  Fill({1, 8, 9}, 9);
  Fill({1, 32}, 0);
  Group(9)->pageOffset = 3;
  EXPECT_EQ(Text(*controller->getVisibleGroupButtons(9)), "1@9/1 8@9/8");
  EXPECT_EQ(controller->getVisibleGroupButtons(0), Group(0)->buttons);
}

TEST_F(controllerLayoutTest, TheButtonBeforeAnIndex) {
  std::int32_t before = -3;
  EXPECT_FALSE(controller->getPrevButton(2, before));
  Fill({2});
  EXPECT_EQ(Text(controller->getPrevButton(2, before)), "2@2/2");
  EXPECT_EQ(before, -3);
  Fill({5, 9});
  EXPECT_EQ(Text(controller->getPrevButton(2, before)), "9@2/9");
  EXPECT_EQ(before, 999999);
  before = 2;
  EXPECT_EQ(Text(controller->getPrevButton(2, before)), "9@2/9");
  before = 9;
  EXPECT_EQ(Text(controller->getPrevButton(2, before)), "5@2/5");
  EXPECT_EQ(before, 9);
}

TEST_F(controllerLayoutTest, TheButtonAfterAnIndex) {
  EXPECT_FALSE(controller->getNextButton(2, 1));
  Fill({2, 5, 9});
  EXPECT_EQ(Text(controller->getNextButton(2, 9)), "2@2/2");
  EXPECT_EQ(Text(controller->getNextButton(2, -1)), "2@2/2");
  EXPECT_EQ(Text(controller->getNextButton(2, 3)), "5@2/5");
}

TEST_F(controllerLayoutTest, ThePageSizeIsLoggedAndLaysNothingOut) {
  Group(2)->pageOffset = 3;
  Forget();
  controller->setButtonGroupPageSize(6);
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] BGC setButtonGroupPageSize: 6"));
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_EQ(controller->getPageOffset(2), 3);
}

TEST_F(controllerLayoutTest, APageSizeBelowZeroShowsNoButtons) {
  Fill({1, 2}, 1);
  controller->setButtonGroupPageSize(-1);
  EXPECT_EQ(controller->getVisibleGroupButtons(1)->Size(), 0);
}

TEST_F(controllerLayoutTest, GoingToAnIndexShowsItsRunUnbounded) {
  files.Put(kPageFile, "as it was");
  EXPECT_TRUE(controller->goToPageWithButtonIndex(2, 45));
  EXPECT_EQ(controller->getPageOffset(2), 11);
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(1, 2, -)"));
  EXPECT_EQ(PageBytes(), "as it was");
  EXPECT_FALSE(controller->goToPageWithButtonIndex(2, 48));
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

TEST_F(controllerLayoutTest, GoingToATopButtonShiftsTheTopButtons) {
  EXPECT_TRUE(controller->goToPageWithButtonIndex(0, 6));
  Assign(0, 2, u"Six");
  EXPECT_EQ(Text(controller->buttonAtControlIndex(2)), "Six@0/6");
}

struct HighlightStep {
  const char* from;
  HighlightDirEnum dir;
  const char* to;
};

TEST_F(controllerLayoutTest, TheHighlightMovesByDirection) {
  Fill({2, 5, 9});
  const auto other = static_cast<HighlightDirEnum>(8);
  const std::vector<HighlightStep> steps{{"5@2/5", Highlight_First, "2@2/2"},
                                         {"5@2/5", Highlight_Prev, "2@2/2"},
                                         {"2@2/2", Highlight_Prev, "9@2/9"},
                                         {"5@2/5", Highlight_Next, "9@2/9"},
                                         {"9@2/9", Highlight_Next, "2@2/2"},
                                         {"-", Highlight_First, "2@2/2"},
                                         {"-", Highlight_Prev, "9@2/9"},
                                         {"-", Highlight_Next, "2@2/2"},
                                         {"-", Highlight_NextAfter, "-"},
                                         {"5@2/5", Highlight_NextAfter, "5@2/5"},
                                         {"9@2/9", other, "9@2/9"}};
  for (const HighlightStep& step : steps) {
    for (Object* item : Group(2)->buttons->Snapshot()) {
      auto& button = Cast<clsButton>(item);
      button.isHighlighted = Transcript::Text(&button) == step.from;
      if (button.isHighlighted) Group(2)->highlightedButton = &button;
    }
    if (step.from == std::string("-")) Group(2)->highlightedButton = nullptr;
    controller->highlightButton(2, step.dir, false);
    EXPECT_EQ(Highlight(), step.to) << step.from << " " << step.dir;
    for (Object* item : Group(2)->buttons->Snapshot()) {
      const auto& button = Cast<clsButton>(item);
      EXPECT_EQ(button.isHighlighted, Group(2)->highlightedButton == &button);
    }
  }
}

TEST_F(controllerLayoutTest, AButtonOfIndexZeroFromAFileComesFirst) {
  Group(2)->buttons->ExtendWith(ListOf(2, {0, 5}).get());
  controller->highlightButton(2, Highlight_First);
  EXPECT_EQ(Highlight(), "New@2/0");
}

TEST_F(controllerLayoutTest, TheHighlightGoesAfterTheButtonGiven) {
  Fill({2, 5, 9});
  controller->highlightButton(2, Highlight_NextAfter, false, controller->buttonWithIndex(2, 5).get());
  EXPECT_EQ(Highlight(), "9@2/9");
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(2, 0, 2@2/2)", "RefreshPage(2, 0, 9@2/9)"));
}

TEST_F(controllerLayoutTest, TheViewFollowsTheHighlightWhenAsked) {
  Fill({2, 3, 9});
  controller->highlightButton(2, Highlight_Next);
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(2, 0, 2@2/2)", "RefreshPage(2, 0, 3@2/3)"));
  controller->highlightButton(2, Highlight_Next);
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(2, 0, 3@2/3)", "RefreshPage(1, 2, -)"));
  EXPECT_EQ(controller->getPageOffset(2), 2);
}

TEST_F(controllerLayoutTest, HighlightingAnEmptyGroupClearsTheOldFlagAndRefreshesNothingMore) {
  const Ref<clsButton> gone = Assign(2, 1, u"Gone");
  Group(2)->buttons->SetEventHandler(nullptr, nullptr);
  Group(2)->buttons->Clear();
  controller->highlightButton(2, Highlight_Next);
  EXPECT_FALSE(gone->isHighlighted);
  EXPECT_EQ(Highlight(), "-");
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshPage(2, 0, Gone@2/1)"));
}

TEST_F(controllerLayoutTest, TheFlagIsDownWhileTheFormDrawsTheButtonLeft) {
  Fill({2, 5});
  const Ref<clsButton> left = controller->getHighlightedButton(2);
  bool flag = true;
  transcript.onCall = [&](const std::string& call) {
    if (call == "RefreshPage(2, 0, 2@2/2)") flag = left->isHighlighted;
  };
  controller->highlightButton(2, Highlight_Next);
  EXPECT_FALSE(flag);
}

TEST_F(controllerLayoutTest, AFailureWhileHighlightingIsQuiet) {
  Fill({2, 5});
  FailIn("RefreshPage", 5);
  EXPECT_RAISES(0, controller->highlightButton(2, Highlight_Next));
  EXPECT_EQ(Highlight(), "2@2/2");
}

TEST_F(controllerLayoutTest, ASearchForwardThatFailsLeavesNoHighlight) {
  for (const HighlightDirEnum dir : {Highlight_First, Highlight_Next, Highlight_NextAfter}) {
    Group(2)->buttons->Clear();
    const Ref<clsButton> one = Assign(2, 1, u"One");
    const auto list = MakeRef<clsObjectList>();
    list->AddItem(BoxString(u"no button").get());
    Group(2)->buttons = list;
    EXPECT_RAISES(0, controller->highlightButton(2, dir, true, one.get()));
    EXPECT_FALSE(Group(2)->highlightedButton);
    EXPECT_FALSE(one->isHighlighted);
    EXPECT_THAT(transcript.Take(), testing::ElementsAre("RefreshPage(2, 0, One@2/1)"));
    Group(2)->Init(2, controller.get());
  }
}

TEST_F(controllerLayoutTest, ASearchBackwardThatFailsLeavesTheHighlightWhereItWas) {
  const Ref<clsButton> one = Assign(2, 1, u"One");
  const auto list = MakeRef<clsObjectList>();
  list->AddItem(BoxString(u"no button").get());
  Group(2)->buttons = list;
  EXPECT_RAISES(0, controller->highlightButton(2, Highlight_Prev));
  EXPECT_EQ(Group(2)->highlightedButton, one);
  EXPECT_TRUE(one->isHighlighted);
  EXPECT_THAT(transcript.Take(), testing::ElementsAre("RefreshPage(2, 0, One@2/1)"));
}

TEST_F(controllerLayoutTest, ASearchThatFailsWhereNothingWasHighlightedTellsTheHost) {
  const auto list = MakeRef<clsObjectList>();
  list->AddItem(BoxString(u"no button").get());
  Group(2)->buttons = list;
  for (const HighlightDirEnum dir : {Highlight_First, Highlight_Prev, Highlight_Next}) {
    EXPECT_RAISES(0, controller->highlightButton(2, dir));
    EXPECT_FALSE(Group(2)->highlightedButton);
  }
  EXPECT_THAT(transcript.Take(), testing::IsEmpty());
}

TEST_F(controllerLayoutTest, AHighlightMovedFromTheCallbackLeavesOneFlag) {
  Fill({2, 5, 9});
  InFirst("", [&] { controller->highlightButton(2, Highlight_Next, false); });
  controller->highlightButton(2, Highlight_Next, false);
  int flags = 0;
  for (Object* item : Group(2)->buttons->Snapshot()) flags += Cast<clsButton>(item).isHighlighted ? 1 : 0;
  EXPECT_EQ(flags, 1);
  EXPECT_TRUE(Group(2)->highlightedButton->isHighlighted);
}

TEST_F(controllerLayoutTest, AButtonDeletedWhileItLosesTheHighlightIsNotItAnyMore) {
  Fill({2, 5, 9});
  InFirst("", [&] { Group(2)->buttons->Remove(0); });
  controller->highlightButton(2, Highlight_NextAfter, false);
  EXPECT_EQ(Highlight(), "5@2/5");
  EXPECT_TRUE(Group(2)->highlightedButton->isHighlighted);
}

TEST_F(controllerLayoutTest, AButtonIsFoundByItsIndex) {
  Fill({2, 5});
  EXPECT_EQ(Text(controller->buttonWithIndex(2, 5)), "5@2/5");
  EXPECT_FALSE(controller->buttonWithIndex(2, 3));
  EXPECT_FALSE(controller->buttonWithIndex(3, 5));
}

TEST_F(controllerLayoutTest, AReplacedListIsSavedAndThePageReadAnew) {
  const Ref<clsButton> old = Assign(2, 1, u"Old");
  TurnOn(*Assign(3, 1, u"Playing"));
  const Ref<clsObjectList> list = ListOf(2, {1, 3});
  const Ref<clsPage> page = Page();
  controller->setButtonGroupButtonList(2, list.get());
  EXPECT_EQ(Page(), page);
  EXPECT_EQ(Buttons(2), "New@2/1 New@2/3");
  EXPECT_NE(Group(2)->buttons, list);
  EXPECT_EQ(Text(controller->getHighlightedButton(2)), "New@2/1");
  EXPECT_EQ(controller->buttonWithIndex(3, 1)->playState(), PlayState_Off);
  EXPECT_EQ(Playing(3), "");
  EXPECT_THAT(PageBytes(), HasSubstr("usedIndices=1|3\r\n"));
  EXPECT_EQ(transcript.Take()[0], "GetUIFaderValues()");
  EXPECT_EQ(old->name, u"Old");
}

TEST_F(controllerLayoutTest, TopAndBumpGroupsTakeAReplacedListToo) {
  for (const std::int32_t g : {0, 9}) {
    controller->setButtonGroupButtonList(g, ListOf(g, {1, 3}).get());
    const std::string at = "New@" + std::to_string(g);
    EXPECT_EQ(Buttons(g), at + "/1 " + at + "/3");
    EXPECT_FALSE(Group(g)->highlightedButton);
  }
}

TEST_F(controllerLayoutTest, OnAPageThatIsNotReadAReplacedListIsWrittenAndGone) {
  controller->SetPersist(false);
  controller->AddPage(u"Act 2");
  controller->SetPage(u"Act 2");
  Forget();
  controller->setButtonGroupButtonList(2, ListOf(2, {1, 3}).get());
  EXPECT_EQ(Buttons(2), "");
  EXPECT_THAT(files.Get(u"C:\\app\\Sequences\\Gala\\Act 2\\pageSetting.ini"),
              HasSubstr("usedIndices=1|3\r\n"));
  EXPECT_EQ(transcript.Take()[0], "GetUIFaderValues()");
}

TEST_F(controllerLayoutTest, AReplacedListOfAPageThatCannotBeReadIsNotWrittenOverItsFile) {
  Assign(2, 1, u"Old");
  const std::string before = PageBytes();
  files.FailEvery("ReadAt", platform::FileStatus::Busy);
  EXPECT_RAISES(70, controller->setButtonGroupButtonList(2, ListOf(2, {1, 3}).get()));
  files.FailNothing();
  controller->formShutdown();
  EXPECT_EQ(PageBytes(), before);
}

TEST_F(controllerLayoutTest, AListThatCannotBeAGroupsIsRefused) {
  Fill({1});
  const auto list = MakeRef<clsObjectList>();
  list->AddItem(list.get());
  EXPECT_RAISES(91, controller->setButtonGroupButtonList(2, nullptr));
  EXPECT_RAISES(13, controller->setButtonGroupButtonList(2, list.get()));
  EXPECT_RAISES(9, controller->setButtonGroupButtonList(10, MakeRef<clsObjectList>().get()));
  EXPECT_EQ(Buttons(2), "1@2/1");
  // The list held itself.
  const auto spare = MakeRef<clsString>();
  list->Clear();
  list->AddItem(spare.get());
}

TEST_F(controllerLayoutTest, ButtonsOfAllGroupsComeInGroupOrder) {
  Assign(9, 1, u"Bump");
  Assign(0, 1, u"Top");
  Assign(3, 2, u"Multi", ButtonType_Multi);
  Assign(3, 1, u"Intro");
  EXPECT_EQ(Text(*controller->getButtons()), "Top@0/1 Intro@3/1 Multi@3/2 Bump@9/1");
  EXPECT_EQ(Text(*controller->getButtons(3)), "Intro@3/1 Multi@3/2");
  EXPECT_NE(controller->getButtons(3), Group(3)->buttons);
  EXPECT_EQ(Text(*controller->getButtons(-1, ButtonType_Multi)), "Multi@3/2");
  EXPECT_EQ(Text(*controller->getButtons(9, ButtonType_Multi)), "");
}

TEST_F(controllerLayoutTest, AButtonIsVisibleWithinTheRunOfItsGroup) {
  const Ref<clsButton> first = Assign(2, 4, u"First");
  const Ref<clsButton> second = Assign(2, 5, u"Second");
  const Ref<clsButton> bump = Assign(9, 5, u"Bump");
  EXPECT_TRUE(controller->buttonIsVisible(first.get()));
  EXPECT_FALSE(controller->buttonIsVisible(second.get()));
  EXPECT_FALSE(controller->buttonIsVisible(bump.get()));
  controller->goToPageWithButtonIndex(2, 5);
  EXPECT_FALSE(controller->buttonIsVisible(first.get()));
  EXPECT_TRUE(controller->buttonIsVisible(second.get()));
  second->groupIndex = 12;
  EXPECT_FALSE(controller->buttonIsVisible(second.get()));
}

TEST_F(controllerLayoutTest, ATopButtonIsVisibleByTheSameRange) {
  const Ref<clsButton> inside = Assign(0, 4, u"Inside");
  const Ref<clsButton> outside = Assign(0, 5, u"Outside");
  EXPECT_TRUE(controller->buttonIsVisible(inside.get()));
  EXPECT_FALSE(controller->buttonIsVisible(outside.get()));
}

TEST_F(controllerLayoutTest, ResettingVisibilityTakesEveryControlAway) {
  const Ref<clsButton> one = Assign(2, 1, u"One");
  const Ref<clsButton> top = Assign(0, 1, u"Top");
  const auto show = [&] {
    for (const auto& button : {one, top}) {
      button->isVisible = true;
      button->controlIndex = 37;
    }
  };
  show();
  controller->resetVisibility(2);
  EXPECT_FALSE(one->isVisible);
  EXPECT_EQ(one->controlIndex, -1);
  EXPECT_TRUE(top->isVisible);
  show();
  controller->resetVisibility();
  EXPECT_FALSE(one->isVisible);
  EXPECT_EQ(top->controlIndex, -1);
  EXPECT_THAT(transcript.Take(), IsEmpty());
}

}  // namespace
}  // namespace vestrel::test
