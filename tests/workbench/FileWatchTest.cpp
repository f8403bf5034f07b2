#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/commands/FileWatch.h"

namespace vestrel::workbench {
namespace {

namespace fs = std::filesystem;

class FileWatchTest : public Workbench {
 protected:
  void Put(const fs::path& name, std::string_view bytes) {
    fs::create_directories((folder() / name).parent_path());
    std::ofstream(folder() / name, std::ios::binary) << bytes;
  }
  static std::string Text(const std::vector<FileChange>& changes) {
    std::string text;
    for (const FileChange& change : changes) {
      text += std::string(FileChangeText(change.kind)) + " " + change.path + "\n";
    }
    return text;
  }
};

TEST_F(FileWatchTest, TellsWhatIsNewChangedAndDeletedByPath) {
  Put("b/kept.txt", "same");
  Put("b/other.txt", "old");
  Put("c.txt", "gone soon");
  FileWatch watch(folder());
  Put("b/other.txt", "new");
  Put("a.txt", "");
  fs::remove(folder() / "c.txt");
  EXPECT_EQ(Text(watch.TakeChanges()), "new a.txt\nchanged b/other.txt\ndeleted c.txt\n");
}

TEST_F(FileWatchTest, WhatWasToldIsNotToldAgain) {
  FileWatch watch(folder());
  Put("a.txt", "1");
  watch.TakeChanges();
  EXPECT_EQ(Text(watch.TakeChanges()), "");
  Put("a.txt", "1");
  EXPECT_EQ(Text(watch.TakeChanges()), "");
}

}  // namespace
}  // namespace vestrel::workbench
