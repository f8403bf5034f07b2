// What the host guide's table of limits and traps says, where no other test does.
#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class TrapsTest : public ControllerFixture {
 protected:
  void SetUp() override { NewShow(); }

  std::string ShowBytes() const { return files.Get(kShowFile); }
  std::string NameAt(std::int32_t group, std::int32_t position) const {
    return ToUtf8(Cast<clsButton>(Group(group)->buttons->GetItem(position).get()).name);
  }
  // Whether `action` changes the page's file.
  template <class Action>
  bool Saves(Action action) {
    const std::string before = PageBytes();
    action();
    return PageBytes() != before;
  }
};

TEST_F(TrapsTest, ANewShowOfAnOldNameHasNoPages) {
  Assign(1, 1, u"Harbour");
  controller->CreateNewShow(u"Gala");
  EXPECT_THAT(ShowBytes(), HasSubstr("PageList=\r\n"));
  controller->SetPage(u"Act 1");
  EXPECT_EQ(Buttons(1), "");
  EXPECT_THAT(PageBytes(), HasSubstr("usedIndices=\r\n"));
}

TEST_F(TrapsTest, ALoadedShowThatIsNotThereIsEmpty) {
  controller->LoadShow(u"Gaal");
  EXPECT_THAT(Names(controller->GetPageNames()), IsEmpty());
}

TEST_F(TrapsTest, AMisspeltPageIsMadeButNotShown) {
  controller->SetPage(u"Act1");
  EXPECT_EQ(Names(controller->GetPageNames()), "Act 1|Act1");
  EXPECT_EQ(ToUtf8(Page()->pageName()), "Act 1");
}

TEST_F(TrapsTest, ARenamedPageHasItsButtonsInTheNewFileAfterTheNextFullSave) {
  Assign(1, 1, u"Harbour");
  controller->RenamePage(u"Act 1", u"Prologue");
  const std::u16string_view file = u"C:\\app\\Sequences\\Gala\\Prologue\\pageSetting.ini";
  EXPECT_THAT(files.Get(file), Not(HasSubstr("Harbour")));
  controller->PageManager()->saveToINI();
  EXPECT_THAT(files.Get(file), HasSubstr("Button1_fields=Harbour|"));
}

TEST_F(TrapsTest, ADeletedPageLeavesItsFileAndIsEmptyWhenMadeAgain) {
  Assign(1, 1, u"Harbour");
  controller->AddPage(u"Act 2");
  controller->SetPage(u"Act 2");
  controller->DeletePage(u"Act 1");
  EXPECT_THAT(PageBytes(), HasSubstr("Harbour"));
  controller->AddPage(u"Act 1");
  controller->SetPage(u"Act 1");
  EXPECT_EQ(Buttons(1), "");
}

TEST_F(TrapsTest, ShutdownSwitchesOffTheCurrentPageOnly) {
  const auto harbour = Assign(1, 1, u"Harbour");
  TurnOn(*harbour);
  controller->AddPage(u"Act 2");
  controller->SetPage(u"Act 2");
  EXPECT_EQ(harbour->playState(), PlayState_On);
  controller->formShutdown();
  EXPECT_EQ(harbour->playState(), PlayState_On);
  controller->clearAll();
  EXPECT_EQ(harbour->playState(), PlayState_Off);
}

TEST_F(TrapsTest, ALockedButtonOutlivesEveryRelease) {
  const auto harbour = Assign(1, 1, u"Harbour");
  TurnOn(*harbour);
  harbour->SetLocked(true);
  controller->releaseButtonsOnPage(-1);
  controller->clearAll();
  controller->formShutdown();
  EXPECT_EQ(harbour->playState(), PlayState_On);
}

TEST_F(TrapsTest, AnIndexTakenTwiceInTheBumpGroupKeepsOneOfTheTwo) {
  Assign(9, 1, u"Strobe");
  Assign(9, 1, u"Flash");
  EXPECT_NE(NameAt(9, 0), NameAt(9, 1));
  EXPECT_THAT(PageBytes(), HasSubstr("usedIndices=1|1\r\n"));
  controller->LoadShow(u"Gala");
  EXPECT_EQ(Group(9)->buttons->Size(), 2);
  EXPECT_EQ(NameAt(9, 0), NameAt(9, 1));
}

TEST_F(TrapsTest, TheseChangesWaitForTheNextSaveOfTheirGroup) {
  const auto harbour = Assign(1, 1, u"Harbour");
  const auto fog = Assign(1, 2, u"Fog");
  const auto strobe = Assign(9, 1, u"Strobe");
  TurnOn(*fog);
  TurnOn(*strobe);
  Pick(*harbour);
  EXPECT_FALSE(Saves([&] { controller->ToggleBumpMode(); }));
  EXPECT_FALSE(Saves([&] { controller->ToggleLockState(); }));
  EXPECT_FALSE(Saves([&] { controller->ChangeFaderMode(FaderMode_Speed); }));
  EXPECT_FALSE(Saves([&] { controller->BumpFaderChanged(1, 30, false); }));
  EXPECT_FALSE(Saves([&] { controller->goToPageWithButtonIndex(1, 9); }));
  EXPECT_FALSE(Saves([&] { controller->highlightButton(1, Highlight_Next); }));
  EXPECT_FALSE(Saves([&] { controller->releaseButtonsOnPage(1); }));
  EXPECT_EQ(fog->playState(), PlayState_Off);
  EXPECT_TRUE(Saves([&] { controller->PageManager()->saveToINI(); }));
}

TEST_F(TrapsTest, TheHostsMessagesRunWhereAGroupIsSavedAndNotInAClick) {
  Assign(1, 1, u"Harbour");
  const auto pumps = [this](const auto& action) {
    const int before = hostServices.pumps;
    action();
    return hostServices.pumps - before;
  };
  EXPECT_EQ(pumps([&] { Click(33); }), 0);
  EXPECT_EQ(pumps([&] { controller->releaseButtonsOnPage(-1); }), 0);
  EXPECT_EQ(pumps([&] { controller->groupFaderChanged(1, 40); }), 1);
  EXPECT_EQ(pumps([&] { controller->changeButtonGroupPageOffset(1, PageDir_Next); }), 1);
  EXPECT_EQ(pumps([&] { controller->assignButton(2, 1, u"Fog", ButtonType_Auto); }), 1);
  EXPECT_EQ(pumps([&] { controller->AddPage(u"Act 2"); }), 10);
  EXPECT_EQ(pumps([&] { controller->SetPage(u"Act 2"); }), 0);
  EXPECT_EQ(pumps([&] { controller->RenamePage(u"Act 2", u"Act 3"); }), 0);
  EXPECT_EQ(pumps([&] { controller->formShutdown(); }), 20);
}

TEST_F(TrapsTest, AButtonOfAnotherPageIsSavedIntoTheCurrentOne) {
  const auto harbour = Assign(1, 1, u"Harbour");
  controller->AddPage(u"Act 2");
  controller->SetPage(u"Act 2");
  Assign(1, 1, u"Fog");
  const std::u16string_view file = u"C:\\app\\Sequences\\Gala\\Act 2\\pageSetting.ini";
  harbour->setPlayState(PlayState_On, PSEventSource_RecPlayback, 1, 0, 0, 0);
  EXPECT_THAT(files.Get(file), HasSubstr("Button1_fields=Harbour|"));
  controller->PageManager()->saveToINI();
  EXPECT_THAT(files.Get(file), HasSubstr("Button1_fields=Fog|"));
}

TEST_F(TrapsTest, BringingATopButtonIntoViewShiftsTheTopButtons) {
  Assign(0, 17, u"Blackout");
  EXPECT_EQ(Text(controller->buttonAtControlIndex(17)), "Blackout@0/17");
  controller->ToggleButtonAt(0, 17);
  EXPECT_EQ(Text(controller->buttonAtControlIndex(17)), "-");
  EXPECT_EQ(Text(controller->buttonAtControlIndex(1)), "Blackout@0/17");
  Group(0)->pageOffset = 0;
  EXPECT_EQ(Text(controller->buttonAtControlIndex(17)), "Blackout@0/17");
}

TEST_F(TrapsTest, ReleasingAllGroupsReleasesTopAndBumpButtonsToo) {
  const auto blackout = Assign(0, 1, u"Blackout");
  const auto strobe = Assign(9, 1, u"Strobe");
  TurnOn(*blackout);
  TurnOn(*strobe);
  controller->releaseButtonsOnPage(0);
  controller->releaseButtonsOnPage(9);
  EXPECT_EQ(blackout->playState(), PlayState_On);
  EXPECT_EQ(strobe->playState(), PlayState_On);
  controller->releaseButtonsOnPage(-1);
  EXPECT_EQ(blackout->playState(), PlayState_Off);
  EXPECT_EQ(strobe->playState(), PlayState_Off);
}

TEST_F(TrapsTest, ALampThatBlinkedBeforeTheSurfaceWentDarkBlinksAgainWithTheNextOne) {
  const auto harbour = Assign(1, 1, u"Harbour");
  TurnOn(*harbour);
  controller->CreateNewShow(u"Other");
  controller->SetPage(u"Act 1");
  const auto other = Assign(2, 1, u"Other");
  TurnOn(*other);
  controller->mLEDManager->TimerTick();
  EXPECT_THAT(transcript.Take(), ElementsAre("setLED(245, 3, true)"));
}

TEST_F(TrapsTest, AnotherPageSizeLeavesRunsAndButtonsWhereTheyAre) {
  Assign(1, 9, u"Far");
  controller->goToPageWithButtonIndex(1, 9);
  controller->setButtonGroupPageSize(8);
  EXPECT_EQ(controller->getPageOffset(1), 2);
  EXPECT_EQ(Text(controller->buttonAtControlIndex(33)), "-");
}

TEST_F(TrapsTest, PagesThatDoNotPersistWriteAButtonThatChangesAllTheSame) {
  controller->SetPersist(false);
  controller->CreateNewShow(u"Gala");
  controller->AddPage(u"Act 1");
  EXPECT_THAT(ShowBytes(), HasSubstr("PageList=Act 1\r\n"));
  const auto harbour = Assign(1, 1, u"Harbour");
  EXPECT_THAT(PageBytes(), Not(HasSubstr("Harbour")));
  TurnOn(*harbour);
  EXPECT_THAT(PageBytes(), HasSubstr("Button1_fields=Harbour|1|1|"));
}

TEST_F(TrapsTest, TheMapOfButtonsIsThatOfTheCurrentPage) {
  Assign(1, 1, u"Harbour");
  controller->AddPage(u"Act 2");
  controller->SetPage(u"Act 2");
  EXPECT_FALSE(controller->GetButtonMap()->HasKey(u"Harbour"));
}

}  // namespace
}  // namespace vestrel::test
