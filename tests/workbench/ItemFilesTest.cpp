#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/host/ItemFiles.h"

namespace vestrel::workbench {
namespace {

namespace fs = std::filesystem;

class ItemFilesTest : public Workbench {
 protected:
  ItemFilesTest() : files(folder()) {
    files.SetShow(u"Gala");
    for (const char* page : {"Main", "Second"}) fs::create_directories(Page(page));
  }
  fs::path Page(std::string_view page) const { return folder() / "Sequences" / "Gala" / page; }
  void Put(const fs::path& file, std::string_view bytes) { std::ofstream(file, std::ios::binary) << bytes; }

  ItemFiles files;
};

TEST_F(ItemFilesTest, ACopyHasEveryFileOfTheItemAndLeavesTheSource) {
  Put(Page("Main") / "Intro.ASQ", "steps");
  Put(Page("Main") / "Intro.BMP", "picture");
  Put(Page("Main") / "Intro.MUL", "not a sequence's");
  files.Copy(ButtonType_Sequence, {u"Main", u"Intro"}, {u"Second", u"Intro copy"});
  EXPECT_EQ(FileBytes(Page("Second") / "Intro copy.ASQ"), "steps");
  EXPECT_EQ(FileBytes(Page("Second") / "Intro copy.BMP"), "picture");
  EXPECT_FALSE(fs::exists(Page("Second") / "Intro copy.MUL"));
  EXPECT_TRUE(fs::exists(Page("Main") / "Intro.ASQ"));
}

TEST_F(ItemFilesTest, AMoveReplacesWhatIsInTheWay) {
  Put(Page("Main") / "Storm.MUL", "new");
  Put(Page("Second") / "Storm.MUL", "old");
  files.Move(ButtonType_Multi, {u"Main", u"Storm"}, {u"Second", u"Storm"});
  EXPECT_EQ(FileBytes(Page("Second") / "Storm.MUL"), "new");
  EXPECT_FALSE(fs::exists(Page("Main") / "Storm.MUL"));
}

TEST_F(ItemFilesTest, DeletingTakesTheFilesOfTheTypeAlone) {
  Put(Page("Main") / "Intro.TLN", "");
  Put(Page("Main") / "Intro.AUT", "");
  files.Delete(ButtonType_Timeline, {u"Main", u"Intro"});
  EXPECT_FALSE(fs::exists(Page("Main") / "Intro.TLN"));
  EXPECT_TRUE(fs::exists(Page("Main") / "Intro.AUT"));
  files.Delete(ButtonType_None, {u"Main", u"Intro"});
  EXPECT_TRUE(fs::exists(Page("Main") / "Intro.AUT"));
}

TEST_F(ItemFilesTest, NamesThatNoFileCanHaveArePassedOver) {
  Put(folder() / "outside.ASQ", "kept");
  for (const char16_t* name : {u"..\\..\\..\\outside", u"../../../outside", u"", u"..", u"a:b", u"what?"}) {
    files.Delete(ButtonType_Sequence, {u"Main", name});
  }
  EXPECT_EQ(FileBytes(folder() / "outside.ASQ"), "kept");
}

}  // namespace
}  // namespace vestrel::workbench
