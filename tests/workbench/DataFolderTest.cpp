#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/DataFolder.h"
#include "workbench/Options.h"

namespace vestrel::workbench {
namespace {

namespace fs = std::filesystem;

class DataFolderTest : public Workbench {};

TEST_F(DataFolderTest, AWantedFolderIsMadeWithItsParents) {
  const fs::path wanted = folder() / "a" / "b";
  EXPECT_EQ(OpenDataFolder(wanted.string()), wanted);
  EXPECT_TRUE(fs::is_directory(wanted));
  EXPECT_EQ(OpenDataFolder(wanted.string()), wanted);
}

TEST_F(DataFolderTest, WithoutAWishItIsANewOneEachTime) {
  const fs::path first = OpenDataFolder({});
  const fs::path second = OpenDataFolder({});
  EXPECT_NE(first, second);
  EXPECT_TRUE(fs::is_empty(first));
  fs::remove_all(first);
  fs::remove_all(second);
}

TEST_F(DataFolderTest, AFileInItsPlaceIsBadUsage) {
  std::ofstream(folder() / "file") << "x";
  EXPECT_THROW(OpenDataFolder((folder() / "file").string()), BadUsage);
}

TEST_F(DataFolderTest, TheSampleShowComesWholeAndIsNeverOverwritten) {
  CopyShows(Examples() / "shows", folder());
  const fs::path page = fs::path("Harbour Lights") / "Overture" / "pageSetting.ini";
  EXPECT_EQ(FileBytes(folder() / "Sequences" / page), FileBytes(Examples() / "shows" / page));
  EXPECT_THROW(CopyShows(Examples() / "shows", folder()), BadUsage);
}

TEST_F(DataFolderTest, MissingExamplesAreBadUsage) {
  EXPECT_THROW(CopyShows(folder() / "nowhere", folder()), BadUsage);
}

}  // namespace
}  // namespace vestrel::workbench
