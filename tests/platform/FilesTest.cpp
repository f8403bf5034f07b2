// The system's files: what every implementation of the interface promises.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "platform/Files.h"
#include "platform/System.h"
#include "tests/support/TempFolder.h"

namespace vestrel::platform {
namespace {

class FilesTest : public testing::Test {
 protected:
  FileStatus Open(std::string_view name, OpenMode mode) {
    file.reset();
    return system.Open(folder.Path(name), mode, file);
  }
  FileStatus Write(std::string_view bytes, std::uint64_t offset = 0) {
    std::size_t done = 0;
    return file->WriteAt(offset, std::span(bytes.data(), bytes.size()), done);
  }
  void Append(OpenMode mode, std::string_view bytes) {
    ASSERT_EQ(Open("log", mode), FileStatus::Ok);
    EXPECT_EQ(Write(bytes), FileStatus::Ok);
  }
  std::string Read(std::uint64_t offset, std::size_t size) {
    std::string bytes(size, '\0');
    std::size_t done = 0;
    EXPECT_EQ(file->ReadAt(offset, bytes, done), FileStatus::Ok);
    bytes.resize(done);
    return bytes;
  }

  test::TempFolder folder;
  Files& system = SystemFiles();
  std::unique_ptr<File> file;
};

TEST_F(FilesTest, OpenModesTreatPresentAndAbsentFilesAsPromised) {
  folder.Put("there", "old");
  EXPECT_EQ(Open("absent", OpenMode::Read), FileStatus::NotFound);
  EXPECT_EQ(Open("absent", OpenMode::ReadWrite), FileStatus::NotFound);
  EXPECT_EQ(Open("no/absent", OpenMode::Read), FileStatus::PathNotFound);
  EXPECT_EQ(Open("no/absent", OpenMode::Create), FileStatus::PathNotFound);
  EXPECT_EQ(Open("there/absent", OpenMode::Read), FileStatus::PathNotFound);
  EXPECT_EQ(Open("there", OpenMode::CreateNew), FileStatus::Exists);
  EXPECT_EQ(Open("there", OpenMode::Scratch), FileStatus::Ok);
  EXPECT_EQ(folder.Get("there"), "old");
  EXPECT_EQ(Open("there", OpenMode::Create), FileStatus::Ok);
  EXPECT_EQ(folder.Get("there"), "");
  EXPECT_EQ(Open("made", OpenMode::CreateNew), FileStatus::Ok);
  EXPECT_EQ(folder.Get("made"), "");
}

TEST_F(FilesTest, NamesThatCannotBeAreRefused) {
  EXPECT_EQ(system.Open(u"", OpenMode::Read, file), FileStatus::BadName);
  EXPECT_EQ(system.Open(std::u16string_view(u"a\0b", 3), OpenMode::Create, file), FileStatus::BadName);
  EXPECT_EQ(system.Open(std::u16string(1, char16_t{0xD800}), OpenMode::Create, file), FileStatus::BadName);
}

TEST_F(FilesTest, EveryCallRefusesANameThatCannotBe) {
  const std::u16string bad(1, char16_t{0xD800});
  std::u16string real;
  std::vector<std::u16string> names;
  FileInfo info;
  EXPECT_EQ(system.Info(bad, info), FileStatus::BadName);
  EXPECT_EQ(system.Resolve(bad, real), FileStatus::BadName);
  EXPECT_EQ(system.Replace(bad, folder.Path("f")), FileStatus::BadName);
  EXPECT_EQ(system.Replace(folder.Path("f"), bad), FileStatus::BadName);
  EXPECT_EQ(system.Remove(bad), FileStatus::BadName);
  EXPECT_EQ(system.MakeDirectory(bad), FileStatus::BadName);
  EXPECT_EQ(system.SyncDirectory(bad), FileStatus::BadName);
  EXPECT_EQ(system.List(bad, names), FileStatus::BadName);
  EXPECT_EQ(Open(std::string(300, 'n'), OpenMode::Read), FileStatus::BadName);
}

TEST_F(FilesTest, NamesWithoutAFolderAreLookedForInTheCurrentOneAndTheRoot) {
  EXPECT_EQ(system.Open(u"vestrel-no-such-file", OpenMode::Read, file), FileStatus::NotFound);
  EXPECT_EQ(system.Open(u"\\vestrel-no-such-file", OpenMode::Read, file), FileStatus::NotFound);
}

TEST_F(FilesTest, AFileOpenedForReadingTakesNoBytes) {
  folder.Put("f", "kept");
  ASSERT_EQ(Open("f", OpenMode::Read), FileStatus::Ok);
  EXPECT_EQ(Write("new"), FileStatus::IoError);
  EXPECT_EQ(folder.Get("f"), "kept");
}

TEST_F(FilesTest, ClosingTwiceIsClosingOnce) {
  ASSERT_EQ(Open("f", OpenMode::Create), FileStatus::Ok);
  EXPECT_EQ(file->Close(), FileStatus::Ok);
  EXPECT_EQ(file->Close(), FileStatus::Ok);
}

TEST_F(FilesTest, RepeatedSeparatorsCountAsOne) {
  std::filesystem::create_directory(folder.Real("Sequences"));
  folder.Put("Sequences/status.ini", "x");
  FileInfo info;
  EXPECT_EQ(system.Info(folder.Path() + u"\\Sequences\\\\\\status.ini", info), FileStatus::Ok);
  EXPECT_EQ(info.size, 1U);
}

TEST_F(FilesTest, ReadsAndWritesAtOffsets) {
  ASSERT_EQ(Open("f", OpenMode::Create), FileStatus::Ok);
  EXPECT_EQ(Write("abcdef"), FileStatus::Ok);
  EXPECT_EQ(Write("XY", 2), FileStatus::Ok);
  EXPECT_EQ(Read(1, 4), "bXYe");
  EXPECT_EQ(Read(4, 10), "ef");
  EXPECT_EQ(Read(6, 10), "");
  EXPECT_EQ(file->Truncate(3), FileStatus::Ok);
  EXPECT_EQ(folder.Get("f"), "abX");
}

TEST_F(FilesTest, AFullDeviceIsAFullDisk) {
  if (system.Open(u"\\dev\\full", OpenMode::ReadWrite, file) != FileStatus::Ok)
    GTEST_SKIP() << "this system has no device that is always full";
  EXPECT_EQ(Write("x"), FileStatus::DiskFull);
}

TEST_F(FilesTest, AppendingWritesAtTheEndWhateverTheOffset) {
  folder.Put("log", "one ");
  Append(OpenMode::Append, "two");
  EXPECT_EQ(folder.Get("log"), "one two");
}

TEST_F(FilesTest, AppendingOnMakesTheFileAndWritesAtTheEndAsWell) {
  Append(OpenMode::AppendOn, "one ");
  Append(OpenMode::AppendOn, "two");
  EXPECT_EQ(folder.Get("log"), "one two");
  EXPECT_EQ(Open("no/log", OpenMode::AppendOn), FileStatus::PathNotFound);
  EXPECT_EQ(system.Open(folder.Path(), OpenMode::AppendOn, file), FileStatus::AccessDenied);
}

TEST_F(FilesTest, ALockedFileTellsWhetherItStillHasItsName) {
  folder.Put("f", "one");
  folder.Put("new", "three");
  const std::u16string path = folder.Path("f");
  FileInfo info;
  ASSERT_EQ(system.OpenLocked(path, OpenMode::ReadWrite, LockMode::Exclusive, file), FileStatus::Ok);
  EXPECT_EQ(file->InfoByName(path, info), FileStatus::Ok);
  EXPECT_EQ(info.size, 3U);
  ASSERT_EQ(system.Replace(folder.Path("new"), path), FileStatus::Ok);
  EXPECT_EQ(file->InfoByName(path, info), FileStatus::NotFound);
  EXPECT_EQ(file->Info(info), FileStatus::Ok);
  EXPECT_EQ(info.size, 3U);
  ASSERT_EQ(system.OpenLocked(path, OpenMode::ReadWrite, LockMode::Exclusive, file), FileStatus::Ok);
  EXPECT_EQ(file->InfoByName(path, info), FileStatus::Ok);
  EXPECT_EQ(info.size, 5U);
  system.Remove(path);
  EXPECT_EQ(file->InfoByName(path, info), FileStatus::NotFound);
}

TEST_F(FilesTest, OpeningLockedTakesTheLockOrAnswersNoFile) {
  folder.Put("f", "");
  std::unique_ptr<File> other;
  const std::u16string path = folder.Path("f");
  ASSERT_EQ(system.OpenLocked(path, OpenMode::Read, LockMode::Shared, file), FileStatus::Ok);
  EXPECT_EQ(system.OpenLocked(path, OpenMode::Scratch, LockMode::TryExclusive, other), FileStatus::Busy);
  EXPECT_EQ(other, nullptr);
  EXPECT_EQ(system.OpenLocked(path, OpenMode::Read, LockMode::Shared, other), FileStatus::Ok);
  EXPECT_EQ(system.OpenLocked(folder.Path("absent"), OpenMode::ReadWrite, LockMode::Exclusive, other),
            FileStatus::NotFound);
}

TEST_F(FilesTest, TellsWhatIsThere) {
  folder.Put("f", "");
  EXPECT_TRUE(system.IsThere(folder.Path("f")));
  EXPECT_TRUE(system.IsThere(folder.Path()));
  EXPECT_FALSE(system.IsThere(folder.Path("absent")));
  EXPECT_FALSE(system.IsThere(folder.Path("f/below")));
  EXPECT_FALSE(system.IsThere(u""));
}

TEST_F(FilesTest, AReadOnlyFileRefusesEveryKindOfWritingEvenForTheSuperuser) {
  folder.Put("f", "kept");
  chmod(folder.Real("f").c_str(), 0444);
  for (const OpenMode mode : {OpenMode::ReadWrite, OpenMode::Create, OpenMode::Append, OpenMode::Scratch}) {
    EXPECT_EQ(Open("f", mode), FileStatus::AccessDenied);
  }
  EXPECT_EQ(folder.Get("f"), "kept");
  EXPECT_EQ(Open("f", OpenMode::Read), FileStatus::Ok);
  FileInfo info;
  EXPECT_EQ(file->Info(info), FileStatus::Ok);
  EXPECT_TRUE(info.readOnly);
}

TEST_F(FilesTest, AFolderIsNoFile) {
  EXPECT_EQ(system.Open(folder.Path(), OpenMode::Read, file), FileStatus::AccessDenied);
  FileInfo info;
  EXPECT_EQ(system.Info(folder.Path(), info), FileStatus::Ok);
  EXPECT_TRUE(info.directory);
  EXPECT_EQ(system.Remove(folder.Path()), FileStatus::AccessDenied);
}

TEST_F(FilesTest, ReplacingGivesTheNameToTheOtherFile) {
  folder.Put("old", "old");
  folder.Put("new", "new");
  ASSERT_EQ(Open("old", OpenMode::Read), FileStatus::Ok);
  EXPECT_EQ(system.Replace(folder.Path("new"), folder.Path("old")), FileStatus::Ok);
  EXPECT_EQ(folder.Get("old"), "new");
  EXPECT_EQ(folder.Get("new"), "<none>");
  EXPECT_EQ(Read(0, 3), "old");
  EXPECT_EQ(system.Replace(folder.Path("absent"), folder.Path("old")), FileStatus::NotFound);
}

TEST_F(FilesTest, AccessIsCopiedFromTheFileThatIsReplaced) {
  folder.Put("old", "");
  chmod(folder.Real("old").c_str(), 0640);
  std::unique_ptr<File> old;
  ASSERT_EQ(system.Open(folder.Path("old"), OpenMode::ReadWrite, old), FileStatus::Ok);
  ASSERT_EQ(Open("new", OpenMode::Scratch), FileStatus::Ok);
  EXPECT_EQ(file->CopyAccess(*old), FileStatus::Ok);
  struct stat data {};
  stat(folder.Real("new").c_str(), &data);
  EXPECT_EQ(data.st_mode & 0777U, 0640U);
}

TEST_F(FilesTest, TheOwnerIsCopiedByTheSuperuser) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
  folder.Put("old", "");
  ASSERT_EQ(chown(folder.Real("old").c_str(), 4321, 8765), 0);
  std::unique_ptr<File> old;
  ASSERT_EQ(system.Open(folder.Path("old"), OpenMode::ReadWrite, old), FileStatus::Ok);
  ASSERT_EQ(Open("new", OpenMode::Scratch), FileStatus::Ok);
  EXPECT_EQ(file->CopyAccess(*old), FileStatus::Ok);
  struct stat data {};
  stat(folder.Real("new").c_str(), &data);
  EXPECT_EQ(data.st_uid, 4321U);
  EXPECT_EQ(data.st_gid, 8765U);
}

TEST_F(FilesTest, LinksAreFollowedByNameButNotByScratchFiles) {
  folder.Put("real", "text");
  std::filesystem::create_symlink("real", folder.Real("link"));
  std::u16string real;
  EXPECT_EQ(system.Resolve(folder.Path("link"), real), FileStatus::Ok);
  EXPECT_EQ(real, folder.Path("real"));
  EXPECT_EQ(Open("link", OpenMode::Scratch), FileStatus::AccessDenied);
  EXPECT_EQ(system.Resolve(folder.Path("absent"), real), FileStatus::Ok);
  EXPECT_EQ(real, folder.Path("absent"));
  EXPECT_EQ(system.Resolve(folder.Path("real/below"), real), FileStatus::PathNotFound);
}

TEST_F(FilesTest, FoldersAreMadeListedAndSynced) {
  EXPECT_EQ(system.MakeDirectory(folder.Path("a")), FileStatus::Ok);
  EXPECT_EQ(system.MakeDirectory(folder.Path("a")), FileStatus::Exists);
  EXPECT_EQ(system.MakeDirectory(folder.Path("x/y")), FileStatus::PathNotFound);
  folder.Put("b", "");
  std::vector<std::u16string> names;
  EXPECT_EQ(system.List(folder.Path(), names), FileStatus::Ok);
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::u16string>{u"a", u"b"}));
  EXPECT_EQ(system.List(folder.Path("none"), names), FileStatus::NotFound);
  EXPECT_EQ(system.SyncDirectory(folder.Path()), FileStatus::Ok);
  EXPECT_EQ(system.SyncDirectory(folder.Path("none")), FileStatus::NotFound);
  EXPECT_EQ(system.SyncDirectory(u"\\proc"), FileStatus::Ok);  // which has no such thing
  EXPECT_EQ(system.Remove(folder.Path("b")), FileStatus::Ok);
  EXPECT_EQ(system.Remove(folder.Path("b")), FileStatus::NotFound);
}

// A child that holds the lock until it is told to end; the parent's lock call must not return before.
TEST_F(FilesTest, ALockKeepsOtherProcessesWaiting) {
  folder.Put("f", "");
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    Open("f", OpenMode::ReadWrite);
    file->Lock(LockMode::Exclusive);
    char told = write(ready[1], "r", 1) == 1 ? 'y' : 'n';
    usleep(30000);
    std::size_t done = 0;
    file->WriteAt(0, std::span(&told, 1), done);
    _exit(0);
  }
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  ASSERT_EQ(Open("f", OpenMode::ReadWrite), FileStatus::Ok);
  EXPECT_EQ(file->Lock(LockMode::Exclusive), FileStatus::Ok);
  EXPECT_EQ(Read(0, 1), "y");
  EXPECT_EQ(file->Unlock(), FileStatus::Ok);
  waitpid(child, nullptr, 0);
  close(ready[0]);
  close(ready[1]);
}

TEST_F(FilesTest, SharedLocksGoTogether) {
  folder.Put("f", "");
  std::unique_ptr<File> other;
  ASSERT_EQ(Open("f", OpenMode::Read), FileStatus::Ok);
  ASSERT_EQ(system.Open(folder.Path("f"), OpenMode::Read, other), FileStatus::Ok);
  EXPECT_EQ(file->Lock(LockMode::Shared), FileStatus::Ok);
  EXPECT_EQ(other->Lock(LockMode::Shared), FileStatus::Ok);
  EXPECT_EQ(other->Lock(LockMode::TryExclusive), FileStatus::Busy);
  EXPECT_EQ(file->Close(), FileStatus::Ok);
  EXPECT_EQ(other->Lock(LockMode::Exclusive), FileStatus::Ok);
}

}  // namespace
}  // namespace vestrel::platform
