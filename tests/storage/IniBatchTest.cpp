#include <gtest/gtest.h>

#include <new>

#include "storage/IniBatch.h"
#include "storage/Utf16Text.h"
#include "storage/modIniFile.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePlatform.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kFile = u"C:\\app\\page.ini";

class IniBatchTest : public test::TestPlatform {
 protected:
  void SetUp() override { files.PutFolder(u"C:\\app"); }
  static void Write(std::u16string_view key, std::u16string value, std::u16string_view file = kFile) {
    modIniFile::WriteIniString(file, u"s", key, &value);
  }
  static std::u16string Read(std::u16string_view key) {
    return modIniFile::ReadIniString(kFile, u"s", key, u"none");
  }
};

TEST_F(IniBatchTest, CommitsEverythingAsOneChange) {
  files.Put(kFile, "[s]\r\na=1\r\n");
  {
    const IniBatch batch(kFile, Sync::No);
    Write(u"a", u"10");
    Write(u"b", u"2");
    EXPECT_EQ(files.Get(kFile), "[s]\r\na=1\r\n");
  }
  EXPECT_EQ(files.Get(kFile), "[s]\r\na=10\r\nb=2\r\n");
  EXPECT_EQ(files.Calls("Replace"), 1);
  EXPECT_EQ(files.Calls("Sync"), 0);
}

TEST_F(IniBatchTest, CanForceItsChangeToTheDisk) {
  {
    const IniBatch batch(kFile, Sync::Yes);
    Write(u"a", u"1");
  }
  EXPECT_EQ(files.Calls("Sync"), 1);
  EXPECT_EQ(files.Calls("SyncDirectory"), 1);
}

TEST_F(IniBatchTest, WithoutWritesTouchesNothing) {
  { const IniBatch batch(kFile, Sync::Yes); }
  EXPECT_EQ(files.Calls(), 0);
}

TEST_F(IniBatchTest, ReadsSeeWhatIsPending) {
  files.Put(kFile, "[s]\r\na=1\r\nb= 2 \r\n");
  const IniBatch batch(kFile, Sync::No);
  EXPECT_EQ(Read(u"a"), u"1");
  Write(u"A", u" \"x\" ");
  EXPECT_EQ(Read(u"a"), u"x");
  EXPECT_EQ(Read(u"b"), u"2");
  EXPECT_EQ(Read(u"c"), u"none");
}

TEST_F(IniBatchTest, APendingKeyIsThatOfItsOwnSection) {
  const IniBatch batch(kFile, Sync::No);
  std::u16string value = u"1";
  modIniFile::WriteIniString(kFile, u"t", u"a", &value);
  EXPECT_EQ(Read(u"a"), u"none");
  EXPECT_EQ(modIniFile::ReadIniString(kFile, u" T ", u"a", u"none"), u"1");
}

TEST_F(IniBatchTest, ReadsSeePendingDeletionsAndLineBreaks) {
  files.Put(kFile, "[s]\r\na=1\r\na=2\r\n");
  const IniBatch batch(kFile, Sync::No);
  modIniFile::WriteIniString(kFile, u"s", u"a", nullptr);
  EXPECT_EQ(Read(u"a"), u"2");
  Write(u"b", u"x\r\nc=y");
  EXPECT_EQ(Read(u"c"), u"y");
}

TEST_F(IniBatchTest, ReadsAFileInUtf16) {
  files.Put(kFile, utf16::Encode(utf16::FromText(u"[s]\r\na=\u20AC\r\n")));
  {
    const IniBatch batch(kFile, Sync::No);
    EXPECT_EQ(Read(u"a"), u"\u20AC");
    Write(u"b", u"\u00E9");
    EXPECT_EQ(Read(u"a"), u"\u20AC");
    EXPECT_EQ(Read(u"b"), u"\u00E9");
  }
  EXPECT_EQ(files.Get(kFile), utf16::Encode(utf16::FromText(u"[s]\r\na=\u20AC\r\nb=\u00E9\r\n")));
}

TEST_F(IniBatchTest, AllReadsComeFromOneReadingOfTheFile) {
  files.Put(kFile, "[s]\r\na=1\r\nb=2\r\n");
  const IniBatch batch(kFile, Sync::No);
  Read(u"a");
  files.Put(kFile, "[s]\r\na=8\r\nb=9\r\n");
  EXPECT_EQ(Read(u"b"), u"2");
  EXPECT_EQ(files.Calls("Open"), 1);
}

TEST_F(IniBatchTest, ReadsSeeTheFileAnewAfterACommit) {
  files.Put(kFile, "[s]\r\na=1\r\n");
  IniBatch batch(kFile, Sync::No);
  Read(u"a");
  files.Put(kFile, "[s]\r\na=8\r\n");
  EXPECT_TRUE(batch.Commit());
  EXPECT_EQ(Read(u"a"), u"8");
}

TEST_F(IniBatchTest, KeepsWhatOthersWroteMeanwhile) {
  files.Put(kFile, "[s]\r\na=1\r\n");
  {
    const IniBatch batch(kFile, Sync::No);
    Read(u"a");
    Write(u"a", u"2");
    files.Put(kFile, "[s]\r\na=1\r\nother=3\r\n");
  }
  EXPECT_EQ(files.Get(kFile), "[s]\r\na=2\r\nother=3\r\n");
}

TEST_F(IniBatchTest, TellsWhetherEverythingIsInTheFile) {
  files.Put(kFile, "[s]\r\na=1\r\n");
  files.SetReadOnly(kFile, true);
  IniBatch batch(kFile, Sync::No);
  EXPECT_TRUE(batch.Commit());
  Write(u"a", u"2");
  EXPECT_FALSE(batch.Commit());
  EXPECT_TRUE(batch.Commit());
  EXPECT_EQ(files.Get(kFile), "[s]\r\na=1\r\n");
}

TEST_F(IniBatchTest, ConcernsItsOwnFileAlone) {
  const IniBatch batch(kFile, Sync::No);
  Write(u"a", u"1", u"C:\\app\\other.ini");
  EXPECT_EQ(files.Get(u"C:\\app\\other.ini"), "[s]\r\na=1\r\n");
  Write(u"a", u"1", u"C:\\app\\leaf.ini");
  EXPECT_EQ(files.Get(u"C:\\app\\leaf.ini"), "[s]\r\na=1\r\n");
}

TEST_F(IniBatchTest, ABatchInsideAnotherJoinsItAndCommitsForBoth) {
  const IniBatch outer(kFile, Sync::No);
  Write(u"a", u"1");
  {
    const IniBatch inner(kFile, Sync::Yes);
    Write(u"b", u"2");
    EXPECT_EQ(Read(u"a"), u"1");
  }
  EXPECT_EQ(files.Get(kFile), "[s]\r\na=1\r\nb=2\r\n");
  EXPECT_EQ(files.Calls("Sync"), 1);
  Write(u"c", u"3");
  EXPECT_EQ(files.Get(kFile), "[s]\r\na=1\r\nb=2\r\n");
}

TEST_F(IniBatchTest, ASaveThatAnErrorBreaksOffIsDroppedWhole) {
  files.Put(kFile, "[s]\r\na=1\r\n");
  {
    const IniBatch outer(kFile, Sync::No);
    Write(u"a", u"2");
    try {
      const IniBatch inner(kFile, Sync::No);
      Write(u"b", u"3");
      throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(Read(u"b"), u"none");
    }
  }
  EXPECT_EQ(files.Get(kFile), "[s]\r\na=2\r\n");
}

TEST_F(IniBatchTest, AnErrorDropsOnlyWhatIsNotCommittedYet) {
  {
    const IniBatch outer(kFile, Sync::No);
    Write(u"a", u"1");
    try {
      IniBatch inner(kFile, Sync::No);
      Write(u"b", u"2");
      inner.Commit();
      Write(u"c", u"3");
      throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
    }
    Write(u"d", u"4");
  }
  EXPECT_EQ(files.Get(kFile), "[s]\r\na=1\r\nb=2\r\nd=4\r\n");
}

TEST_F(IniBatchTest, ABatchInsideAnotherRequiresTheSameFile) {
  files.Put(kFile, "[s]\r\na=1\r\n");
  files.FailEvery("ReadAt", platform::FileStatus::IoError);
  const IniBatch outer(kFile, Sync::No);
  IniBatch inner(kFile, Sync::No);
  EXPECT_RAISES(Error_DeviceIO, inner.RequireReadable());
}

TEST_F(IniBatchTest, AFileThatIsNotThereOrCannotBeIsReadAsAnEmptyOne) {
  using platform::FileStatus;
  for (const FileStatus status : {FileStatus::NotFound, FileStatus::PathNotFound, FileStatus::BadName}) {
    files.FailEvery("Open", status);
    IniBatch batch(kFile, Sync::No);
    batch.RequireReadable();
    EXPECT_EQ(Read(u"a"), u"none");
  }
}

TEST_F(IniBatchTest, AnErrorDuringALoadKeepsWhatOthersWroteMeanwhile) {
  files.Put(kFile, "[s]\r\na=1\r\n");
  try {
    IniBatch load(kFile, Sync::No);
    load.RequireReadable();
    Write(u"b", u"2");
    throw std::bad_alloc();
  } catch (const std::bad_alloc&) {
  }
  EXPECT_EQ(files.Get(kFile), "[s]\r\na=1\r\nb=2\r\n");
}

TEST_F(IniBatchTest, BatchesOfTwoFilesNest) {
  constexpr std::u16string_view kOther = u"C:\\app\\other.ini";
  {
    const IniBatch first(kFile, Sync::No);
    const IniBatch second(kOther, Sync::No);
    Write(u"a", u"1");
    Write(u"b", u"2", kOther);
    EXPECT_EQ(files.Calls(), 0);
  }
  EXPECT_EQ(files.Get(kFile), "[s]\r\na=1\r\n");
  EXPECT_EQ(files.Get(kOther), "[s]\r\nb=2\r\n");
}

}  // namespace
}  // namespace vestrel
