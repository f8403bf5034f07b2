// Another writer gets in between two steps of ours.
#include <gtest/gtest.h>

#include <utility>

#include "storage/ProfileFile.h"
#include "storage/ScratchFile.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/SeamFiles.h"

namespace vestrel {
namespace {

using platform::FileStatus;

constexpr std::u16string_view kFile = u"C:\\app\\page.ini";
constexpr std::u16string_view kScratch = u"C:\\app\\page.ini.new~";

class OvertakingWriterTest : public testing::Test {
 protected:
  void SetUp() override { files.PutFolder(u"C:\\app"); }
  void TearDown() override {
    EXPECT_EQ(files.OpenFiles(), 0);
    EXPECT_EQ(files.Paths(), std::vector<std::u16string>{std::u16string(kFile)});
  }
  // The file after a key was written to it, where another writer puts `bytes` at `path` when ours first asks
  // what that stands for.
  std::string Written(std::u16string_view path, std::string_view bytes) {
    test::SeamFiles seam(files);
    bool overtaken = false;
    seam.before = [&](const test::FileCall& call) {
      const bool named = call.name == "Info" && call.handle == 0 && call.path == path;
      if (named && !std::exchange(overtaken, true)) {
        files.Remove(path);
        files.Put(path, bytes);
      }
      return FileStatus::Ok;
    };
    const platform::Override override({nullptr, &seam, nullptr, nullptr});
    const ProfileEdit edit{"s", "k", "10"};
    EXPECT_EQ(ProfileFile(kFile).Commit(std::span(&edit, 1), Sync::No), FileStatus::Ok);
    EXPECT_TRUE(overtaken);
    return files.Get(kFile);
  }
  test::MemoryFiles files;
};

TEST_F(OvertakingWriterTest, ItsScratchFileIsNotPutInPlaceForOurs) {
  EXPECT_EQ(Written(kScratch, "its bytes"), "[s]\r\nk=10\r\n");
}

TEST_F(OvertakingWriterTest, AFileThatItMadeFirstIsChanged) {
  EXPECT_EQ(Written(kFile, "[s]\r\nits=1\r\n"), "[s]\r\nits=1\r\nk=10\r\n");
}

TEST_F(OvertakingWriterTest, AFileThatItReplacedIsReadAgain) {
  files.Put(kFile, "[s]\r\nk=1\r\n");
  EXPECT_EQ(Written(kFile, "[s]\r\nk=1\r\nits=1\r\n"), "[s]\r\nk=10\r\nits=1\r\n");
}

}  // namespace
}  // namespace vestrel
