// What the workbench's host does with folders and items, seen from a page.
#include <gtest/gtest.h>

#include "tests/workbench/PageHostFixture.h"

namespace vestrel::workbench {
namespace {

class HostDutiesTest : public PageHost {
 protected:
  std::filesystem::path Page(const std::string& name) const {
    return folder() / "Sequences/Harbour Lights" / name;
  }
  bool HasItem(const std::string& id) const {
    for (const auto& item : page.state["items"]) {
      if (item["id"] == id) return true;
    }
    return false;
  }
};

TEST_F(HostDutiesTest, ARenamedPageKeepsItsButtonsAndItems) {
  EXPECT_TRUE(Succeeds("SetPage \"Act One\""));
  const auto buttons = page.state["group.1"];
  EXPECT_TRUE(Succeeds("RenamePage \"Act One\" \"First Act\""));
  EXPECT_EQ(page.state["show"]["page"], "First Act");
  EXPECT_TRUE(HasItem("First Act/Captain.ASQ"));
  EXPECT_FALSE(std::filesystem::exists(Page("Act One")));
  EXPECT_TRUE(Succeeds("LoadShow \"Harbour Lights\""));
  EXPECT_TRUE(Succeeds("SetPage \"First Act\""));
  EXPECT_EQ(page.state["group.1"]["slots"].size(), buttons["slots"].size());
  EXPECT_EQ(page.state["group.1"]["slots"][0]["name"], buttons["slots"][0]["name"]);
}

TEST_F(HostDutiesTest, ADeletedPageIsPutAside) {
  EXPECT_TRUE(Succeeds("DeletePage \"Finale\""));
  EXPECT_TRUE(std::filesystem::exists(folder() / "Deleted/Harbour Lights - Finale/Curtain Call.MUL"));
  EXPECT_TRUE(Succeeds("AddPage \"Finale\""));
  EXPECT_FALSE(HasItem("Finale/Curtain Call.MUL"));
}

TEST_F(HostDutiesTest, TheShowThatIsSetUpGoesOnUnderItsNewName) {
  EXPECT_TRUE(Succeeds("SetPage Finale"));
  EXPECT_TRUE(Succeeds("host.renameShow \"Harbour Lights\" \"Docks\""));
  EXPECT_EQ(page.state["show"]["name"], "Docks");
  EXPECT_EQ(page.state["show"]["page"], "Finale");
  EXPECT_EQ(page.state["show"]["shows"], nlohmann::json::array({"Docks"}));
  EXPECT_EQ(ErrorOf("host.deleteShow Docks"), "refused: this is the only show; make another one first");
  EXPECT_TRUE(Succeeds("CreateNewShow Gala"));
  EXPECT_TRUE(Succeeds("LoadShow Docks"));
  EXPECT_TRUE(Succeeds("host.deleteShow Docks"));
  EXPECT_EQ(page.state["show"]["name"], "Gala");
  EXPECT_EQ(page.state["show"]["shows"], nlohmann::json::array({"Gala"}));
  EXPECT_TRUE(std::filesystem::exists(folder() / "Deleted/Docks/Overture/pageSetting.ini"));
}

TEST_F(HostDutiesTest, AnAssignedItemComesToThePage) {
  EXPECT_TRUE(HasItem("Act One/Captain.ASQ"));
  EXPECT_TRUE(Succeeds("setModeAssign Captain ButtonType_Sequence"));
  EXPECT_TRUE(Succeeds("autoAssignNextAvailable 1"));
  EXPECT_TRUE(HasItem("Overture/Captain.ASQ"));
  EXPECT_EQ(FileBytes(Page("Overture") / "Captain.ASQ"), FileBytes(Page("Act One") / "Captain.ASQ"));
}

TEST_F(HostDutiesTest, AnItemStaysWhenItsButtonIsOverwrittenByItself) {
  const std::string item = FileBytes(Page("Overture") / "Moonlight.ASQ");
  ASSERT_FALSE(item.empty());
  boost::asio::post(loop(), [&] {
    Tell(page, {{"t", "answer"}, {"id", 2}, {"dialog", page.state["dialog"]["id"]}, {"value", true}});
  });
  EXPECT_TRUE(Succeeds("setModeAssign Moonlight ButtonType_Sequence"));
  EXPECT_EQ(FileBytes(Page("Overture") / "Moonlight.ASQ"), item);
  EXPECT_FALSE(std::filesystem::exists(Page("Overture") / "Moonlight~.ASQ"));
}

}  // namespace
}  // namespace vestrel::workbench
