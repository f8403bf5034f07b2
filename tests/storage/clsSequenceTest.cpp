#include <gtest/gtest.h>

#include "core/Error.h"
#include "storage/TextFile.h"
#include "storage/clsSequence.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePlatform.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kStatus = u"C:\\module\\Sequences\\shortcutsStatus.ini";
constexpr std::u16string_view kLine = u"C:\\app\\line.txt";

class clsSequenceTest : public test::TestPlatform {
 protected:
  void SetUp() override {
    files.PutFolder(u"C:\\app");
    files.PutFolder(u"C:\\module\\Sequences");
    modLog::Init(u"C:\\app\\log.txt");
  }
  std::string Saved(clsSequence& sequence) {
    TextFile::Open(1, kLine, TextFile::Mode::Output);
    sequence.SaveToFile(1);
    TextFile::Close(1);
    return files.Get(kLine);
  }
};

TEST_F(clsSequenceTest, IsEmptyAtFirst) {
  const Ref<clsSequence> sequence = MakeRef<clsSequence>();
  EXPECT_EQ(Saved(*sequence), "\"\",\"\",0,\"\",#FALSE#,#FALSE#,#FALSE#,#FALSE#,0,0,0,0,0,\"\",0\r\n");
}

TEST_F(clsSequenceTest, SavesFifteenFieldsInOrderAndReadsThemBack) {
  const Ref<clsSequence> sequence = MakeRef<clsSequence>();
  sequence->theName = u"Intro, slow";
  sequence->myMulti = u"M";
  sequence->myPlayback = -3;
  sequence->myButtonGroup = u"G";
  sequence->releaseActive = true;
  sequence->timeBool = true;
  sequence->theBeat = 0.1F;
  sequence->theTime = 12.5F;
  sequence->mySequenceType = 4;
  sequence->currentX = -1.0F / 3;
  sequence->currentY = 100;
  sequence->tag = u"t";
  sequence->seqType = 5;
  sequence->myPage = u"not stored";
  const std::string line = Saved(*sequence);
  EXPECT_EQ(
      line,
      "\"Intro, slow\",\"M\",-3,\"G\",#TRUE#,#FALSE#,#TRUE#,#FALSE#,0.1,12.5,4,-0.33333334,100,\"t\",5\r\n");
  const Ref<clsSequence> loaded = MakeRef<clsSequence>();
  TextFile::Open(1, kLine, TextFile::Mode::Input);
  loaded->LoadFromFile(1, 1, 1);
  TextFile::Close(1);
  EXPECT_EQ(Saved(*loaded), line);
  EXPECT_EQ(loaded->currentX, -1.0F / 3);
  EXPECT_EQ(loaded->myPage, u"");
}

TEST_F(clsSequenceTest, EachFlagHasItsOwnPlace) {
  bool clsSequence::*const flags[] = {&clsSequence::releaseActive, &clsSequence::isRunning,
                                      &clsSequence::timeBool, &clsSequence::beatBool};
  for (std::size_t set = 0; set < std::size(flags); ++set) {
    const Ref<clsSequence> sequence = MakeRef<clsSequence>();
    sequence.get()->*flags[set] = true;
    std::string expected = "\"\",\"\",0,\"\"";
    for (std::size_t i = 0; i < std::size(flags); ++i) expected += i == set ? ",#TRUE#" : ",#FALSE#";
    EXPECT_EQ(Saved(*sequence), expected + ",0,0,0,0,0,\"\",0\r\n");
    const Ref<clsSequence> loaded = MakeRef<clsSequence>();
    TextFile::Open(1, kLine, TextFile::Mode::Input);
    loaded->LoadFromFile(1, 1, 1);
    TextFile::Close(1);
    for (std::size_t i = 0; i < std::size(flags); ++i) EXPECT_EQ(loaded.get()->*flags[i], i == set);
  }
}

TEST_F(clsSequenceTest, ReadsNothingOfAnotherVersion) {
  const Ref<clsSequence> sequence = MakeRef<clsSequence>();
  sequence->theName = u"kept";
  sequence->LoadFromFile(99, 1, 2);
  sequence->LoadFromFile(99, 2, 1);
  EXPECT_EQ(sequence->theName, u"kept");
  EXPECT_NE(files.Get(u"C:\\app\\log.txt")
                .find("[Info] *** attempted to load from unhandled version in clsSequence ***\r\n"),
            std::string::npos);
}

TEST_F(clsSequenceTest, NeedsAnOpenFile) {
  const Ref<clsSequence> sequence = MakeRef<clsSequence>();
  EXPECT_RAISES(Error_BadFileNameOrNumber, sequence->SaveToFile(9));
  EXPECT_RAISES(Error_BadFileNameOrNumber, sequence->LoadFromFile(9, 1, 1));
}

TEST_F(clsSequenceTest, WritesOffForItsTrimmedNameAndPageWhenDestroyed) {
  Ref<clsSequence> sequence = MakeRef<clsSequence>();
  sequence->theName = u"  Intro ";
  sequence->myPage = u" Page 1 ";
  const Ref<clsSequence> second = sequence;
  sequence = nullptr;
  EXPECT_FALSE(files.Has(kStatus));
  const_cast<Ref<clsSequence>&>(second) = nullptr;  // NOLINT(cppcoreguidelines-pro-type-const-cast)
  EXPECT_EQ(files.Get(kStatus), "[Intro]\r\nPage 1=off\r\n");
}

TEST_F(clsSequenceTest, WritesOffWithoutANameAsWell) {
  MakeRef<clsSequence>();
  EXPECT_EQ(files.Get(kStatus), "[]\r\n=off\r\n");
}

TEST_F(clsSequenceTest, SwallowsAFailingWriteOfItsStatus) {
  files.FailEvery("Open", platform::FileStatus::IoError);
  MakeRef<clsSequence>();
  files.FailNothing();
  EXPECT_FALSE(files.Has(kStatus));
  hostServices.moduleFolder = u"C:\\none";
  MakeRef<clsSequence>();
  EXPECT_EQ(files.OpenFiles(), 0);
}

}  // namespace
}  // namespace vestrel
