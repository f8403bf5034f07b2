#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "core/clsString.h"
#include "model/clsDeferred.h"
#include "model/clsPage.h"
#include "tests/model/PageFixture.h"
#include "tests/support/Ending.h"

namespace vestrel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class clsPageTest : public test::PageFixture {};

TEST_F(clsPageTest, InitMakesTenGroupsAndReadsNothing) {
  for (std::int32_t g = 0; g <= 9; ++g) EXPECT_EQ(page->ButtonGroups(g)->groupIndex(), g);
  EXPECT_EQ(page->pageName(), u"Act 1");
  EXPECT_FALSE(files.Has(kFile));
  EXPECT_THAT(controller->Take(), IsEmpty());
}

TEST_F(clsPageTest, TheEndOfWhatInitReplacesFindsTheWholeNewPage) {
  int saved = 0;
  const auto save = [&] {
    page->saveToINI();
    ++saved;
  };
  {
    const Ref<clsButton> guest = MakeRef<clsButton>();
    guest->Init(MakeRef<test::Ending<IButtonEventHandler>>(save).get(), nullptr);
    page->ButtonGroups(2)->buttons->AddItem(guest.get());
  }
  page->Init(u"C:\\app", controller.get(), u"Gala", u"Act 1", true);
  EXPECT_EQ(saved, 1);
  EXPECT_TRUE(files.Has(kFile));
}

TEST_F(clsPageTest, AGroupOutsideZeroToNineIsOutOfRange) {
  for (const std::int32_t which : {-1, 10, 1000}) {
    EXPECT_EQ(NumberOf([&] { page->ButtonGroups(which); }), Error_SubscriptOutOfRange);
    EXPECT_EQ(NumberOf([&] { page->saveButtonGroupToINI(which); }), Error_SubscriptOutOfRange);
  }
  EXPECT_EQ(NumberOf([&] { page->saveToINI(10); }), Error_SubscriptOutOfRange);
  EXPECT_FALSE(files.Has(kFile));
}

TEST_F(clsPageTest, SavingAButtonOfNoGroupOrNoButtonFailsBeforeItWrites) {
  const auto stray = MakeRef<clsButton>();
  stray->Init(controller.get(), page.get());
  EXPECT_EQ(NumberOf([&] { page->saveSingleButton(stray.get()); }), Error_SubscriptOutOfRange);
  EXPECT_EQ(NumberOf([&] { page->saveSingleButton(nullptr); }), Error_ObjectNotSet);
  EXPECT_FALSE(files.Has(kFile));
}

TEST_F(clsPageTest, GroupsReportTheirButtonsToTheController) {
  Add(4, 1, u"Intro");
  EXPECT_THAT(controller->Take(), ElementsAre("ItemAdded Intro@4/1 at 0 group 4"));
}

TEST_F(clsPageTest, ThePrivateNameDoesNotRebindTheFile) {
  page->SetPageNamePrivate(u"Act 2");
  EXPECT_EQ(page->pageName(), u"Act 2");
  page->saveButtonGroupToINI(0, false);
  EXPECT_TRUE(files.Has(kFile));
}

TEST_F(clsPageTest, RenameMakesTheFolderAndTheNextSaveWritesTheNewFile) {
  page->saveToINI(1, false);
  const std::string old = Bytes();
  page->Rename(u"Act 2");
  EXPECT_EQ(page->pageName(), u"Act 2");
  page->ButtonGroups(1)->pageOffset = 5;
  page->saveToINI(1, false);
  EXPECT_EQ(files.Get(u"C:\\app\\Sequences\\Gala\\Act 2\\pageSetting.ini"),
            "[ButtonGroup1]\r\npageOffset=5\r\nfaderValue=0\r\n");
  EXPECT_EQ(Bytes(), old);
}

TEST_F(clsPageTest, RenameWithoutPersistTouchesNothing) {
  page = NewPage(false);
  page->Rename(u"Act 2");
  EXPECT_EQ(page->pageName(), u"Act 2");
  page->saveButtonGroupToINI(1, false);
  EXPECT_FALSE(files.Has(u"C:\\app\\Sequences\\Gala\\Act 2\\pageSetting.ini")) << "there is no folder";
}

TEST_F(clsPageTest, AFolderThatCannotBeMadeLeavesThePageAsItWas) {
  files.FailEvery("MakeDirectory", platform::FileStatus::AccessDenied);
  EXPECT_EQ(NumberOf([&] { page->Rename(u"Act 2"); }), Error_PathFileAccess);
  EXPECT_EQ(page->pageName(), u"Act 1");
  page->saveToINI(1, false);
  EXPECT_TRUE(files.Has(kFile)) << "the file stays bound as well";
}

TEST_F(clsPageTest, AFileThatCannotBeReadIsNotTakenForAnEmptyPage) {
  Add(2, 1, u"Intro");
  page->saveToINI();
  const std::string before = Bytes();
  const auto fresh = NewPage();
  files.FailEvery("ReadAt", platform::FileStatus::IoError);
  EXPECT_EQ(NumberOf([&] { fresh->loadFromINI(); }), Error_DeviceIO);
  files.FailNothing();
  fresh->saveToINI();
  EXPECT_EQ(Bytes(), before);
  fresh->loadFromINI();
  fresh->ButtonGroups(2)->pageOffset = 3;
  fresh->saveToINI();
  EXPECT_THAT(Bytes(), HasSubstr("[ButtonGroup2]\r\npageOffset=3\r\nfaderValue=0\r\nusedIndices=1\r\n"));
}

TEST_F(clsPageTest, AFileThatCannotBeReadLeavesTheGroupsAsTheyAre) {
  Add(2, 1, u"Intro");
  page->saveToINI();
  files.FailEvery("ReadAt", platform::FileStatus::IoError);
  EXPECT_EQ(NumberOf([&] { page->loadFromINI(); }), Error_DeviceIO);
  EXPECT_EQ(page->ButtonGroups(2)->buttons->Size(), 1);
}

// A page whose file holds a number that is none, so that it was not read to its end.
class clsPageIncompleteTest : public clsPageTest {
 protected:
  clsPageIncompleteTest() {
    files.Put(kFile, spoiled);
    EXPECT_EQ(NumberOf([&] { page->loadFromINI(); }), Error_TypeMismatch);
  }

  const std::string spoiled = "[ButtonGroup5]\r\npageOffset=much\r\n";
};

TEST_F(clsPageIncompleteTest, RenamedItIsWrittenToItsNewFileAndTheOldOneKeepsAll) {
  Add(2, 1, u"Intro");
  page->Rename(u"Act 2");
  page->saveToINI();
  EXPECT_THAT(files.Get(u"C:\\app\\Sequences\\Gala\\Act 2\\pageSetting.ini"),
              HasSubstr("Button1_fields=Intro|1|0|0|0|0|False\r\n"));
  EXPECT_EQ(Bytes(), spoiled);
}

TEST_F(clsPageIncompleteTest, RenamedInItsLetterCaseAloneItIsNotWritten) {
  page->Rename(u"ACT 1");
  page->saveToINI();
  EXPECT_FALSE(files.Has(u"C:\\app\\Sequences\\Gala\\ACT 1\\pageSetting.ini"));
}

TEST_F(clsPageIncompleteTest, ThePrivateNameAndARenameBackAreStillItsFile) {
  page->SetPageNamePrivate(u"Act 2");
  page->Rename(u"Act 1");
  page->saveToINI();
  EXPECT_EQ(Bytes(), spoiled);
}

TEST_F(clsPageIncompleteTest, InitMakesAPageThatIsWritten) {
  page->Init(u"C:\\app", controller.get(), u"Gala", u"Act 1");
  page->saveToINI(5);
  EXPECT_EQ(Bytes(), "[ButtonGroup5]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n");
}

TEST_F(clsPageTest, TestWritableLeavesATestKey) {
  EXPECT_TRUE(page->TestWritable());
  EXPECT_EQ(Bytes(), "[Test Section]\r\nWriteTest=15/11/2026 07:31:41\r\n");
  files.SetReadOnly(kFile, true);
  clock.dateTime = u"15/11/2026 07:31:42";
  EXPECT_FALSE(page->TestWritable());
}

TEST_F(clsPageTest, PagesAreFoundByNameButNotSorted) {
  const auto same = NewPage();
  const auto other = MakeRef<clsPage>();
  other->Init(u"C:\\app", nullptr, u"Gala", u"act 1");
  EXPECT_EQ(page->CompareTo(same.get(), u"pageName"), 0);
  EXPECT_EQ(page->CompareTo(other.get(), u"pageName"), -1);
  EXPECT_EQ(other->CompareTo(page.get(), u"pageName"), -1);
  EXPECT_EQ(page->CompareTo(page.get()), -1);
  EXPECT_EQ(page->CompareTo(page.get(), u"pagename"), -1);
  EXPECT_EQ(NumberOf([&] { page->CompareTo(MakeRef<clsString>().get(), u"pageName"); }), Error_TypeMismatch);
  EXPECT_EQ(NumberOf([&] { page->CompareTo(nullptr, u"pageName"); }), Error_ObjectNotSet);
}

TEST_F(clsPageTest, FieldCompareOrdersTheNameAgainstTheValue) {
  EXPECT_EQ(page->FieldCompare(u"pageName", u"Act 1"), 0);
  EXPECT_EQ(page->FieldCompare(u"pageName", u"act 1"), -1);
  EXPECT_EQ(page->FieldCompare(u"pageName", u"Act 0"), 1);
  EXPECT_EQ(page->FieldCompare(u"PageName", u"Act 1"), -1);
  EXPECT_EQ(page->FieldCompare(u"all", u"Act 1"), -1);
}

TEST_F(clsPageTest, AListFindsAPageByItsName) {
  const auto list = MakeRef<clsObjectList>();
  list->AddItem(page.get());
  EXPECT_EQ(list->FindFieldValue(u"pageName", u"Act 1"), 0);
  EXPECT_EQ(list->FindFieldValue(u"pageName", u"ACT 1"), -1);
}

TEST_F(clsPageTest, GotFocusResumesTheFadersAndReportsEveryValue) {
  for (std::int32_t g = 1; g <= 8; ++g) page->ButtonGroups(g)->Fader()->SetValue(g * 10, true);
  const auto bump = Add(9, 3, u"Bump");
  bump->Fader()->SetValue(40, true);
  const auto second = Add(9, 8, u"Second");
  controller->Take();
  controller->positions.GroupFaders[2] = 20;
  controller->positions.GroupFaders[3] = 31;
  controller->positions.BumpFaders[3] = 40;
  controller->positions.BumpFaders[8] = 7;
  page->GotFocus();
  EXPECT_THAT(
      controller->Take(),
      ElementsAre("GetUIFaderValues", "UpdateFaderModelValue 0 1 10", "UpdateFaderModelValue 0 2 20 caught",
                  "UpdateFaderModelValue 0 3 30", "UpdateFaderModelValue 0 4 40",
                  "UpdateFaderModelValue 0 5 50", "UpdateFaderModelValue 0 6 60",
                  "UpdateFaderModelValue 0 7 70", "UpdateFaderModelValue 0 8 80",
                  "UpdateFaderModelValue 1 3 40 caught Bump@9/3", "UpdateFaderModelValue 1 8 0 Second@9/8"));
  EXPECT_TRUE(page->ButtonGroups(3)->Fader()->SetValue(29)) << "from 31 it passes 30";
  EXPECT_TRUE(bump->SetFaderValue(50, false)) << "it stands on its value";
}

TEST_F(clsPageTest, FocusSkipsBumpButtonsOfNoFader) {
  for (const std::int32_t index : {0, 9, -1}) {
    Add(9, index, u"x")->Fader()->SetOuterValue(0);
  }
  controller->Take();
  page->GotFocus();
  EXPECT_EQ(controller->Take().size(), 9U);
  page->LostFocus();
  EXPECT_TRUE(At(*page, 9, 0).Fader()->Engaged());
}

TEST_F(clsPageTest, LostFocusPausesGroupAndBumpFaders) {
  for (std::int32_t g = 0; g <= 9; ++g) page->ButtonGroups(g)->Fader()->SetOuterValue(0);
  const auto bump = Add(9, 1, u"Bump");
  bump->Fader()->SetOuterValue(0);
  const auto other = Add(4, 1, u"Other");
  other->Fader()->SetOuterValue(0);
  page->LostFocus();
  for (std::int32_t g = 1; g <= 8; ++g) EXPECT_FALSE(page->ButtonGroups(g)->Fader()->Engaged());
  EXPECT_TRUE(page->ButtonGroups(0)->Fader()->Engaged());
  EXPECT_TRUE(page->ButtonGroups(9)->Fader()->Engaged());
  EXPECT_FALSE(bump->Fader()->Engaged());
  EXPECT_TRUE(other->Fader()->Engaged());
}

TEST_F(clsPageTest, WithoutAControllerItLoadsSavesAndLeavesFadersAlone) {
  controller = nullptr;
  page->ButtonGroups(1)->Fader()->SetValue(50, true);
  page->GotFocus();
  EXPECT_TRUE(page->ButtonGroups(1)->Fader()->SetValue(60)) << "it still stands at 50";
  Add(1, 1, u"Intro");
  page->saveToINI();
  page->loadFromINI();
  EXPECT_EQ(At(*page, 1, 0).name, u"Intro");
  At(*page, 1, 0).click(1, 0, 0, 0);
}

TEST_F(clsPageTest, ThePumpMayDropThePage) {
  Add(1, 1, u"Intro");
  const long before = Object::LiveCount();
  hostServices.onPump = [&] { page = nullptr; };
  clsPage* const raw = page.get();
  raw->saveToINI();
  EXPECT_EQ(hostServices.pumps, 10) << "the save goes on";
  EXPECT_LT(Object::LiveCount(), before - 40) << "and the page goes after it";
}

TEST_F(clsPageTest, ThePumpMayChangeTheModelAndSave) {
  Add(1, 1, u"Intro");
  hostServices.onPump = [&] {
    hostServices.onPump = nullptr;
    page->saveSingleButton(Add(5, 2, u"Late").get());
    page->ButtonGroups(1)->buttons->Clear();
  };
  page->saveToINI();
  EXPECT_THAT(Bytes(), HasSubstr("[ButtonGroup1]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n"));
  EXPECT_THAT(Bytes(), HasSubstr("usedIndices=2\r\nButton2_fields=Late|1|0|0|0|0|False\r\n"));
}

TEST_F(clsPageTest, CallbacksWhileLoadingMayUseTheFileAndReplaceLists) {
  files.Put(kFile,
            "[ButtonGroup1]\r\nusedIndices=1|2\r\nButton1_fields=A|1|0|0|0|0|False\r\n"
            "Button2_fields=B|1|0|0|0|0|False\r\n");
  controller->onCall = [&] {
    controller->onCall = nullptr;
    page->saveButtonGroupToINI(7, false);
    page->ButtonGroups(1)->buttons = MakeRef<clsObjectList>();
  };
  page->loadFromINI();
  ASSERT_EQ(page->ButtonGroups(1)->buttons->Size(), 2);
  EXPECT_EQ(At(*page, 1, 1).name, u"B");
}

TEST_F(clsPageTest, TheControllerMayDropThePageWhileItLoads) {
  files.Put(kFile, "[ButtonGroup1]\r\nusedIndices=1|2\r\nButton1_fields=A|1|0|0|0|0|False\r\n");
  controller->onCall = [&] { page = nullptr; };
  clsPage* const raw = page.get();
  raw->loadFromINI();
  EXPECT_EQ(controller->Take().back(), "ItemAdded none@1/2 at 1 group 1");
}

TEST_F(clsPageTest, APageGoesWithItsGroupsListsAndButtons) {
  files.Put(kFile, "[ButtonGroup1]\r\nusedIndices=1|2\r\nButton1_fields=A|1|0|0|0|0|False\r\n");
  const long before = Object::LiveCount();
  {
    const auto loaded = NewPage();
    loaded->loadFromINI();
    const auto group = loaded->ButtonGroups(1);
    group->highlightedButton = &At(*loaded, 1, 0);
    group->nowPlayingList->AddItem(&At(*loaded, 1, 0));
    loaded->loadFromINI();
  }
  EXPECT_EQ(Object::LiveCount(), before);
}

TEST_F(clsPageTest, AButtonThatIsHeldOutlivesItsPage) {
  const auto button = Add(1, 1, u"Intro");
  controller->Take();
  page = nullptr;
  button->click(1, 0, 0, 0);
  EXPECT_EQ(controller->Take().size(), 1U) << "its handler is still there";
  EXPECT_EQ(button->Copy()->name, u"Intro");
}

TEST_F(clsPageTest, ADeferredRecordHoldsItsPageAndButton) {
  const auto deferred = MakeRef<clsDeferred>();
  EXPECT_FALSE(deferred->page);
  EXPECT_FALSE(deferred->button);
  EXPECT_EQ(deferred->playState, PlayState_Off);
  EXPECT_EQ(deferred->faderValue, 0);
  deferred->page = page;
  deferred->button = Add(1, 1, u"Intro");
  page = nullptr;
  EXPECT_EQ(&At(*deferred->page, 1, 0), deferred->button.get());
}

}  // namespace
}  // namespace vestrel
