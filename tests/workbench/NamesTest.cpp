#include <gtest/gtest.h>

#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/server/Names.h"

namespace vestrel::workbench {
namespace {

using NamesTest = Workbench;

TEST_F(NamesTest, OrdinaryNamesAreTaken) {
  for (const char* name : {"Overture", "Act 1", "Caf\xC3\xA9 (late)", "a.b", "x", "Con Brio", "com10"}) {
    EXPECT_EQ(FolderNameProblem(name), "") << name;
    EXPECT_EQ(ButtonNameProblem(name), "") << name;
  }
}

TEST_F(NamesTest, NamesThatFoldersOrListsCannotTakeAreNot) {
  for (const char* name :
       {"",    " x",   "x ",  "x.",  ".",    "..",   "a/b", "a\\b",    "a|b",  "a:b",   "a*b",
        "a?b", "a\"b", "a<b", "a>b", "a\nb", "a\tb", "con", "NUL.txt", "Com1", "lpt9.a"}) {
    EXPECT_NE(FolderNameProblem(name), "") << name;
    EXPECT_NE(ButtonNameProblem(name), "") << name;
  }
  EXPECT_NE(FolderNameProblem("$$null_page$$"), "");
}

TEST_F(NamesTest, LongNamesAreNotTaken) {
  EXPECT_EQ(FolderNameProblem(std::string(120, 'x')), "");
  EXPECT_NE(FolderNameProblem(std::string(121, 'x')), "");
  EXPECT_EQ(ButtonNameProblem(std::string(200, 'x')), "");
  EXPECT_NE(ButtonNameProblem(std::string(201, 'x')), "");
}

TEST_F(NamesTest, PathsStayInTheDataFolder) {
  for (const char* path : {"", ".", "take.evt", "a/b", "a\\b", "..take", "a..b/c"}) {
    EXPECT_EQ(PathProblem(path, folder()), "") << path;
  }
  for (const char* path :
       {"/etc/passwd", "\\x", "..", "../x", "a/../../x", "a\\..\\..\\x", "C:\\x", "c:x", "a\nb"}) {
    EXPECT_NE(PathProblem(path, folder()), "") << path;
  }
}

TEST_F(NamesTest, LinksOutOfTheDataFolderAreFollowedAndRefused) {
  std::filesystem::create_directory_symlink("/tmp", folder() / "out");
  std::filesystem::create_directory(folder() / "in");
  std::filesystem::create_directory_symlink(folder() / "in", folder() / "link");
  EXPECT_NE(PathProblem("out/x", folder()), "");
  EXPECT_NE(PathProblem("out\\x\\y", folder()), "");
  EXPECT_EQ(PathProblem("link/x", folder()), "");
}

}  // namespace
}  // namespace vestrel::workbench
