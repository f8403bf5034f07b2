#include <gtest/gtest.h>

#include "core/Error.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"
#include "core/modObjectList.h"
#include "storage/FileIo.h"
#include "storage/Folders.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/TempFolder.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kLog = u"C:\\log.txt";

class FoldersTest : public test::TestPlatform {
 protected:
  void SetUp() override { modLog::Init(kLog); }
  static void Create(std::u16string_view path) {
    modUtils::CreateDirs(*modObjectList::StringListFromSplit(path, u"\\"));
  }
  std::string LoggedBy(std::u16string_view path) {
    modLog::SetLogLevel(LogLevel_4_SPEW);
    const std::size_t before = files.Get(kLog).size();
    Create(path);
    return files.Get(kLog).substr(before);
  }
};

TEST_F(FoldersTest, SettingsLieInTheFoldersOfShowAndPage) {
  EXPECT_EQ(modUtils::ShowFolder(u"C:\\app", u"Gala"), u"C:\\app\\Sequences\\Gala");
  EXPECT_EQ(modUtils::ShowSettingsPath(u"C:\\app", u"Gala"), u"C:\\app\\Sequences\\Gala\\pageSetting.ini");
  EXPECT_EQ(modUtils::PageSettingsPath(u"C:\\app", u"Gala", u"One"),
            u"C:\\app\\Sequences\\Gala\\One\\pageSetting.ini");
}

TEST_F(FoldersTest, AFileAtTheRootLiesInTheRootAndABareNameInTheCurrentFolder) {
  EXPECT_EQ(FolderOf(u"\\show.ini"), u"\\");
  EXPECT_EQ(FolderOf(u"C:\\app\\show.ini"), u"C:\\app");
  EXPECT_EQ(FolderOf(u"/app/show.ini"), u"/app");
  EXPECT_EQ(FolderOf(u"show.ini"), u".");
}

TEST_F(FoldersTest, AFileThatIsShorterThanItsSizeSaidIsReadToItsEnd) {
  files.Put(u"C:\\f", "abc");
  std::unique_ptr<platform::File> file;
  ASSERT_EQ(files.Open(u"C:\\f", platform::OpenMode::Read, file), platform::FileStatus::Ok);
  FileBytes bytes;
  EXPECT_EQ(ReadAll(*file, 5, bytes), platform::FileStatus::Ok);
  EXPECT_EQ(bytes.view(), "abc");
  EXPECT_EQ(ReadAll(*file, ~std::uint64_t{0}, bytes), platform::FileStatus::IoError);
}

TEST_F(FoldersTest, AFileOfAnUnknownSizeIsNotRead) {
  files.Put(u"C:\\f", "abc");
  files.FailEvery("Info", platform::FileStatus::IoError);
  FileBytes bytes;
  EXPECT_EQ(ReadWholeFile(u"C:\\f", bytes), platform::FileStatus::IoError);
}

TEST_F(FoldersTest, MakesOnlyTheLevelsThatAreMissing) {
  files.PutFolder(u"C:\\app");
  EXPECT_EQ(LoggedBy(u"C:\\app\\Gala"),
            "[Spew] checking dir [C:]\r\n[Spew] dir [C:] already existed\r\n"
            "[Spew] checking dir [C:\\app]\r\n[Spew] dir [C:\\app] already existed\r\n"
            "[Spew] checking dir [C:\\app\\Gala]\r\n[Info] CreateDirs() created dir [C:\\app\\Gala]\r\n");
  EXPECT_TRUE(files.Has(u"C:\\app\\Gala"));
  EXPECT_EQ(files.Calls("MakeDirectory"), 1);
}

TEST_F(FoldersTest, MakesEveryLevelFromTheRootDown) {
  Create(u"\\a\\b\\c");
  EXPECT_TRUE(files.Has(u"\\a\\b\\c"));
  EXPECT_EQ(files.Calls("MakeDirectory"), 3);
}

TEST(FoldersOnDiskTest, MakesEveryLevelFromTheRootDown) {
  const test::TempFolder folder;
  modLog::Init(folder.Path("log.txt"));
  modUtils::CreateDirs(*modObjectList::StringListFromSplit(folder.Path("Sequences") + u"\\Gala", u"\\"));
  EXPECT_TRUE(std::filesystem::is_directory(folder.Real("Sequences") / "Gala"));
}

TEST_F(FoldersTest, AFileOfTheNameCountsAsTheFolder) {
  files.Put(u"C:\\app", "file");
  Create(u"C:\\app");
  EXPECT_EQ(files.Get(u"C:\\app"), "file");
  EXPECT_RAISES(Error_PathNotFound, Create(u"C:\\app\\Gala"));
}

TEST_F(FoldersTest, FailuresReachTheCaller) {
  files.FailEvery("MakeDirectory", platform::FileStatus::AccessDenied);
  EXPECT_RAISES(Error_PathFileAccess, Create(u"C:\\new"));
}

TEST_F(FoldersTest, NothingToMakeMakesNothing) {
  modUtils::CreateDirs(*MakeRef<clsObjectList>());
  EXPECT_EQ(files.Calls("MakeDirectory"), 0);
}

TEST_F(FoldersTest, AFileThatTheSystemCannotTellOfIsNoAbsentOne) {
  files.Put(u"C:\\app\\f", "x");
  files.FailEvery("Info", platform::FileStatus::IoError);
  EXPECT_RAISES(Error_DeviceIO, modUtils::FileExists(u"C:\\app\\f"));
  EXPECT_RAISES(Error_DeviceIO, modUtils::deleteINI(u"C:\\app", u"Gala", u"One"));
}

TEST_F(FoldersTest, ANewFolderIsForcedToTheDisk) {
  files.PutFolder(u"C:\\app");
  Create(u"C:\\app\\Sequences\\Gala");
  EXPECT_EQ(files.Calls("SyncDirectory"), 2);
  files.FailEvery("SyncDirectory", platform::FileStatus::IoError);
  Create(u"C:\\app\\Sequences\\Encore");
  EXPECT_TRUE(files.Has(u"C:\\app\\Sequences\\Encore"));
}

TEST_F(FoldersTest, InterruptedCallsAreMadeAgain) {
  files.PutFolder(u"C:\\app");
  for (int nth = 1; nth <= 3; ++nth) {
    files.FailCall(nth, platform::FileStatus::Interrupted);
    Create(u"C:\\app\\" + std::u16string(static_cast<std::size_t>(nth), u'x'));
  }
}

TEST_F(FoldersTest, DeleteIniTakesThePageFileAndLeavesTheFolder) {
  const std::u16string page = modUtils::PageSettingsPath(u"C:\\app", u"Gala", u"One");
  files.Put(page, "x");
  modUtils::deleteINI(u"C:\\app", u"Gala", u"One");
  EXPECT_FALSE(files.Has(page));
  EXPECT_TRUE(files.Has(u"C:\\app\\Sequences\\Gala\\One"));
  modUtils::deleteINI(u"C:\\app", u"Gala", u"One");
  modUtils::deleteINI(u"C:\\app", u"Gala", u"none");
}

TEST_F(FoldersTest, AFileThatCannotBeDeletedIsAnError) {
  files.Put(modUtils::PageSettingsPath(u"C:\\app", u"Gala", u"One"), "x");
  files.FailEvery("Remove", platform::FileStatus::Busy);
  EXPECT_RAISES(Error_PermissionDenied, modUtils::deleteINI(u"C:\\app", u"Gala", u"One"));
}

TEST_F(FoldersTest, AReadOnlyFileIsNotDeleted) {
  const std::u16string page = modUtils::PageSettingsPath(u"C:\\app", u"Gala", u"One");
  files.Put(page, "x");
  files.SetReadOnly(page, true);
  EXPECT_RAISES(Error_PathFileAccess, modUtils::deleteINI(u"C:\\app", u"Gala", u"One"));
  EXPECT_EQ(files.Get(page), "x");
}

TEST_F(FoldersTest, AFileThatIsNotThereOrThatTheSystemCannotTellOfIsNotDeleted) {
  files.Put(u"C:\\app\\f", "x");
  EXPECT_RAISES(Error_FileNotFound, modUtils::RemoveFile(u"C:\\app\\none"));
  files.FailEvery("Info", platform::FileStatus::IoError);
  EXPECT_RAISES(Error_DeviceIO, modUtils::RemoveFile(u"C:\\app\\f"));
  EXPECT_EQ(files.Get(u"C:\\app\\f"), "x");
}

TEST(FoldersOnDiskTest, ANameThatNoFileCanHaveIsAnErrorAndNoAbsentFile) {
  const test::TempFolder folder;
  for (const std::u16string& name : {std::u16string(u"a\0b", 3), std::u16string(1, char16_t{0xD800})}) {
    EXPECT_RAISES(Error_BadFileNameOrNumber, modUtils::FileExists(folder.Path("") + name));
    EXPECT_RAISES(Error_BadFileNameOrNumber, modUtils::deleteINI(folder.Path(""), u"Gala", name));
  }
}

TEST_F(FoldersTest, FoldersAreMadeOfTextsAlone) {
  const auto parts = MakeRef<clsObjectList>();
  parts->AddItem(MakeRef<clsLong>().get());
  EXPECT_RAISES(Error_TypeMismatch, modUtils::CreateDirs(*parts));
}

TEST_F(FoldersTest, TellsFilesFromFolders) {
  files.Put(u"C:\\app\\f", "");
  EXPECT_TRUE(modUtils::FileExists(u"C:\\app\\f"));
  EXPECT_FALSE(modUtils::FileExists(u"C:\\app"));
  EXPECT_TRUE(modUtils::PathExists(u"C:\\app"));
  EXPECT_FALSE(modUtils::PathExists(u"C:\\none"));
}

}  // namespace
}  // namespace vestrel
