// Another writer gets in between two steps of ours.
#include <gtest/gtest.h>

#include "storage/ProfileFile.h"
#include "storage/ScratchFile.h"
#include "tests/support/FakePlatform.h"

namespace vestrel {
namespace {

using platform::FileStatus;

constexpr std::u16string_view kFile = u"C:\\app\\page.ini";
constexpr std::u16string_view kScratch = u"C:\\app\\page.ini.new~";

// A file system on which, the first time that anyone asks what `path` stands for, another writer has just put
// a file of its own there.
class OvertakingFiles final : public platform::Files {
 public:
  OvertakingFiles(test::MemoryFiles& files, std::u16string_view path, std::string_view bytes)
      : files_(files), path_(path), bytes_(bytes) {}

  FileStatus Open(std::u16string_view path, platform::OpenMode mode,
                  std::unique_ptr<platform::File>& file) override {
    return files_.Open(path, mode, file);
  }
  FileStatus Info(std::u16string_view path, platform::FileInfo& info) override {
    if (path == path_ && !overtaken_) {
      overtaken_ = true;
      files_.Remove(path);
      files_.Put(path, bytes_);
    }
    return files_.Info(path, info);
  }
  FileStatus Resolve(std::u16string_view path, std::u16string& real) override {
    return files_.Resolve(path, real);
  }
  FileStatus Replace(std::u16string_view from, std::u16string_view to) override {
    return files_.Replace(from, to);
  }
  FileStatus Remove(std::u16string_view path) override { return files_.Remove(path); }
  FileStatus MakeDirectory(std::u16string_view path) override { return files_.MakeDirectory(path); }
  FileStatus SyncDirectory(std::u16string_view path) override { return files_.SyncDirectory(path); }
  FileStatus List(std::u16string_view path, std::vector<std::u16string>& names) override {
    return files_.List(path, names);
  }

 private:
  test::MemoryFiles& files_;
  std::u16string_view path_;
  std::string_view bytes_;
  bool overtaken_ = false;
};

class OvertakingWriterTest : public testing::Test {
 protected:
  void SetUp() override { files.PutFolder(u"C:\\app"); }
  void TearDown() override {
    EXPECT_EQ(files.OpenFiles(), 0);
    EXPECT_EQ(files.Paths(), std::vector<std::u16string>{std::u16string(kFile)});
  }
  // The file after a key was written to it while another writer put `bytes` at `path`.
  std::string Written(std::u16string_view path, std::string_view bytes) {
    OvertakingFiles overtaking(files, path, bytes);
    const platform::Override override({nullptr, &overtaking, nullptr, nullptr});
    const ProfileEdit edit{"s", "k", "10"};
    EXPECT_EQ(ProfileFile(kFile).Commit(std::span(&edit, 1), Sync::No), FileStatus::Ok);
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
