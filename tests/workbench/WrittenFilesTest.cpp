#include <gtest/gtest.h>

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/Platform.h"
#include "storage/ProfileFile.h"
#include "tests/support/MemoryFiles.h"
#include "workbench/server/WrittenFiles.h"

namespace vestrel::workbench {
namespace {

using platform::FileStatus;
using platform::OpenMode;
using Names = std::vector<std::string>;

class WrittenFilesTest : public testing::Test {
 protected:
  WrittenFilesTest() { inner.Put(u"C:\\data\\Show\\page.ini", "[s]\r\nk=1\r\n"); }

  void Save(const std::string& value) {
    const platform::Override override({.files = files.get()});
    const ProfileEdit edit{"s", "k", value};
    EXPECT_EQ(ProfileFile(u"C:\\data\\Show\\page.ini").Commit(std::span(&edit, 1), Sync::No), FileStatus::Ok);
  }
  std::unique_ptr<platform::File> Open(std::u16string_view path, OpenMode mode) {
    std::unique_ptr<platform::File> file;
    EXPECT_EQ(files->Open(path, mode, file), FileStatus::Ok);
    return file;
  }
  static void Write(platform::File& file) {
    std::size_t done = 0;
    EXPECT_EQ(file.WriteAt(0, std::span("x", 1), done), FileStatus::Ok);
  }

  test::MemoryFiles inner;
  std::unique_ptr<WrittenFiles> files = std::make_unique<WrittenFiles>(u"C:\\data", inner);
};

TEST_F(WrittenFilesTest, AValueThatIsWrittenInItsPlaceIsNoted) {
  Save("2");
  EXPECT_EQ(inner.Calls("Replace"), 0);
  EXPECT_EQ(files->Take(), Names{"Show/page.ini"});
  EXPECT_EQ(files->Take(), Names{});
}

TEST_F(WrittenFilesTest, AFileThatIsWrittenAnewIsNotedWithoutItsScratchFile) {
  Save("longer than before");
  EXPECT_EQ(inner.Calls("Replace"), 1);
  EXPECT_EQ(files->Take(), Names{"Show/page.ini"});
}

TEST_F(WrittenFilesTest, AScratchFileThatWasLeftBehindIsRemovedUnnoted) {
  inner.Put(u"C:\\data\\Show\\page.ini.new~", "torn");
  Save("1");
  Save("2");
  EXPECT_FALSE(inner.Has(u"C:\\data\\Show\\page.ini.new~"));
  EXPECT_EQ(files->Take(), Names{"Show/page.ini"});
}

TEST_F(WrittenFilesTest, WhatIsReadOrSavedUnchangedIsNotNoted) {
  Save("1");
  Open(u"C:\\data\\Show\\page.ini", OpenMode::Read);
  Open(u"C:\\data\\Show\\page.ini", OpenMode::ReadWrite);
  EXPECT_EQ(files->Take(), Names{});
}

TEST_F(WrittenFilesTest, AFileThatIsCutIsNoted) {
  EXPECT_EQ(Open(u"C:\\data\\Show\\page.ini", OpenMode::ReadWrite)->Truncate(3), FileStatus::Ok);
  EXPECT_EQ(files->Take(), Names{"Show/page.ini"});
}

TEST_F(WrittenFilesTest, AFileThatStaysOpenIsNotedWithEveryCallThatWritesIt) {
  const auto text = Open(u"C:\\data\\notes.txt", OpenMode::Append);
  EXPECT_EQ(files->Take(), Names{"notes.txt"});
  Write(*text);
  EXPECT_EQ(files->Take(), Names{"notes.txt"});
}

TEST_F(WrittenFilesTest, TheLogFileIsNotNoted) {
  Write(*Open(u"C:\\data\\vestrel.log", OpenMode::Append));
  EXPECT_EQ(files->Take(), Names{});
}

TEST_F(WrittenFilesTest, AFileMayStayOpenForLongerThanAllThat) {
  const auto text = Open(u"C:\\data\\notes.txt", OpenMode::Append);
  files.reset();
  Write(*text);
  EXPECT_EQ(inner.Get(u"C:\\data\\notes.txt"), "x");
}

}  // namespace
}  // namespace vestrel::workbench
