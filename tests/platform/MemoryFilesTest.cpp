#include <gtest/gtest.h>

#include "tests/support/MemoryFiles.h"

namespace vestrel::test {
namespace {

using platform::File;
using platform::FileStatus;
using platform::OpenMode;

TEST(MemoryFilesTest, HoldsWhatWasPutAndWritten) {
  MemoryFiles files;
  files.Put(u"C:\\a\\b.ini", "one");
  EXPECT_TRUE(files.Has(u"C:\\a"));
  std::unique_ptr<File> file;
  ASSERT_EQ(files.Open(u"C:\\a\\\\b.ini", OpenMode::ReadWrite, file), FileStatus::Ok);
  std::size_t done = 0;
  EXPECT_EQ(file->WriteAt(1, std::span("NE", 2), done), FileStatus::Ok);
  EXPECT_EQ(files.Get(u"C:\\a\\b.ini"), "oNE");
  EXPECT_EQ(files.OpenFiles(), 1);
  file.reset();
  EXPECT_EQ(files.OpenFiles(), 0);
}

TEST(MemoryFilesTest, MissingFoldersAndReadOnlyFilesAreRefused) {
  MemoryFiles files;
  std::unique_ptr<File> file;
  EXPECT_EQ(files.Open(u"C:\\a\\b", OpenMode::Create, file), FileStatus::PathNotFound);
  EXPECT_EQ(files.Open(u"C:\\b", OpenMode::Read, file), FileStatus::NotFound);
  EXPECT_EQ(files.MakeDirectory(u"C:\\a"), FileStatus::Ok);
  EXPECT_EQ(files.Open(u"C:\\a\\b", OpenMode::Create, file), FileStatus::Ok);
  files.SetReadOnly(u"C:\\a\\b", true);
  EXPECT_EQ(files.Open(u"C:\\a\\b", OpenMode::ReadWrite, file), FileStatus::AccessDenied);
}

TEST(MemoryFilesTest, FailsTheChosenCallOnceOrFromThenOn) {
  MemoryFiles files;
  files.Put(u"C:\\b", "");
  platform::FileInfo info;
  files.FailCall(2, FileStatus::IoError);
  EXPECT_EQ(files.Info(u"C:\\b", info), FileStatus::Ok);
  EXPECT_EQ(files.Info(u"C:\\b", info), FileStatus::IoError);
  EXPECT_EQ(files.Info(u"C:\\b", info), FileStatus::Ok);
  files.FailCall(1, FileStatus::DiskFull, true);
  EXPECT_EQ(files.Info(u"C:\\b", info), FileStatus::DiskFull);
  EXPECT_EQ(files.Info(u"C:\\b", info), FileStatus::DiskFull);
  EXPECT_EQ(files.Calls("Info"), 2);
}

}  // namespace
}  // namespace vestrel::test
