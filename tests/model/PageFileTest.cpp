// The page file, byte for byte: what saves write, what loading makes of it, and of what it should not hold.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "model/clsPage.h"
#include "tests/model/PageFixture.h"

namespace vestrel {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class PageFileTest : public test::PageFixture {
 protected:
  // The page of the format's example, and more.
  void Fill() {
    Add(2, 1, u"Intro");
    const auto chase = Add(2, 2, u"Chase", ButtonType_Multi);
    chase->setPlayState(PlayState_On, PSEventSource_User, 1, 0, 0, 0);
    chase->Fader()->SetValue(60, true);
    const auto blackout = Add(2, 5, u"Blackout");
    blackout->SetBumpMode(BumpMode_On);
    blackout->SetFaderMode(FaderMode_Proportional);
    blackout->SetLocked(true);
    page->ButtonGroups(2)->Fader()->SetValue(80, true);
    Add(9, 8, u"Strobe", ButtonType_Auto)->SetBumpMode(BumpMode_On);
    Add(0, 32, u"Timeline of the last act", ButtonType_Timeline);
    page->ButtonGroups(0)->pageOffset = -1;
    page->ButtonGroups(8)->pageOffset = 12;
    controller->Take();
  }
};

const std::string kFilled =
    "[ButtonGroup0]\r\npageOffset=-1\r\nusedIndices=32\r\n"
    "Button32_fields=Timeline of the last act|3|0|0|0|0|False\r\n"
    "[ButtonGroup1]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n"
    "[ButtonGroup2]\r\npageOffset=0\r\nfaderValue=80\r\nusedIndices=1|2|5\r\n"
    "Button1_fields=Intro|1|0|0|0|0|False\r\n"
    "Button2_fields=Chase|2|1|0|0|60|False\r\n"
    "Button5_fields=Blackout|1|0|1|2|0|True\r\n"
    "[ButtonGroup3]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n"
    "[ButtonGroup4]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n"
    "[ButtonGroup5]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n"
    "[ButtonGroup6]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n"
    "[ButtonGroup7]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n"
    "[ButtonGroup8]\r\npageOffset=12\r\nfaderValue=0\r\nusedIndices=\r\n"
    "[ButtonGroup9]\r\npageOffset=0\r\nusedIndices=8\r\n"
    "Button8_fields=Strobe|4|0|1|0|0|False\r\n";

TEST_F(PageFileTest, AWholePageIsWrittenByteForByte) {
  Fill();
  page->saveToINI();
  EXPECT_EQ(Bytes(), kFilled);
}

TEST_F(PageFileTest, AnUnchangedPageIsNotWrittenAgain) {
  Fill();
  page->saveToINI();
  files.ForgetCalls();
  page->saveToINI();
  EXPECT_EQ(Bytes(), kFilled);
  EXPECT_EQ(files.Calls("Replace"), 0);
  EXPECT_EQ(files.Calls("WriteAt"), 0);
}

TEST_F(PageFileTest, OneGroupWritesOnlyItsSection) {
  Fill();
  page->saveToINI(9);
  EXPECT_EQ(Bytes(),
            "[ButtonGroup9]\r\npageOffset=0\r\nusedIndices=8\r\nButton8_fields=Strobe|4|0|1|0|0|False\r\n");
  page->saveToINI(3);
  EXPECT_THAT(Bytes(), EndsWith("[ButtonGroup3]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=\r\n"));
  EXPECT_THAT(Bytes(), Not(HasSubstr("[ButtonGroup2]")));
}

TEST_F(PageFileTest, GroupZeroIsAGroupOfItsOwnAndNotAllOfThem) {
  Fill();
  page->saveToINI(0);
  EXPECT_EQ(Bytes(), kFilled.substr(0, kFilled.find("[ButtonGroup1]")));
}

TEST_F(PageFileTest, AGroupWithoutButtonsWritesOffsetAndFaderOnly) {
  Fill();
  page->saveButtonGroupToINI(2, false);
  page->saveButtonGroupToINI(9, false);
  page->saveButtonGroupToINI(0, false);
  EXPECT_EQ(Bytes(),
            "[ButtonGroup2]\r\npageOffset=0\r\nfaderValue=80\r\n[ButtonGroup9]\r\npageOffset=0\r\n"
            "[ButtonGroup0]\r\npageOffset=-1\r\n");
}

TEST_F(PageFileTest, ASingleButtonWritesItsLineAndTheIndexList) {
  Fill();
  files.ForgetCalls();
  page->saveSingleButton(&At(*page, 2, 1));
  EXPECT_EQ(files.Calls("Replace"), 1) << "both keys in one commit";
  EXPECT_EQ(hostServices.pumps, 0);
  EXPECT_EQ(Bytes(), "[ButtonGroup2]\r\nusedIndices=1|2|5\r\nButton2_fields=Chase|2|1|0|0|60|False\r\n");
}

TEST_F(PageFileTest, ASingleButtonChangesNothingElseInTheFile) {
  Fill();
  page->saveToINI();
  At(*page, 2, 1).Fader()->SetValue(7, true);
  page->ButtonGroups(2)->pageOffset = 4;
  page->saveSingleButton(&At(*page, 2, 1));
  std::string expected = kFilled;
  expected.replace(expected.find("60|False"), 2, "7");
  EXPECT_EQ(Bytes(), expected);
}

TEST_F(PageFileTest, ASavedPageLoadsAsItWasWithItsStatesDeferred) {
  Fill();
  page->saveToINI();
  const auto loaded = NewPage();
  loaded->loadFromINI();
  EXPECT_THAT(controller->Take(),
              ElementsAre("DeferPlaystateFor Act 1 Timeline of the last act@0/32 0 0",
                          "ItemAdded Timeline of the last act@0/32 at 0 group 0",
                          "DeferPlaystateFor Act 1 Intro@2/1 0 0", "ItemAdded Intro@2/1 at 0 group 2",
                          "DeferPlaystateFor Act 1 Chase@2/2 1 60", "ItemAdded Chase@2/2 at 1 group 2",
                          "DeferPlaystateFor Act 1 Blackout@2/5 0 0", "ItemAdded Blackout@2/5 at 2 group 2",
                          "DeferPlaystateFor Act 1 Strobe@9/8 0 0", "ItemAdded Strobe@9/8 at 0 group 9"));
  EXPECT_EQ(loaded->ButtonGroups(0)->pageOffset, -1);
  EXPECT_EQ(loaded->ButtonGroups(8)->pageOffset, 12);
  EXPECT_EQ(loaded->ButtonGroups(2)->Fader()->value(), 80);
  EXPECT_FALSE(loaded->ButtonGroups(2)->Fader()->Engaged());
  EXPECT_EQ(At(*loaded, 2, 1).playState(), PlayState_Off);
  EXPECT_EQ(At(*loaded, 2, 1).faderValue(), 0);
  EXPECT_EQ(At(*loaded, 2, 1).buttonType, ButtonType_Multi);
  EXPECT_EQ(At(*loaded, 2, 2).BumpMode(), BumpMode_On);
  EXPECT_EQ(At(*loaded, 2, 2).FaderMode(), FaderMode_Proportional);
  EXPECT_TRUE(At(*loaded, 2, 2).Locked());
}

TEST_F(PageFileTest, LoadedWithoutStatesItIsWrittenAsItWasRead) {
  const std::string bytes = kFilled.substr(0, kFilled.find("Chase|2|1|0|0|60")) + "Chase|2|0|0|0|0" +
                            kFilled.substr(kFilled.find("|False\r\nButton5"));
  files.Put(kFile, bytes);
  page->loadFromINI();
  files.Put(kFile, "");
  page->saveToINI();
  EXPECT_EQ(Bytes(), bytes);
}

TEST_F(PageFileTest, LoadingReplacesTheButtonsThatWereThere) {
  Fill();
  files.Put(kFile, "[ButtonGroup2]\r\nusedIndices=3\r\nButton3_fields=New|1|0|0|0|0|False\r\n");
  page->loadFromINI();
  EXPECT_THAT(controller->Take(),
              ElementsAre("ItemRemoved Timeline of the last act@0/32 from 0 group 0",
                          "ItemRemoved Intro@2/1 from 0 group 2", "ItemRemoved Chase@2/2 from 1 group 2",
                          "ItemRemoved Blackout@2/5 from 2 group 2", "DeferPlaystateFor Act 1 New@2/3 0 0",
                          "ItemAdded New@2/3 at 0 group 2", "ItemRemoved Strobe@9/8 from 0 group 9"));
  EXPECT_EQ(page->ButtonGroups(2)->buttons->Size(), 1);
  EXPECT_EQ(page->ButtonGroups(8)->pageOffset, 0);
  EXPECT_EQ(page->ButtonGroups(2)->Fader()->value(), 0);
}

TEST_F(PageFileTest, AMissingFileLoadsAsTenEmptyGroups) {
  Fill();
  page->loadFromINI();
  for (std::int32_t g = 0; g <= 9; ++g) {
    EXPECT_EQ(page->ButtonGroups(g)->buttons->Size(), 0);
    EXPECT_EQ(page->ButtonGroups(g)->pageOffset, 0);
  }
  EXPECT_EQ(page->ButtonGroups(2)->Fader()->value(), 0);
  EXPECT_FALSE(files.Has(kFile));
}

TEST_F(PageFileTest, GroupsZeroAndNineHaveNoFaderInTheFile) {
  files.Put(kFile,
            "[ButtonGroup0]\r\nfaderValue=11\r\n[ButtonGroup9]\r\nfaderValue=99\r\n"
            "[ButtonGroup8]\r\nfaderValue=88\r\n[ButtonGroup1]\r\nfaderValue=10\r\n");
  page->loadFromINI();
  EXPECT_EQ(page->ButtonGroups(0)->Fader()->value(), 0);
  EXPECT_EQ(page->ButtonGroups(9)->Fader()->value(), 0);
  EXPECT_EQ(page->ButtonGroups(8)->Fader()->value(), 88);
  EXPECT_EQ(page->ButtonGroups(1)->Fader()->value(), 10);
}

TEST_F(PageFileTest, OnlyTheButtonsNamedInTheIndexListAreRead) {
  files.Put(kFile,
            "[ButtonGroup1]\r\nButton1_fields=One|1|0|0|0|0|False\r\n"
            "Button2_fields=Two|1|0|0|0|0|False\r\nusedIndices=2\r\nButton3_fields=bad\r\n");
  page->loadFromINI();
  ASSERT_EQ(page->ButtonGroups(1)->buttons->Size(), 1);
  EXPECT_EQ(At(*page, 1, 0).name, u"Two");
}

TEST_F(PageFileTest, AnIndexNamedTwiceGivesTwoButtonsInListOrder) {
  files.Put(kFile,
            "[ButtonGroup1]\r\nusedIndices=7|1|7\r\nButton1_fields=One|1|0|0|0|0|False\r\n"
            "Button7_fields=Seven|1|0|0|0|0|False\r\n");
  page->loadFromINI();
  ASSERT_EQ(page->ButtonGroups(1)->buttons->Size(), 3);
  EXPECT_EQ(At(*page, 1, 0).name, u"Seven");
  EXPECT_EQ(At(*page, 1, 1).name, u"One");
  EXPECT_EQ(At(*page, 1, 2).name, u"Seven");
}

TEST_F(PageFileTest, TheSectionIsThatOfTheGroupsPlaceOnThePage) {
  Fill();
  page->saveToINI();
  for (std::int32_t g = 0; g <= 9; ++g) page->ButtonGroups(g)->Init(9 - g, controller.get());
  page->loadFromINI();
  EXPECT_EQ(At(*page, 2, 1).toString(), u"group: 2, buttonIndex: 2, name: Chase, type: 2");
  EXPECT_EQ(page->ButtonGroups(2)->Fader()->value(), 80);
  At(*page, 2, 1).setPlayState(PlayState_On, PSEventSource_User, 1, 0, 0, 0);
  At(*page, 2, 1).Fader()->SetValue(60, true);
  page->saveSingleButton(&At(*page, 2, 1));
  page->saveToINI();
  EXPECT_EQ(Bytes(), kFilled);
}

TEST_F(PageFileTest, CallbacksWhileLoadingMayWriteToTheFile) {
  files.Put(kFile, "[ButtonGroup1]\r\nusedIndices=1\r\nButton1_fields=A|1|0|0|0|0|False\r\n");
  controller->onCall = [&] {
    controller->onCall = nullptr;
    page->saveButtonGroupToINI(7, false);
  };
  page->loadFromINI();
  EXPECT_THAT(Bytes(), EndsWith("[ButtonGroup7]\r\npageOffset=0\r\nfaderValue=0\r\n"));
}

struct SkippedLine {
  const char* name;
  const char* line;
};

TEST_F(PageFileTest, AButtonWithoutAUsableLineIsNamedNoneAfterAWarning) {
  const std::vector<SkippedLine> table = {
      {"absent", ""},
      {"empty", "Button4_fields=\r\n"},
      {"six fields", "Button4_fields=Intro|1|0|0|0|0\r\n"},
      {"eight fields", "Button4_fields=Intro|1|0|0|0|0|False|\r\n"},
      {"bar in the name", "Button4_fields=In|tro|1|0|0|0|0|False\r\n"},
      {"another button's", "Button14_fields=Intro|1|0|0|0|0|False\r\n"},
      {"another key", "Button4fields=Intro|1|0|0|0|0|False\r\n"},
  };
  for (const SkippedLine& row : table) {
    SCOPED_TRACE(row.name);
    files.Put(kFile, std::string("[ButtonGroup1]\r\nusedIndices=4\r\n") + row.line);
    files.Put(kLog, "");
    page->loadFromINI();
    EXPECT_EQ(Log(), "[Warning] skipping button load -- incorrect number of fields in INI\r\n");
    ASSERT_EQ(page->ButtonGroups(1)->buttons->Size(), 1);
    EXPECT_EQ(At(*page, 1, 0).toString(), u"group: 1, buttonIndex: 4, name: none, type: 999");
    EXPECT_EQ(controller->Take().back(), "ItemAdded none@1/4 at 0 group 1");
  }
}

struct Unreadable {
  const char* section;
  std::int32_t error;
};

TEST_F(PageFileTest, AValueThatIsNoNumberRaisesAndLeavesTheGroupsReadBefore) {
  const std::vector<Unreadable> table = {
      {"pageOffset=abc\r\n", Error_TypeMismatch},
      {"pageOffset=\r\n", Error_TypeMismatch},
      {"pageOffset=99999999999\r\n", Error_Overflow},
      {"faderValue=full\r\n", Error_TypeMismatch},
      {"usedIndices=1|two\r\n", Error_TypeMismatch},
      {"usedIndices=1||2\r\n", Error_TypeMismatch},
      {"usedIndices=1|\r\n", Error_TypeMismatch},
      {"usedIndices=99999999999\r\n", Error_Overflow},
      {"usedIndices=1\r\nButton1_fields=Intro|x|0|0|0|0|False\r\n", Error_TypeMismatch},
      {"usedIndices=1\r\nButton1_fields=Intro|1|0|0|0|0|maybe\r\n", Error_TypeMismatch},
      {"usedIndices=1\r\nButton1_fields=Intro|1|0|0|0|99999999999|True\r\n", Error_Overflow},
  };
  for (const Unreadable& row : table) {
    SCOPED_TRACE(row.section);
    files.Put(kFile, std::string("[ButtonGroup0]\r\nusedIndices=1\r\nButton1_fields=A|1|0|0|0|0|False\r\n"
                                 "[ButtonGroup1]\r\n") +
                         row.section);
    EXPECT_EQ(NumberOf([this] { page->loadFromINI(); }), row.error);
    EXPECT_EQ(page->ButtonGroups(0)->buttons->Size(), 1);
    EXPECT_EQ(page->ButtonGroups(1)->buttons->Size(), 0);
  }
}

TEST_F(PageFileTest, APageThatWasNotReadToItsEndIsNotWrittenUntilItIs) {
  Fill();
  page->saveToINI();
  std::string broken = kFilled;
  broken.replace(broken.find("pageOffset=12"), 13, "pageOffset=xy");
  files.Put(kFile, broken);
  EXPECT_EQ(NumberOf([this] { page->loadFromINI(); }), Error_TypeMismatch);
  files.Put(kLog, "");
  page->saveToINI();
  page->saveSingleButton(&At(*page, 2, 0));
  EXPECT_EQ(Bytes(), broken);
  EXPECT_THAT(Log(), HasSubstr("[Warning] page [Act 1] was not read to its end and is not written\r\n"));
  files.Put(kFile, kFilled);
  page->loadFromINI();
  page->ButtonGroups(8)->pageOffset = 3;
  page->saveToINI();
  EXPECT_THAT(Bytes(), HasSubstr("[ButtonGroup8]\r\npageOffset=3\r\n"));
}

TEST_F(PageFileTest, FieldsInTheFormOfAnotherWriterAreRead) {
  files.Put(kFile,
            "; by hand\n[buttongroup1]\npageoffset = 2 \nFADERVALUE=50.5\nusedindices= 1 | 2 \n"
            "button1_FIELDS= Intro | 1 |0|0|0|0|false \n\nBUTTON2_FIELDS=B|4|1|1|1|1|1");
  page->loadFromINI();
  EXPECT_EQ(page->ButtonGroups(1)->pageOffset, 2);
  EXPECT_EQ(page->ButtonGroups(1)->Fader()->value(), 50) << "halves to the even number";
  ASSERT_EQ(page->ButtonGroups(1)->buttons->Size(), 2);
  EXPECT_EQ(At(*page, 1, 0).name, u"Intro ");
  EXPECT_TRUE(At(*page, 1, 1).Locked());
}

TEST_F(PageFileTest, AnIndexListLongerThanCanBeReadIsWrittenWholeWithAWarning) {
  std::string indices;
  for (std::int32_t index = 1; index <= 88; ++index) {
    Add(1, index, u"n");
    indices += (index > 1 ? "|" : "") + std::to_string(index);
  }
  page->saveButtonGroupToINI(1);
  EXPECT_THAT(Log(), Not(HasSubstr("[Warning]"))) << "1 to 88 fit";
  Add(1, 89, u"n");
  files.Put(kLog, "");
  page->saveSingleButton(&At(*page, 1, 88));
  EXPECT_THAT(Bytes(), HasSubstr("\r\nusedIndices=" + indices + "|89\r\n"));
  EXPECT_EQ(Log(),
            "[Warning] [ButtonGroup1] usedIndices in [C:\\app\\Sequences\\Gala\\Act 1\\pageSetting.ini] is "
            "longer than the 254 characters that are read back\r\n");
}

TEST_F(PageFileTest, AnIndexListThatWasCutLoadsUpToTheCut) {
  std::string indices = "1";
  for (int index = 2; index <= 120; ++index) indices += "|" + std::to_string(index);
  files.Put(kFile, "[ButtonGroup1]\r\nusedIndices=" + indices + "\r\n");
  page->loadFromINI();
  const std::string cut = indices.substr(0, 254);
  const auto pieces = static_cast<std::int32_t>(std::count(cut.begin(), cut.end(), '|') + 1);
  EXPECT_EQ(page->ButtonGroups(1)->buttons->Size(), pieces);
  EXPECT_EQ(std::to_string(At(*page, 1, -1).buttonIndex), cut.substr(cut.rfind('|') + 1));
}

TEST_F(PageFileTest, ANameSurvivesWhatTheFileCanHold) {
  for (const std::u16string_view name : {u"Größe", u"semi;colon", u"a=b", u"[x]", u"\"quoted",
                                         u"C:\\path\\name", u"näme with , and #", u"Ω"}) {
    page = NewPage();
    Add(1, 1, name);
    page->saveToINI(1);
    const auto loaded = NewPage();
    loaded->loadFromINI();
    EXPECT_EQ(At(*loaded, 1, 0).name, name);
  }
}

TEST_F(PageFileTest, ANameOfTheFormatsLimitsComesBackAsDocumented) {
  const std::u16string fits(200, u'n');
  const std::u16string tooLong(250, u'n');
  const std::vector<std::pair<std::u16string, std::u16string>> table = {
      {u"A|B", u"none"},    {u"A\r\nB", u"none"}, {u"  A", u"A"}, {u"A  ", u"A  "},
      {u"\"A\"", u"\"A\""}, {u"'A'", u"'A'"},     {fits, fits},   {tooLong, u"none"},
  };
  for (const auto& [name, readBack] : table) {
    SCOPED_TRACE(ToUtf8(name));
    files.Put(kFile, "");
    page = NewPage();
    Add(1, 1, name)->SetLocked(true);
    page->saveToINI(1);
    page->loadFromINI();
    ASSERT_EQ(page->ButtonGroups(1)->buttons->Size(), 1);
    EXPECT_EQ(At(*page, 1, 0).name, readBack);
  }
}

TEST_F(PageFileTest, ALineCutInsideItsLastFieldEndsTheLoad) {
  Add(1, 1, std::u16string(241, u'n'))->SetLocked(true);
  page->saveToINI(1);
  EXPECT_EQ(NumberOf([this] { page->loadFromINI(); }), Error_TypeMismatch);
}

TEST_F(PageFileTest, TwoButtonsOfOneIndexShareTheLineOfTheLast) {
  Add(1, 4, u"First");
  Add(1, 4, u"Second");
  page->saveToINI(1);
  EXPECT_EQ(Bytes(),
            "[ButtonGroup1]\r\npageOffset=0\r\nfaderValue=0\r\nusedIndices=4|4\r\n"
            "Button4_fields=Second|1|0|0|0|0|False\r\n");
  page->loadFromINI();
  EXPECT_EQ(At(*page, 1, 0).name, u"Second");
  EXPECT_EQ(At(*page, 1, 1).name, u"Second");
}

TEST_F(PageFileTest, AButtonThatLeftKeepsItsLineUnread) {
  Fill();
  page->saveToINI(2);
  page->ButtonGroups(2)->buttons->Remove(0);
  page->saveToINI(2);
  EXPECT_THAT(Bytes(), HasSubstr("usedIndices=2|5\r\nButton1_fields=Intro|1|0|0|0|0|False\r\n"));
  page->loadFromINI();
  EXPECT_EQ(page->ButtonGroups(2)->buttons->Size(), 2);
}

TEST_F(PageFileTest, EverySaveIsOneCommitBeforeThePump) {
  Fill();
  std::vector<std::string> seen;
  hostServices.onPump = [&] { seen.push_back(Bytes()); };
  files.ForgetCalls();
  page->saveToINI();
  ASSERT_EQ(seen.size(), 10U);
  EXPECT_EQ(seen[0], kFilled.substr(0, kFilled.find("[ButtonGroup1]")));
  EXPECT_EQ(seen[2], kFilled.substr(0, kFilled.find("[ButtonGroup3]")));
  EXPECT_EQ(seen[9], kFilled);
  EXPECT_EQ(files.Calls("Replace"), 10);
}

TEST_F(PageFileTest, OnlySavesOfGroupsWithTheirButtonsWaitForTheDisk) {
  Fill();
  page->saveToINI();
  files.ForgetCalls();
  At(*page, 2, 1).Fader()->SetValue(61, true);
  page->saveSingleButton(&At(*page, 2, 1));
  At(*page, 2, 1).name = u"Another and longer";
  page->saveSingleButton(&At(*page, 2, 1));
  page->ButtonGroups(2)->pageOffset = 1000;
  page->saveButtonGroupToINI(2, false);
  EXPECT_EQ(files.Calls("Sync"), 0);
  EXPECT_GT(files.Calls("WriteAt"), 0);
  page->ButtonGroups(2)->pageOffset = 2;
  page->saveButtonGroupToINI(2);
  EXPECT_GE(files.Calls("Sync"), 1);
}

TEST_F(PageFileTest, AFailedSaveReportsNothingAndLeavesTheOldFile) {
  Fill();
  page->saveToINI();
  At(*page, 2, 0).name = u"Another and longer";
  files.FailEvery("Replace", platform::FileStatus::DiskFull);
  page->saveToINI();
  page->saveSingleButton(&At(*page, 2, 0));
  EXPECT_EQ(Bytes(), kFilled);
}

TEST_F(PageFileTest, WithoutPersistOnlyTheDirectSavesTouchTheFile) {
  files.Put(kFile, "[ButtonGroup1]\r\nusedIndices=1\r\n");
  page = NewPage(false);
  page->loadFromINI();
  EXPECT_EQ(page->ButtonGroups(1)->buttons->Size(), 0);
  page->saveToINI();
  page->saveToINI(2);
  EXPECT_EQ(Bytes(), "[ButtonGroup1]\r\nusedIndices=1\r\n");
  EXPECT_EQ(hostServices.pumps, 0);
  page->saveSingleButton(Add(2, 1, u"Intro").get());
  page->saveButtonGroupToINI(3, false);
  EXPECT_EQ(Bytes(),
            "[ButtonGroup1]\r\nusedIndices=1\r\n[ButtonGroup2]\r\nusedIndices=1\r\n"
            "Button1_fields=Intro|1|0|0|0|0|False\r\n[ButtonGroup3]\r\npageOffset=0\r\nfaderValue=0\r\n");
}

TEST_F(PageFileTest, SavingToAMissingFolderReportsNothing) {
  page->Init(u"C:\\elsewhere", controller.get(), u"Gala", u"Act 1");
  page->saveToINI();
  EXPECT_FALSE(files.Has(u"C:\\elsewhere\\Sequences\\Gala\\Act 1\\pageSetting.ini"));
}

}  // namespace
}  // namespace vestrel
