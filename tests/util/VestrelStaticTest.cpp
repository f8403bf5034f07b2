#include <gmock/gmock.h>

#include <vector>

#include "core/Version.h"
#include "storage/clsSequence.h"
#include "tests/support/Errors.h"
#include "tests/support/LogFixture.h"
#include "util/VestrelStatic.h"

namespace vestrel {
namespace {

class VestrelStaticTest : public test::LogFixture {
 protected:
  Ref<VestrelStatic> facade = MakeRef<VestrelStatic>();
};

TEST_F(VestrelStaticTest, PublishesTheNumberOfTopButtons) {
  EXPECT_EQ(facade->NUM_TOP_BUTTONS, 32);
  facade->NUM_TOP_BUTTONS = 5;
  EXPECT_EQ(facade->globalToLocalControlIndex(4, 20), 20);
}

TEST_F(VestrelStaticTest, IsTheDoorToTheLog) {
  facade->Init(u"C:\\data\\host.txt");
  facade->Log(u"one");
  facade->Log(u"hidden", LogLevel_4_SPEW);
  facade->SetLogLevel(LogLevel_4_SPEW);
  facade->Log(u"two", LogLevel_4_SPEW);
  EXPECT_EQ(facade->GetLogger(), modLog::GetLogger());
  EXPECT_EQ(files.Get(u"C:\\data\\host.txt"),
            "[LogSystem] ========================================\r\n"
            "[LogSystem] logging started at 15/11/2026 07:31:41\r\n[Info] one\r\n[Spew] two\r\n");
}

TEST_F(VestrelStaticTest, TellsObjectsFromNone) {
  EXPECT_TRUE(facade->IsSomething(facade.get()));
  EXPECT_FALSE(facade->IsSomething(nullptr));
}

TEST_F(VestrelStaticTest, ForwardsTheIndexArithmetic) {
  EXPECT_EQ(facade->OneBasedMod(5, 4), 1);
  EXPECT_EQ(facade->ZeroToOneBased(4), 5);
  EXPECT_EQ(facade->OneToZeroBased(4), 3);
  EXPECT_EQ(facade->globalToLocalControlIndex(4, 37), 1);
  EXPECT_EQ(facade->returnGroupFromPosition(4, 37), 2);
  EXPECT_EQ(facade->returnFirstPositionFromGroup(4, 3), 41);
  const Variant control = facade->controlIndexFromButtonIndex(4, 2, 7);
  EXPECT_EQ(control.kind(), Variant::Kind::Long);
  EXPECT_EQ(control.AsLong(), 39);
}

TEST_F(VestrelStaticTest, TellsTheVersion) {
  EXPECT_EQ(facade->Version(), Version());
}

TEST_F(VestrelStaticTest, OpensAndClosesTheFilesThatRecordsAreWrittenTo) {
  facade->Init(u"C:\\data\\host.txt");
  const std::u16string path = u"C:\\data\\one.txt";
  const auto sequence = MakeRef<clsSequence>();
  sequence->theName = u"Chase";
  std::int32_t number = facade->OpenTextFileForOutput(path);
  sequence->SaveToFile(number);
  facade->CloseTextFile(number);
  number = facade->OpenTextFileForAppend(path);
  sequence->SaveToFile(number);
  facade->CloseTextFile(number);

  number = facade->OpenTextFileForInput(path);
  const auto read = MakeRef<clsSequence>();
  read->LoadFromFile(number, 1, 1);
  EXPECT_EQ(read->theName, u"Chase");
  read->LoadFromFile(number, 1, 1);
  EXPECT_RAISES(Error_InputPastEnd, read->LoadFromFile(number, 1, 1));
  facade->CloseTextFile(number);
  facade->CloseTextFile(number);
  EXPECT_RAISES(Error_FileNotFound, facade->OpenTextFileForInput(u"C:\\data\\none.txt"));
}

TEST_F(VestrelStaticTest, Asserts) {
  facade->Assert(true);
  EXPECT_RAISES(7155, facade->Assert(false));
}

TEST_F(VestrelStaticTest, ComparesThroughTheFirstObject) {
  const Ref<clsLong> two = BoxLong(2);
  EXPECT_TRUE(facade->AreEqual(two.get(), BoxLong(2).get()));
  EXPECT_FALSE(facade->NotEqual(two.get(), BoxLong(2).get(), u"value"));
  EXPECT_FALSE(facade->AreEqual(two.get(), BoxLong(3).get()));
  EXPECT_TRUE(facade->NotEqual(two.get(), BoxLong(3).get()));
  EXPECT_RAISES(13, facade->AreEqual(two.get(), BoxString(u"2").get()));
  EXPECT_RAISES(91, facade->AreEqual(nullptr, two.get()));
  EXPECT_RAISES(91, facade->NotEqual(nullptr, two.get()));
}

TEST_F(VestrelStaticTest, ButtonsThatDifferInNameOnlyAreNotEqual) {
  const auto named = [](std::u16string_view name) {
    const Ref<clsButton> button = MakeRef<clsButton>();
    button->InitWithValues(nullptr, 1, 4, name, ButtonType_Sequence, nullptr);
    return button;
  };
  const Ref<clsButton> intro = named(u"Intro");
  EXPECT_FALSE(facade->AreEqual(intro.get(), named(u"Outro").get()));
  EXPECT_TRUE(facade->NotEqual(intro.get(), named(u"Outro").get()));
  EXPECT_TRUE(facade->AreEqual(intro.get(), named(u"Intro").get()));
  EXPECT_TRUE(facade->AreEqual(intro.get(), named(u"Outro").get(), u"buttonIndex"));
  EXPECT_RAISES(errBadFieldName, facade->AreEqual(intro.get(), intro.get(), u"name"));
  EXPECT_RAISES(errBadFieldName, facade->NotEqual(intro.get(), intro.get(), u"name"));
}

TEST_F(VestrelStaticTest, TakesFileNamesApart) {
  EXPECT_EQ(facade->Basename(u"C:\\a\\b.txt"), u"b.txt");
  EXPECT_EQ(facade->Basename(u"C:\\a\\b.txt", u"/"), u"C:\\a\\b.txt");
  EXPECT_EQ(facade->RemoveFileExt(u"show.ini"), u"show");
  EXPECT_EQ(facade->RemoveFileExt(u"README"), u"");
}

TEST_F(VestrelStaticTest, DeletesThePageFileOnly) {
  const std::u16string folder = u"C:\\data\\Sequences\\Gala\\Page 1";
  files.Put(folder + u"\\pageSetting.ini", "[x]");
  files.Put(folder + u"\\Intro.MUL", "1,1");
  facade->deleteINI(u"C:\\data", u"Gala", u"Page 1");
  EXPECT_FALSE(files.Has(folder + u"\\pageSetting.ini"));
  EXPECT_TRUE(files.Has(folder + u"\\Intro.MUL"));
  facade->deleteINI(u"C:\\data", u"Gala", u"Page 1");
}

TEST_F(VestrelStaticTest, AnswersAButtonAsTheSameObject) {
  const Ref<clsButton> button = MakeRef<clsButton>();
  EXPECT_EQ(facade->AsButton(button.get()), button);
}

TEST_F(VestrelStaticTest, OtherObjectsAreNoButtons) {
  EXPECT_RAISES(13, facade->AsButton(BoxLong(1).get()));
  EXPECT_FALSE(facade->AsButton(nullptr));
}

TEST_F(VestrelStaticTest, BoxesAndUnboxes) {
  EXPECT_EQ(facade->UnboxLong(facade->BoxLong(-7).get()), -7);
  EXPECT_EQ(facade->UnboxString(facade->BoxString(u"x").get()), u"x");
  EXPECT_RAISES(91, facade->UnboxLong(nullptr));
  EXPECT_RAISES(91, facade->UnboxString(nullptr));
}

TEST_F(VestrelStaticTest, MakesListsOfTexts) {
  const std::vector<Variant> values{u"a", 1};
  EXPECT_EQ(facade->StringListFrom(values)->JoinStrings(u","), u"a,1");
  EXPECT_EQ(facade->StringListFrom({})->Size(), 0);
  EXPECT_EQ(facade->ListFromSplitString(u"a|b", u"|")->JoinStrings(u","), u"a,b");
  EXPECT_EQ(facade->ListFromSplitString(u"", u"|")->Size(), 0);
}

}  // namespace
}  // namespace vestrel
