#include <gtest/gtest.h>

#include "tests/support/Errors.h"
#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/host/ShowFolders.h"

namespace vestrel::workbench {
namespace {

class ShowFoldersTest : public Workbench {
 protected:
  ShowFoldersTest() : folders(folder()) { PutSample(); }
  std::filesystem::path Sequences() const { return folder() / "Sequences"; }
  bool Exists(const std::string& name) const { return std::filesystem::exists(folder() / name); }

  ShowFolders folders;
};

TEST_F(ShowFoldersTest, AShowGetsAnotherName) {
  folders.RenameShow(u"Harbour Lights", u"Gala");
  EXPECT_TRUE(Exists("Sequences/Gala/Overture/pageSetting.ini"));
  EXPECT_FALSE(Exists("Sequences/Harbour Lights"));
}

TEST_F(ShowFoldersTest, TellsWhichShowsThereAre) {
  std::filesystem::create_directory(Sequences() / "Gala");
  EXPECT_TRUE(folders.Exists(u"Gala"));
  EXPECT_FALSE(folders.Exists(u"Nowhere"));
  EXPECT_THROW(folders.Exists(u".."), Error);
  EXPECT_EQ(folders.FirstShowBut(u""), u"Gala");
  EXPECT_EQ(folders.FirstShowBut(u"Gala"), u"Harbour Lights");
}

TEST_F(ShowFoldersTest, ANameThatIsTakenOrNoFoldersIsNotGiven) {
  std::filesystem::create_directory(Sequences() / "Gala");
  EXPECT_THROW(folders.RenameShow(u"Harbour Lights", u"Gala"), Error);
  EXPECT_THROW(folders.RenameShow(u"Nowhere", u"Anywhere"), Error);
  for (const char16_t* name : {u"", u"..", u".", u"a/b", u"a\\b"}) {
    EXPECT_THROW(folders.RenameShow(u"Harbour Lights", name), Error);
    EXPECT_THROW(folders.PutShowAside(name), Error);
    EXPECT_THROW(folders.PutPageAside(u"Harbour Lights", name), Error);
  }
  EXPECT_TRUE(Exists("Sequences/Harbour Lights/Overture/pageSetting.ini"));
}

TEST_F(ShowFoldersTest, WhatIsPutAsideOverwritesNothing) {
  folders.PutPageAside(u"Harbour Lights", u"Finale");
  EXPECT_TRUE(Exists("Deleted/Harbour Lights - Finale/Curtain Call.MUL"));
  std::filesystem::create_directory(Sequences() / "Harbour Lights/Finale");
  folders.PutPageAside(u"Harbour Lights", u"Finale");
  EXPECT_TRUE(Exists("Deleted/Harbour Lights - Finale (2)"));
  EXPECT_TRUE(Exists("Deleted/Harbour Lights - Finale/Curtain Call.MUL"));
  folders.PutPageAside(u"Harbour Lights", u"Nowhere");
  folders.PutShowAside(u"Harbour Lights");
  EXPECT_TRUE(Exists("Deleted/Harbour Lights/pageSetting.ini"));
  EXPECT_FALSE(Exists("Sequences/Harbour Lights"));
}

TEST_F(ShowFoldersTest, APageBringsAllItsFilesToItsNewName) {
  std::filesystem::create_directory(Sequences() / "Harbour Lights/End");
  std::ofstream(Sequences() / "Harbour Lights/End/pageSetting.ini") << "the new name's first file";
  const std::string settings = FileBytes(Sequences() / "Harbour Lights/Finale/pageSetting.ini");
  folders.MovePage(u"Harbour Lights", u"Finale", u"End");
  EXPECT_EQ(FileBytes(Sequences() / "Harbour Lights/End/pageSetting.ini"), settings);
  EXPECT_TRUE(Exists("Sequences/Harbour Lights/End/Curtain Call.MUL"));
  EXPECT_FALSE(Exists("Sequences/Harbour Lights/Finale"));
}

}  // namespace
}  // namespace vestrel::workbench
