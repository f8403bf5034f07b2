#include "controller/clsPageManager.h"
#include "tests/controller/ControllerFixture.h"
#include "tests/support/Ending.h"

namespace vestrel::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A manager of its own beside the controller's, which only answers for the faders.
class clsPageManagerTest : public ControllerFixture {
 protected:
  clsPageManagerTest() { manager->Init(kApp, controller.get()); }

  void NewShow() {
    manager->setShow(u"Gala", true);
    Forget();
  }
  void Reload() {
    manager = MakeRef<clsPageManager>();
    manager->Init(kApp, controller.get());
    manager->setShow(u"Gala");
  }

  Ref<clsPageManager> manager = MakeRef<clsPageManager>();
};

std::u16string PageFile(std::u16string_view name) {
  std::u16string path = u"C:\\app\\Sequences\\Gala\\";
  path.append(name).append(u"\\pageSetting.ini");
  return path;
}

TEST_F(clsPageManagerTest, StartsWithNoShowAndThePlaceholderPage) {
  EXPECT_EQ(manager->showName(), u"$$null_show$$");
  EXPECT_EQ(manager->CurrentPageName(), u"$$null_page$$");
  EXPECT_EQ(manager->CurrentPage()->pageName(), u"$$null_page$$");
  EXPECT_EQ(manager->PageList()->Size(), 0);
  EXPECT_EQ(manager->GetPageNames()->Size(), 0);
  EXPECT_FALSE(manager->IsLoading());
  EXPECT_FALSE(manager->PageIsValid());
}

TEST_F(clsPageManagerTest, TheEndOfWhatInitReplacesMaySetAShow) {
  NewShow();
  manager->SetPage(u"Act 1");
  {
    const Ref<clsButton> guest = MakeRef<clsButton>();
    guest->Init(MakeRef<Ending<IButtonEventHandler>>([this] { manager->setShow(u"Gala"); }).get(), nullptr);
    manager->CurrentPage()->ButtonGroups(2)->buttons->AddItem(guest.get());
  }
  manager->Init(kApp, controller.get());
  EXPECT_EQ(manager->showName(), u"Gala");
  EXPECT_EQ(manager->CurrentPageName(), u"Act 1");
  EXPECT_TRUE(manager->PageIsValid());
}

TEST_F(clsPageManagerTest, WithoutInitAnswersNoPageAndRaises) {
  const auto fresh = MakeRef<clsPageManager>();
  EXPECT_EQ(fresh->CurrentPageName(), u"$$null_page$$");
  EXPECT_FALSE(fresh->CurrentPage());
  EXPECT_RAISES(91, fresh->GetPageNames());
  EXPECT_RAISES(91, fresh->saveToINI());
  EXPECT_RAISES(91, fresh->TestShowWritable());
}

TEST_F(clsPageManagerTest, WithoutInitAShowIsRefusedBeforeAnyFolderIsMade) {
  const auto fresh = MakeRef<clsPageManager>();
  files.ForgetCalls();
  EXPECT_RAISES(91, fresh->setShow(u"Gala", true));
  EXPECT_RAISES(91, fresh->setShow(u"Gala"));
  EXPECT_EQ(files.Calls("MakeDirectory"), 0);
  EXPECT_EQ(fresh->showName(), u"");
}

TEST_F(clsPageManagerTest, ANewShowHasAFolderAndAnEmptyPageList) {
  manager->setShow(u"Gala", true);
  EXPECT_EQ(manager->showName(), u"Gala");
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=\r\n");
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] CreateDirs() created dir [C:\\app\\Sequences]",
                                     "[Info] CreateDirs() created dir [C:\\app\\Sequences\\Gala]",
                                     "[Info] clsPageManager.setShow(): using INI path "
                                     "[C:\\app\\Sequences\\Gala\\pageSetting.ini]",
                                     "[Info] clsPageManager.setShow(): creating new show [Gala]",
                                     "[Info] clsPageManager.saveToINI(): writing to INI "
                                     "[C:\\app\\Sequences\\Gala\\pageSetting.ini]"));
  EXPECT_FALSE(manager->PageIsValid());
}

TEST_F(clsPageManagerTest, BeforeSetShowSavingOnlyLogs) {
  manager->saveToINI();
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] saveToINI: must set INI location in clsPageManager"));
  EXPECT_THAT(files.Paths(), ElementsAre(kLog));
}

TEST_F(clsPageManagerTest, ThePageListIsNamesJoinedInOrder) {
  NewShow();
  manager->SetPage(u"Act 1");
  manager->SetPage(u"Act 2");
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=Act 1|Act 2\r\n");
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1|Act 2");
}

TEST_F(clsPageManagerTest, TheFirstPageBecomesCurrentTheSecondOnlyWhenSetAgain) {
  NewShow();
  manager->SetPage(u"Act 1", true);
  EXPECT_EQ(manager->CurrentPageName(), u"Act 1");
  EXPECT_TRUE(manager->PageIsValid());
  manager->SetPage(u"Act 2", true);
  EXPECT_EQ(manager->CurrentPageName(), u"Act 1");
  manager->SetPage(u"Act 2", true);
  EXPECT_EQ(manager->CurrentPageName(), u"Act 2");
}

TEST_F(clsPageManagerTest, APageThatIsNotThereIsMadeWhateverCreateSays) {
  NewShow();
  manager->SetPage(u"Act 1", false);
  EXPECT_THAT(files.Get(PageFile(u"Act 1")), HasSubstr("[ButtonGroup9]"));
  EXPECT_THAT(files.Get(PageFile(u"Act 1")), HasSubstr("usedIndices=\r\n"));
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1");
}

TEST_F(clsPageManagerTest, AddingAPageWritesThatPageAndTheListOnly) {
  NewShow();
  manager->SetPage(u"Act 1");
  files.Put(PageFile(u"Act 1"), "as it was");
  manager->SetPage(u"Act 2");
  EXPECT_EQ(files.Get(PageFile(u"Act 1")), "as it was");
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=Act 1|Act 2\r\n");
}

TEST_F(clsPageManagerTest, SettingTheCurrentPageDoesNothing) {
  NewShow();
  manager->SetPage(u"Act 1");
  Forget();
  files.ForgetCalls();
  manager->SetPage(u"Act 1");
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_EQ(files.Calls(), 0);
}

TEST_F(clsPageManagerTest, SelectingAPageSavesNothingAndHandsTheFadersOver) {
  NewShow();
  manager->SetPage(u"Act 1");
  manager->SetPage(u"Act 2");
  const Ref<clsPage> first = manager->CurrentPage();
  form->positions.GroupFaders[3] = 40;
  first->ButtonGroups(3)->Fader()->SetOuterValue(0);
  EXPECT_TRUE(first->ButtonGroups(3)->Fader()->Engaged());
  Forget();
  files.ForgetCalls();
  manager->SetPage(u"Act 2");
  EXPECT_EQ(files.Calls(), 0);
  EXPECT_FALSE(first->ButtonGroups(3)->Fader()->Engaged());
  const Calls calls = transcript.Take();
  EXPECT_EQ(calls.size(), 9U);
  EXPECT_EQ(calls[0], "GetUIFaderValues()");
  EXPECT_EQ(calls[3], "UpdateFaderModelValue(0, 3, 0, false, -)");
  EXPECT_EQ(calls[4], "UpdateFaderModelValue(0, 4, 0, true, -)");
}

TEST_F(clsPageManagerTest, ThePlaceholderLosesNoFocus) {
  const Ref<clsPage> placeholder = manager->CurrentPage();
  placeholder->ButtonGroups(1)->Fader()->SetOuterValue(0);
  NewShow();
  manager->SetPage(u"Act 1");
  EXPECT_TRUE(placeholder->ButtonGroups(1)->Fader()->Engaged());
}

TEST_F(clsPageManagerTest, NamesAreMatchedExactly) {
  NewShow();
  manager->SetPage(u"Act 1");
  manager->SetPage(u"ACT 1");
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1|ACT 1");
  EXPECT_EQ(manager->CurrentPageName(), u"Act 1");
}

TEST_F(clsPageManagerTest, WithoutAShowTheOperatorIsTold) {
  manager->SetPage(u"Act 1");
  EXPECT_THAT(TakeLog(), ElementsAre("[Severe] BGC SetPage [Act 1]: attempted to set page on null show"));
  ASSERT_EQ(hostServices.boxes.size(), 1U);
  EXPECT_EQ(hostServices.boxes[0].caption, u"Error");
  EXPECT_EQ(hostServices.boxes[0].text,
            u"BGC SetPage: attempted to set page [Act 1] on null show.\r\n\r\nPlease report to Talvo Systems "
            u"Inc.");
  EXPECT_EQ(manager->PageList()->Size(), 0);
}

TEST_F(clsPageManagerTest, LoadingReadsThePagesAndMakesTheFirstCurrent) {
  NewShow();
  manager->SetPage(u"Act 1");
  manager->SetPage(u"Act 2");
  Forget();
  Reload();
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1|Act 2");
  EXPECT_EQ(manager->CurrentPage(), &Cast<clsPage>(manager->PageList()->GetItem(0).get()));
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] clsPageManager.setShow(): using INI path "
                                     "[C:\\app\\Sequences\\Gala\\pageSetting.ini]",
                                     "[Info] clsPageManager.setShow(): loading existing show [Gala]",
                                     "[Info] loading from page: Act 1", "[Info] loading from page: Act 2"));
  EXPECT_EQ(transcript.Take().size(), 9U);
}

TEST_F(clsPageManagerTest, LoadingAShowWithoutPagesKeepsThePageThatWasCurrent) {
  NewShow();
  manager->SetPage(u"Act 1");
  files.Put(u"C:\\app\\Sequences\\Empty\\pageSetting.ini", "[PageManager]\r\nPageList=\r\n");
  manager->setShow(u"Empty");
  EXPECT_EQ(manager->PageList()->Size(), 0);
  EXPECT_EQ(manager->CurrentPageName(), u"Act 1");
}

TEST_F(clsPageManagerTest, IsLoadingWhileThePagesAreRead) {
  NewShow();
  manager->SetPage(u"Act 1");
  bool during = false;
  transcript.onCall = [&](const std::string&) { during = during || manager->IsLoading(); };
  manager->setShow(u"Gala");
  EXPECT_TRUE(during);
  EXPECT_FALSE(manager->IsLoading());
}

TEST_F(clsPageManagerTest, AShowFileThatCannotBeReadIsNotTakenForAnEmptyShow) {
  NewShow();
  manager->SetPage(u"Act 1");
  const std::string before = files.Get(kShowFile);
  manager->Init(kApp, controller.get());
  files.FailEvery("ReadAt", platform::FileStatus::IoError);
  EXPECT_RAISES(Error_DeviceIO, manager->setShow(u"Gala"));
  files.FailNothing();
  manager->saveToINI();
  EXPECT_EQ(files.Get(kShowFile), before);
}

TEST_F(clsPageManagerTest, ALogThatFailsBeforeTheLoadLeavesTheShowFileAsItWas) {
  NewShow();
  manager->SetPage(u"Act 1");
  const std::string before = files.Get(kShowFile);
  manager->Init(kApp, controller.get());
  files.FailEvery("WriteAt", platform::FileStatus::DiskFull);
  EXPECT_RAISES(Error_DiskFull, manager->setShow(u"Gala"));
  files.FailNothing();
  manager->saveToINI();
  EXPECT_EQ(files.Get(kShowFile), before);
}

TEST_F(clsPageManagerTest, AFailedLoadLeavesTheShowFileUnboundAndAsItWas) {
  NewShow();
  manager->SetPage(u"Act 1");
  manager->SetPage(u"Act 2");
  files.Put(PageFile(u"Act 2"), "[ButtonGroup3]\r\npageOffset=much\r\n");
  EXPECT_RAISES(13, Reload());
  EXPECT_FALSE(manager->IsLoading());
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1");
  Forget();
  manager->saveToINI(true);
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] saveToINI: must set INI location in clsPageManager"));
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=Act 1|Act 2\r\n");
}

// The show "Gala" of three pages, each with one button, whose second page cannot be read.
class clsPageManagerHalfLoadedTest : public clsPageManagerTest {
 protected:
  clsPageManagerHalfLoadedTest() {
    files.Put(kShowFile, "[PageManager]\r\nPageList=Act 1|Act 2|Act 3\r\n");
    for (const auto* name : {u"Act 1", u"Act 3"}) files.Put(PageFile(name), kButton);
    files.Put(PageFile(u"Act 2"), spoiled);
    EXPECT_RAISES(13, Reload());
    Forget();
  }
  std::string Bytes() const {
    return files.Get(kShowFile) + files.Get(PageFile(u"Act 1")) + files.Get(PageFile(u"Act 2")) +
           files.Get(PageFile(u"Act 3"));
  }

  static constexpr std::string_view kButton =
      "[ButtonGroup2]\r\nusedIndices=1\r\nButton1_fields=Intro|1|0|0|0|0|False\r\n";
  const std::string spoiled = "[ButtonGroup3]\r\npageOffset=much\r\n";
};

TEST_F(clsPageManagerHalfLoadedTest, APageThatWasNotReachedIsReadAndNotEmptied) {
  const std::string before = Bytes();
  manager->SetPage(u"Act 3");
  manager->SetPage(u"Act 3");
  EXPECT_EQ(manager->CurrentPageName(), u"Act 3");
  EXPECT_EQ(Text(*manager->CurrentPage()->ButtonGroups(2)->buttons), "Intro@2/1");
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1|Act 3");
  EXPECT_EQ(Bytes(), before);
}

TEST_F(clsPageManagerHalfLoadedTest, APageThatStillCannotBeReadRaisesAndNothingIsWritten) {
  const std::string before = Bytes();
  EXPECT_RAISES(13, manager->SetPage(u"Act 2", true));
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1");
  EXPECT_EQ(Bytes(), before);
}

TEST_F(clsPageManagerHalfLoadedTest, APageThatIsNowhereIsMade) {
  manager->SetPage(u"Act 4");
  EXPECT_THAT(files.Get(PageFile(u"Act 4")), HasSubstr("[ButtonGroup9]\r\npageOffset=0\r\nusedIndices=\r\n"));
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1|Act 4");
}

TEST_F(clsPageManagerTest, APageIsReadWhereTheShowFileItselfCouldNotBe) {
  NewShow();
  manager->SetPage(u"Act 1");
  const std::string before = files.Get(PageFile(u"Act 1"));
  manager->Init(kApp, controller.get());
  files.FailEvery("ReadAt", platform::FileStatus::IoError);
  EXPECT_RAISES(Error_DeviceIO, manager->setShow(u"Gala"));
  EXPECT_RAISES(Error_DeviceIO, manager->SetPage(u"Act 1"));
  files.FailNothing();
  EXPECT_EQ(Names(manager->GetPageNames()), "");
  EXPECT_EQ(files.Get(PageFile(u"Act 1")), before);
}

TEST_F(clsPageManagerTest, AHostThatFailsWhenTheFirstPageGainsFocusUnbindsNothing) {
  NewShow();
  manager->SetPage(u"Act 1");
  manager->SetPage(u"Act 2");
  bool loading = false;
  transcript.onCall = [&](const std::string&) {
    loading = manager->IsLoading();
    throw Error(5, u"host", u"host failed");
  };
  EXPECT_RAISES(5, Reload());
  EXPECT_TRUE(loading);
  EXPECT_FALSE(manager->IsLoading());
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1|Act 2");
  EXPECT_EQ(manager->CurrentPageName(), u"Act 1");
  transcript.onCall = nullptr;
  manager->SetPage(u"Act 3");
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=Act 1|Act 2|Act 3\r\n");
}

TEST_F(clsPageManagerTest, ANameWithTheDelimiterSplitsWhenLoadedAgain) {
  NewShow();
  manager->SetPage(u"Act|1");
  Reload();
  EXPECT_EQ(Names(manager->GetPageNames()), "Act|1");
  EXPECT_EQ(manager->PageList()->Size(), 2);
}

TEST_F(clsPageManagerTest, SavingWritesEveryPageUnlessToldNotTo) {
  NewShow();
  manager->SetPage(u"Act 1");
  manager->SetPage(u"Act 2");
  files.Put(PageFile(u"Act 1"), "");
  files.Put(PageFile(u"Act 2"), "");
  manager->saveToINI(true);
  EXPECT_EQ(files.Get(PageFile(u"Act 2")), "");
  manager->saveToINI();
  EXPECT_THAT(files.Get(PageFile(u"Act 1")), HasSubstr("[ButtonGroup0]"));
  EXPECT_THAT(files.Get(PageFile(u"Act 2")), HasSubstr("[ButtonGroup9]"));
}

TEST_F(clsPageManagerTest, ThePageListIsForcedToTheDisk) {
  NewShow();
  files.ForgetCalls();
  manager->SetPage(u"Act 1");
  const int withPage = files.Calls("Sync");
  EXPECT_GT(withPage, 0);
  files.ForgetCalls();
  manager->DeletePage(u"Act 1", u"");
  EXPECT_GT(files.Calls("Sync"), 0);
}

TEST_F(clsPageManagerTest, DeletingAnyPageMakesTheFirstRemainingOneCurrent) {
  NewShow();
  for (const auto* name : {u"Act 1", u"Act 2", u"Act 3"}) manager->SetPage(name);
  manager->SetPage(u"Act 3");
  transcript.Take();
  manager->DeletePage(u"Act 2", u"Page 1");
  EXPECT_EQ(manager->CurrentPageName(), u"Act 1");
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=Act 1|Act 3\r\n");
  EXPECT_TRUE(files.Has(PageFile(u"Act 2")));
  EXPECT_EQ(transcript.Take("GetUIFaderValues").size(), 1U);
}

TEST_F(clsPageManagerTest, DeletingAnotherPageFocusesTheFirstAgain) {
  NewShow();
  manager->SetPage(u"Act 1");
  manager->SetPage(u"Act 2");
  transcript.Take();
  manager->DeletePage(u"Act 2", u"");
  EXPECT_EQ(manager->CurrentPageName(), u"Act 1");
  EXPECT_EQ(transcript.Take("GetUIFaderValues").size(), 1U);
}

TEST_F(clsPageManagerTest, DeletingTheCurrentFirstPageTakesItsFocusAndShowsTheNext) {
  NewShow();
  manager->SetPage(u"Act 1");
  manager->SetPage(u"Act 2");
  const Ref<clsPage> first = manager->CurrentPage();
  first->ButtonGroups(3)->Fader()->SetOuterValue(0);
  ASSERT_TRUE(first->ButtonGroups(3)->Fader()->Engaged());
  transcript.Take();
  manager->DeletePage(u"Act 1", u"");
  EXPECT_FALSE(first->ButtonGroups(3)->Fader()->Engaged());
  EXPECT_EQ(manager->CurrentPageName(), u"Act 2");
  EXPECT_EQ(transcript.Take("GetUIFaderValues").size(), 1U);
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=Act 2\r\n");
}

TEST_F(clsPageManagerTest, DeletingTheLastPageLeavesThePlaceholderWithoutFocusCalls) {
  NewShow();
  manager->SetPage(u"Act 1");
  transcript.Take();
  manager->DeletePage(u"Act 1", u"Page 1");
  EXPECT_EQ(manager->CurrentPageName(), u"$$null_page$$");
  EXPECT_FALSE(manager->PageIsValid());
  EXPECT_THAT(transcript.Take(), IsEmpty());
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=\r\n");
}

TEST_F(clsPageManagerTest, DeletingAMissingPageIsLoggedAndSavesNothing) {
  NewShow();
  manager->SetPage(u"Act 1");
  Forget();
  files.Put(kShowFile, "as it was");
  manager->DeletePage(u"Act 2", u"");
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] clsPageManager: could not find page [Act 2] to delete"));
  EXPECT_EQ(files.Get(kShowFile), "as it was");
}

TEST_F(clsPageManagerTest, APageOfAnotherLetterCaseIsNeitherDeletedNorRenamed) {
  NewShow();
  manager->SetPage(u"Act 1");
  Forget();
  manager->DeletePage(u"ACT 1", u"");
  manager->RenamePage(u"act 1", u"Finale");
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] clsPageManager: could not find page [ACT 1] to delete",
                                     "[Info] clsPageManager: could not find page [act 1] for rename",
                                     HasSubstr("writing to INI")));
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1");
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=Act 1\r\n");
}

TEST_F(clsPageManagerTest, RenamingMovesNothingAndTheNextSaveWritesTheNewFile) {
  NewShow();
  manager->SetPage(u"Act 1");
  const std::string before = files.Get(PageFile(u"Act 1"));
  Forget();
  manager->RenamePage(u"Act 1", u"Finale");
  EXPECT_THAT(TakeLog(), testing::Contains("[Info] clsPageManager: renamed page [Act 1] -> [Finale]"));
  EXPECT_EQ(files.Get(PageFile(u"Act 1")), before);
  EXPECT_EQ(files.Get(PageFile(u"Finale")), "[Test Section]\r\nWriteTest=15/11/2026 07:31:41\r\n");
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=Finale\r\n");
  manager->saveToINI();
  EXPECT_THAT(files.Get(PageFile(u"Finale")), HasSubstr("[ButtonGroup0]"));
}

TEST_F(clsPageManagerTest, RenamingAMissingPageIsLoggedAndTheListIsWritten) {
  NewShow();
  files.Put(kShowFile, "");
  manager->RenamePage(u"Act 1", u"Finale");
  EXPECT_THAT(TakeLog(), ElementsAre("[Info] clsPageManager: could not find page [Act 1] for rename",
                                     HasSubstr("writing to INI")));
  EXPECT_EQ(files.Get(kShowFile), "[PageManager]\r\nPageList=\r\n");
}

TEST_F(clsPageManagerTest, TestsWhetherTheShowFileCanBeWritten) {
  NewShow();
  EXPECT_TRUE(manager->TestShowWritable());
  files.SetReadOnly(kShowFile, true);
  clock.dateTime = u"15/11/2026 07:31:42";
  EXPECT_FALSE(manager->TestShowWritable());
}

TEST_F(clsPageManagerTest, PersistIsReadFromTheControllerWhenAPageIsMade) {
  NewShow();
  controller->SetPersist(false);
  manager->SetPage(u"Act 1");
  EXPECT_FALSE(files.Has(PageFile(u"Act 1")));
  controller->SetPersist(true);
  manager->saveToINI();
  EXPECT_FALSE(files.Has(PageFile(u"Act 1")));
  manager->SetPage(u"Act 2");
  EXPECT_TRUE(files.Has(PageFile(u"Act 2")));
}

TEST_F(clsPageManagerTest, AListThatWillBeCutIsWrittenWholeWithOneWarning) {
  NewShow();
  const std::u16string longName(250, u'x');
  manager->SetPage(longName);
  Forget();
  manager->SetPage(u"Act 2");
  const std::vector<std::string> lines = TakeLog();
  EXPECT_EQ(
      std::count_if(lines.begin(), lines.end(), [](const auto& l) { return l.starts_with("[Warning]"); }), 1);
  EXPECT_THAT(files.Get(kShowFile), HasSubstr("x|Act 2"));
}

TEST_F(clsPageManagerTest, APageThatTheHostAddsWhileItIsWrittenIsThereOnce) {
  NewShow();
  bool nested = false;
  hostServices.onPump = [&] {
    if (!std::exchange(nested, true)) manager->SetPage(u"Act 1");
  };
  manager->SetPage(u"Act 1");
  EXPECT_EQ(Names(manager->GetPageNames()), "Act 1");
}

TEST_F(clsPageManagerTest, OutlivesItsController) {
  NewShow();
  controller = nullptr;
  manager->SetPage(u"Act 1");
  manager->SetPage(u"Act 2");
  manager->SetPage(u"Act 2");
  EXPECT_EQ(manager->CurrentPageName(), u"Act 2");
}

}  // namespace
}  // namespace vestrel::test
