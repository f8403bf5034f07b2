#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/System.h"
#include "storage/ProfileChange.h"
#include "storage/ProfileFile.h"
#include "storage/ProfileText.h"
#include "storage/ScratchFile.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/SeamFiles.h"
#include "tests/support/TempFolder.h"

namespace vestrel {
namespace {

using platform::FileStatus;

constexpr std::u16string_view kFile = u"C:\\app\\page.ini";
constexpr std::u16string_view kScratch = u"C:\\app\\page.ini.new~";

FileStatus Write(std::u16string_view path, std::string_view key, std::optional<std::string_view> value,
                 Sync sync = Sync::No) {
  const ProfileEdit edit{"s", key, value};
  return ProfileFile(path).Commit(std::span(&edit, 1), sync);
}

class ProfileFileTest : public test::TestPlatform {
 protected:
  void SetUp() override { files.PutFolder(u"C:\\app"); }
  void TearDown() override { EXPECT_EQ(files.OpenFiles(), 0); }
};

TEST_F(ProfileFileTest, MakesAnAbsentFileButNotItsFolder) {
  EXPECT_EQ(Write(kFile, "k", "1"), FileStatus::Ok);
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=1\r\n");
  EXPECT_EQ(Write(u"C:\\none\\page.ini", "k", "1"), FileStatus::PathNotFound);
  EXPECT_FALSE(files.Has(u"C:\\none"));
}

TEST_F(ProfileFileTest, DeletingFromAnAbsentFileMakesNone) {
  EXPECT_EQ(Write(kFile, "k", std::nullopt), FileStatus::Ok);
  EXPECT_FALSE(files.Has(kFile));
}

TEST_F(ProfileFileTest, OverwritesInPlaceOnlyTheBytesThatDiffer) {
  files.Put(kFile, "[s]\r\nk=10\r\n");
  files.LimitWrites(1);
  EXPECT_EQ(Write(kFile, "k", "12"), FileStatus::Ok);
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=12\r\n");
  EXPECT_EQ(files.Calls("WriteAt"), 1);
  EXPECT_EQ(files.Calls("Replace"), 0);
}

TEST_F(ProfileFileTest, PutsAnythingElseInPlaceWhole) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  EXPECT_EQ(Write(kFile, "k", "10"), FileStatus::Ok);
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=10\r\n");
  EXPECT_EQ(files.Calls("Replace"), 1);
  EXPECT_FALSE(files.Has(kScratch));
}

TEST_F(ProfileFileTest, WhatIsThereAlreadyIsNotWritten) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  EXPECT_EQ(Write(kFile, "k", "1", Sync::Yes), FileStatus::Ok);
  EXPECT_EQ(files.Calls("WriteAt") + files.Calls("Replace"), 0);
}

TEST_F(ProfileFileTest, WhatIsThereAlreadyIsForcedToTheDiskAllTheSame) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  Write(kFile, "k", "10");
  EXPECT_EQ(Write(kFile, "k", "10", Sync::Yes), FileStatus::Ok);
  EXPECT_EQ(files.Calls("Sync"), 1);
  EXPECT_EQ(files.Calls("SyncDirectory"), 1);
  files.FailEvery("Sync", FileStatus::IoError);
  EXPECT_EQ(Write(kFile, "k", "10", Sync::Yes), FileStatus::IoError);
}

TEST_F(ProfileFileTest, WaitsForTheDiskOnlyWhenAsked) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  Write(kFile, "k", "10");
  Write(kFile, "k", "11");
  EXPECT_EQ(files.Calls("Sync") + files.Calls("SyncDirectory"), 0);
  Write(kFile, "k", "12", Sync::Yes);
  EXPECT_EQ(files.Calls("Sync"), 1);
  EXPECT_EQ(files.Calls("SyncDirectory"), 1);
  Write(kFile, "k", "100", Sync::Yes);
  EXPECT_EQ(files.Calls("Sync"), 2);
  EXPECT_EQ(files.Calls("SyncDirectory"), 2);
}

TEST_F(ProfileFileTest, AReadOnlyFileRefusesEvenAnEqualValue) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  files.SetReadOnly(kFile, true);
  EXPECT_EQ(Write(kFile, "k", "1"), FileStatus::AccessDenied);
  EXPECT_EQ(Write(kFile, "k", "2"), FileStatus::AccessDenied);
  EXPECT_EQ(Write(kFile, "k", std::nullopt), FileStatus::AccessDenied);
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=1\r\n");
}

TEST_F(ProfileFileTest, WhatACrashLeftBesideTheFileIsGoneAfterTheNextSave) {
  for (const char* value : {"1", "2", "20", "20"}) {
    files.Put(kFile, "[s]\r\nk=1\r\n");
    files.Put(kScratch, "half of a file that is longer");
    EXPECT_EQ(Write(kFile, "k", value), FileStatus::Ok);
    EXPECT_EQ(files.Get(kFile), "[s]\r\nk=" + std::string(value) + "\r\n");
    EXPECT_EQ(files.Paths(), std::vector<std::u16string>{std::u16string(kFile)}) << value;
  }
  files.Put(kScratch, "half of a fi");
  EXPECT_EQ(Write(u"C:\\app\\new.ini", "k", "1"), FileStatus::Ok);
  EXPECT_TRUE(files.Has(kScratch));
}

TEST_F(ProfileFileTest, AScratchFileIsEmptyWhenItIsOpened) {
  for (const char* left : {"", "x", "half of a file"}) {
    files.Put(kScratch, left);
    ScratchFile scratch(ScratchFile::kSettings);
    ASSERT_EQ(scratch.Open(kFile, platform::LockMode::TryExclusive), FileStatus::Ok);
    EXPECT_EQ(files.Get(kScratch), "");
  }
}

TEST_F(ProfileFileTest, TheScratchFileOfAWriterAtWorkStays) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  ScratchFile other(ScratchFile::kSettings);
  ASSERT_EQ(other.Open(kFile, platform::LockMode::TryExclusive), FileStatus::Ok);
  EXPECT_EQ(Write(kFile, "k", "2"), FileStatus::Ok);
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=2\r\n");
  EXPECT_TRUE(files.Has(kScratch));
}

// Every call of each kind of save fails in turn, once and from then on. A save that reports success is in the
// file; one that fails has left the old bytes, or the new ones whole where only forcing them to the disk
// failed.
struct Save {
  const char* before;  // null for an absent file
  const char* value;
  const char* after;
};

class ProfileFileFaultTest : public ProfileFileTest,
                             public testing::WithParamInterface<std::tuple<Save, bool>> {};

TEST_P(ProfileFileFaultTest, AFailingCallNeverDamagesTheOldFile) {
  const auto& [save, replacesOpenFiles] = GetParam();
  files.SetReplacesOpenFiles(replacesOpenFiles);
  const std::string before = save.before != nullptr ? save.before : "<none>";
  const bool inPlace = before.size() == std::string_view(save.after).size();
  for (const FileStatus status : {FileStatus::DiskFull, FileStatus::IoError, FileStatus::AccessDenied}) {
    for (const bool always : {false, true}) {
      for (int nth = 1;; ++nth) {
        files.FailNothing();
        files.Remove(kFile);
        files.Remove(kScratch);
        if (save.before != nullptr) files.Put(kFile, save.before);
        files.FailCall(nth, status, always);
        const FileStatus result = Write(kFile, "k", save.value, Sync::Yes);
        const bool done = files.Calls() < nth;
        const bool onlyUnsure = files.Calls("SyncDirectory") > 0 || (inPlace && files.Calls("Sync") > 0);
        files.FailNothing();
        ASSERT_EQ(files.OpenFiles(), 0);
        const std::string now = files.Get(kFile);
        if (result == FileStatus::Ok || onlyUnsure) {
          EXPECT_EQ(now, save.after) << nth;
        } else {
          EXPECT_EQ(now, before) << nth;
        }
        if (done) {
          EXPECT_EQ(result, FileStatus::Ok);
          break;
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Saves, ProfileFileFaultTest,
                         testing::Combine(testing::Values(Save{nullptr, "1", "[s]\r\nk=1\r\n"},
                                                          Save{"[s]\r\nk=1\r\n", "10", "[s]\r\nk=10\r\n"},
                                                          Save{"[s]\r\nk=11\r\n", "22", "[s]\r\nk=22\r\n"}),
                                          testing::Bool()));

TEST_F(ProfileFileTest, LetsGoOfTheFileWhereAnOpenOneCannotBeReplaced) {
  files.SetReplacesOpenFiles(false);
  files.Put(kFile, "[s]\r\nk=1\r\n");
  EXPECT_EQ(Write(kFile, "k", "10", Sync::Yes), FileStatus::Ok);
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=10\r\n");
}

TEST_F(ProfileFileTest, AnOverwriteThatBreaksOffIsTakenBack) {
  files.Put(kFile, "[s]\r\nk=abcdef\r\n");
  files.LimitWrites(2);
  const ProfileEdit edit{"s", "k", "ABCDEF"};
  for (int nth = 1; nth < 20; ++nth) {
    files.Put(kFile, "[s]\r\nk=abcdef\r\n");
    files.FailCall(nth, FileStatus::IoError);
    const FileStatus status = ProfileFile(kFile).Commit(std::span(&edit, 1), Sync::No);
    EXPECT_EQ(files.Get(kFile), status == FileStatus::Ok ? "[s]\r\nk=ABCDEF\r\n" : "[s]\r\nk=abcdef\r\n")
        << nth;
  }
}

TEST_F(ProfileFileTest, ADiskThatTakesNothingMoreIsFull) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  files.LimitWrites(0);
  EXPECT_EQ(Write(kFile, "k", "10"), FileStatus::DiskFull);
  EXPECT_EQ(Write(kFile, "k", "2"), FileStatus::DiskFull);
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=1\r\n");
}

TEST_F(ProfileFileTest, AFileThatIsReplacedEveryTimeIsBusyInTheEnd) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  files.FailEvery("Info", FileStatus::NotFound);
  EXPECT_EQ(Write(kFile, "k", "2"), FileStatus::Busy);
  EXPECT_EQ(files.Get(kFile), "[s]\r\nk=1\r\n");
}

TEST_F(ProfileFileTest, AScratchFileThatIsTakenEveryTimeIsBusyInTheEnd) {
  test::SeamFiles seam(files);
  seam.before = [](test::FileCall& call) {
    return call.name == "Info" && call.path == kScratch && call.handle == 0 ? FileStatus::NotFound
                                                                            : FileStatus::Ok;
  };
  const platform::Override override({nullptr, &seam, nullptr, nullptr});
  EXPECT_EQ(Write(kFile, "k", "1"), FileStatus::Busy);
  EXPECT_FALSE(files.Has(kFile));
}

TEST_F(ProfileFileTest, InterruptedCallsAreMadeAgain) {
  for (int nth = 1; nth < 20; ++nth) {
    files.Put(kFile, "[s]\r\nk=1\r\n");
    files.FailCall(nth, FileStatus::Interrupted);
    EXPECT_EQ(Write(kFile, "k", "10", Sync::Yes), FileStatus::Ok) << nth;
    EXPECT_EQ(files.Get(kFile), "[s]\r\nk=10\r\n") << nth;
  }
  files.FailCall(1, FileStatus::Interrupted, true);
  EXPECT_EQ(Write(kFile, "k", "11"), FileStatus::Interrupted);
}

// From here on the real disk.

class ProfileFileOnDiskTest : public testing::Test {
 protected:
  static void WriteMany(const std::u16string& path, const std::string& who, int count) {
    for (int i = 0; i < count; ++i) Write(path, who + std::to_string(i), std::to_string(i));
  }
  test::TempFolder folder;
};

TEST_F(ProfileFileOnDiskTest, KeepsPermissionsAndLinks) {
  folder.Put("real.ini", "[s]\r\nk=1\r\n");
  chmod(folder.Real("real.ini").c_str(), 0640);
  std::filesystem::create_symlink("real.ini", folder.Real("link.ini"));
  EXPECT_EQ(Write(folder.Path("link.ini"), "k", "10"), FileStatus::Ok);
  struct stat data {};
  stat(folder.Real("real.ini").c_str(), &data);
  EXPECT_EQ(data.st_mode & 0777U, 0640U);
  EXPECT_EQ(folder.Get("real.ini"), "[s]\r\nk=10\r\n");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Real("link.ini")));
}

TEST_F(ProfileFileOnDiskTest, ALinkUnderTheScratchNameIsNotFollowed) {
  folder.Put("page.ini", "[s]\r\nk=1\r\n");
  folder.Put("precious", "kept");
  std::filesystem::create_symlink("precious", folder.Real("page.ini.new~"));
  EXPECT_EQ(Write(folder.Path("page.ini"), "k", "10"), FileStatus::Ok);
  EXPECT_EQ(folder.Get("page.ini"), "[s]\r\nk=10\r\n");
  EXPECT_EQ(folder.Get("precious"), "kept");
  EXPECT_FALSE(std::filesystem::exists(folder.Real("page.ini.new~")));
}

TEST_F(ProfileFileOnDiskTest, AReadOnlyFileStaysAsItIsEvenForTheSuperuser) {
  folder.Put("page.ini", "[s]\r\nk=1\r\n");
  chmod(folder.Real("page.ini").c_str(), 0444);
  EXPECT_EQ(Write(folder.Path("page.ini"), "k", "2"), FileStatus::AccessDenied);
  EXPECT_EQ(Write(folder.Path("page.ini"), "k", "10"), FileStatus::AccessDenied);
  EXPECT_EQ(folder.Get("page.ini"), "[s]\r\nk=1\r\n");
}

// Four processes make the same file and fill it; each of their keys must be there in the end.
TEST_F(ProfileFileOnDiskTest, ProcessesThatWriteTheSameFileLoseNothing) {
  constexpr int kWriters = 4;
  constexpr int kKeys = 60;
  const std::u16string path = folder.Path("page.ini");
  for (int writer = 0; writer < kWriters; ++writer) {
    if (fork() == 0) {
      WriteMany(path, "w" + std::to_string(writer) + "_", kKeys);
      _exit(0);
    }
  }
  while (wait(nullptr) > 0) {
  }
  const std::string text = folder.Get("page.ini");
  EXPECT_EQ(ProfileText(text).Keys("s").size(), static_cast<std::size_t>(kWriters * kKeys));
  for (int writer = 0; writer < kWriters; ++writer) {
    for (int i = 0; i < kKeys; ++i) {
      EXPECT_EQ(ProfileText(text).Find("s", "w" + std::to_string(writer) + "_" + std::to_string(i)),
                std::to_string(i));
    }
  }
  EXPECT_FALSE(std::filesystem::exists(folder.Real("page.ini.new~")));
}

// One process changes values in place, the other makes the file longer and shorter; no change may be lost.
TEST_F(ProfileFileOnDiskTest, ChangesInPlaceSurviveReplacementsByOthers) {
  folder.Put("page.ini", "[s]\r\ncounter=0000\r\n");
  const std::u16string path = folder.Path("page.ini");
  const pid_t other = fork();
  if (other == 0) {
    for (int i = 0; i < 300; ++i) Write(path, "other", std::string(static_cast<std::size_t>(i % 7), 'x'));
    _exit(0);
  }
  for (int i = 1; i <= 300; ++i) {
    const std::string digits = std::to_string(10000 + i).substr(1);
    ASSERT_EQ(Write(path, "counter", digits), FileStatus::Ok);
    ASSERT_EQ(ProfileText(folder.Get("page.ini")).Find("s", "counter"), digits);
  }
  waitpid(other, nullptr, 0);
  EXPECT_EQ(ProfileText(folder.Get("page.ini")).Find("s", "counter"), "0300");
}

}  // namespace
}  // namespace vestrel
