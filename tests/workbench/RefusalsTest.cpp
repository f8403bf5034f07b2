#include <gtest/gtest.h>

#include "core/Convert.h"
#include "tests/workbench/PageHostFixture.h"
#include "workbench/server/Refusals.h"

namespace vestrel::workbench {
namespace {

class RefusalsTest : public PageHost {
 protected:
  // Whether the command is refused and neither files nor state change.
  testing::AssertionResult IsRefused(const std::string& command) {
    const std::string before = ShowFile();
    const nlohmann::json screen = page.state;
    const nlohmann::json done = Do(command);
    const std::string error = done.value("error", "none");
    if (!error.starts_with("refused: ")) return testing::AssertionFailure() << command << ": " << done;
    if (ShowFile() != before) return testing::AssertionFailure() << command << " changed the show";
    for (const auto& [key, value] : screen.items()) {
      if (page.state[key] != value) return testing::AssertionFailure() << command << " changed " << key;
    }
    return testing::AssertionSuccess();
  }
  std::string ShowFile() const {
    return FileBytes(Show() / "pageSetting.ini") + FileBytes(Show() / "Overture/pageSetting.ini");
  }
  std::filesystem::path Show() const { return folder() / "Sequences/Harbour Lights"; }
  std::size_t ButtonsOf(int group) {
    return static_cast<std::size_t>(session().host().controller().getButtons(group)->Size());
  }
};

TEST_F(RefusalsTest, ShowsThatWouldBeEmptied) {
  EXPECT_TRUE(IsRefused("CreateNewShow \"Harbour Lights\""));
  EXPECT_TRUE(IsRefused("LoadShow \"Nowhere\""));
  EXPECT_TRUE(IsRefused("CreateNewShow \"../Outside\""));
  EXPECT_TRUE(Succeeds("CreateNewShow \"Gala\""));
  EXPECT_TRUE(Succeeds("LoadShow \"Harbour Lights\""));
}

TEST_F(RefusalsTest, PageNamesThatAFolderOrTheListCannotTake) {
  for (const char* name : {"a|b", "a/b", "..", "", "a:b", "end.", "OVERTURE"}) {
    EXPECT_TRUE(IsRefused("AddPage \"" + std::string(name) + "\"")) << name;
    EXPECT_TRUE(IsRefused("SetPage \"" + std::string(name) + "\"")) << name;
    if (name != std::string("OVERTURE")) {
      EXPECT_TRUE(IsRefused("RenamePage \"Finale\" \"" + std::string(name) + "\"")) << name;
    }
  }
  EXPECT_TRUE(IsRefused("RenamePage \"Finale\" \"Overture\""));
  EXPECT_TRUE(IsRefused("RenamePage \"Nowhere\" \"Anywhere\""));
}

TEST_F(RefusalsTest, NamesThatDifferInTheCaseOfAnyLetterAlone) {
  EXPECT_TRUE(Succeeds("AddPage \"Caf\xC3\xA9\""));
  EXPECT_TRUE(IsRefused("AddPage \"CAF\xC3\x89\""));
  EXPECT_TRUE(IsRefused("SetPage \"Caf\xC3\x89\""));
  EXPECT_TRUE(IsRefused("RenamePage \"Finale\" \"caf\xC3\x89\""));
  EXPECT_TRUE(Succeeds("assignButton 1 6 \"\xC3\x89toile\" ButtonType_Sequence"));
  EXPECT_TRUE(IsRefused("assignButton 1 8 \"\xC3\xA9toile\" ButtonType_Sequence"));
}

TEST_F(RefusalsTest, APageListThatWouldBeCut) {
  // "Overture|Act One|Finale" has 23 bytes; 254 come back.
  const std::string rest(100, 'x');
  EXPECT_TRUE(Succeeds("AddPage \"1" + rest + "\""));
  EXPECT_TRUE(Succeeds("AddPage \"2" + rest + "\""));
  // Now 227: 26 more and the bar fit.
  EXPECT_TRUE(IsRefused("AddPage \"" + std::string(27, 'z') + "\""));
  EXPECT_TRUE(Succeeds("AddPage \"" + std::string(26, 'z') + "\""));
  EXPECT_TRUE(IsRefused("AddPage \"z\""));
  EXPECT_TRUE(Succeeds("LoadShow \"Harbour Lights\""));
  EXPECT_EQ(page.state["show"]["pages"].size(), 6U);
}

TEST_F(RefusalsTest, ASecondButtonInATopSlot) {
  EXPECT_TRUE(Succeeds("setModeAssign \"Newcomer\" ButtonType_Sequence"));
  EXPECT_TRUE(IsRefused("controlClicked 1 1 0 0 0"));
  EXPECT_EQ(page.state["edit"]["mode"], "Assign");
  ASSERT_FALSE(page.state["group.0"]["slots"][19].contains("name"));
  EXPECT_TRUE(Succeeds("controlClicked 20 1 0 0 0"));
  EXPECT_EQ(page.state["edit"]["mode"], "None");
  EXPECT_EQ(page.state["group.0"]["slots"][19]["name"], "Newcomer");
  EXPECT_TRUE(IsRefused("assignButton 0 1 \"Another\" ButtonType_Sequence"));
}

TEST_F(RefusalsTest, ASecondButtonInABumpSlot) {
  const auto control = page.state["group.9"]["slots"][0]["control"].get<int>();
  ASSERT_TRUE(page.state["group.9"]["slots"][0].contains("name"));
  EXPECT_TRUE(Succeeds("setModeEditing true"));
  EXPECT_TRUE(Succeeds("controlClicked 33 1 0 0 0"));
  EXPECT_TRUE(Succeeds("setModeMove"));
  EXPECT_TRUE(IsRefused("controlClicked " + std::to_string(control) + " 1 0 0 0"));
  EXPECT_EQ(page.state["edit"]["mode"], "Move");
  EXPECT_TRUE(Succeeds("CancelEditMode"));
  EXPECT_TRUE(Succeeds("setModeEditing true"));
  EXPECT_TRUE(Succeeds("controlClicked 33 1 0 0 0"));
  EXPECT_TRUE(Succeeds("setModeCopy"));
  EXPECT_TRUE(IsRefused("controlClicked " + std::to_string(control) + " 1 0 0 0"));
}

TEST_F(RefusalsTest, AMarkWhereATopButtonStands) {
  EXPECT_TRUE(Succeeds("setModeEditing true"));
  EXPECT_TRUE(Succeeds("controlClicked 1 1 0 0 0"));
  EXPECT_TRUE(IsRefused("AssignMarkFade MarkFadeType_Mark"));
}

TEST_F(RefusalsTest, AGroupThatIsFull) {
  // With runs of 8 a group has 80 slots.
  for (int i = static_cast<int>(ButtonsOf(7)) + 1; i <= 80; ++i) {
    EXPECT_TRUE(Succeeds("setModeAssign \"Button " + std::to_string(i) + "\" ButtonType_Sequence"));
    EXPECT_TRUE(Succeeds("autoAssignNextAvailable 7")) << i;
  }
  EXPECT_TRUE(Succeeds("setModeAssign \"One more\" ButtonType_Sequence"));
  EXPECT_TRUE(IsRefused("controlClicked 81 1 0 0 0"));
  EXPECT_EQ(ButtonsOf(7), 80U);
}

TEST_F(RefusalsTest, AButtonListThatWouldBeCut) {
  EXPECT_TRUE(Succeeds("setButtonGroupPageSize 20"));
  for (int i = static_cast<int>(ButtonsOf(7)) + 1; i <= 88; ++i) {
    EXPECT_TRUE(Succeeds("setModeAssign \"Button " + std::to_string(i) + "\" ButtonType_Sequence"));
    EXPECT_TRUE(Succeeds("autoAssignNextAvailable 7")) << i;
  }
  EXPECT_TRUE(Succeeds("setModeAssign \"One more\" ButtonType_Sequence"));
  EXPECT_TRUE(IsRefused("autoAssignNextAvailable 7"));
  EXPECT_TRUE(Succeeds("LoadShow \"Harbour Lights\""));
  EXPECT_EQ(ButtonsOf(7), 88U);
}

TEST_F(RefusalsTest, ButtonNamesThatALineCannotTake) {
  for (const char* name : {"a|b", "", "a/b", " a"}) {
    EXPECT_TRUE(IsRefused("setModeAssign \"" + std::string(name) + "\" ButtonType_Sequence")) << name;
    EXPECT_TRUE(IsRefused("assignButton 1 8 \"" + std::string(name) + "\" ButtonType_Sequence")) << name;
  }
  EXPECT_TRUE(IsRefused("assignButton 1 8 \"Amber Front\" ButtonType_Sequence"));
}

TEST_F(RefusalsTest, FilesOutsideTheDataFolder) {
  for (const char* command :
       {"record.SaveEventsTo \"../x\"", "record.SaveEventsTo /tmp/x", "record.LoadEventsFrom \"..\\x\"",
        "static.Init /tmp/x.log", "static.OpenTextFileForOutput \"C:\\x\"", "multi.Init \"..\" a b c",
        "multi.Init . \"../..\" b c", "multi.AddSequence \"../x\"", "static.deleteINI . \"..\" x",
        "record.SaveEventsTo \"Sequences/Harbour Lights/pageSetting.ini\"", "Init host /tmp"}) {
    EXPECT_TRUE(IsRefused(command)) << command;
  }
  EXPECT_TRUE(Succeeds("record.SaveEventsTo take.evt"));
}

TEST_F(RefusalsTest, WhatIsOfNoUseOnAPage) {
  EXPECT_TRUE(IsRefused("wait 1000"));
  EXPECT_TRUE(IsRefused("host.answer DeleteButton yes"));
  EXPECT_TRUE(IsRefused("host.interval blink 1"));
  EXPECT_TRUE(IsRefused("setButtonGroupPageSize 0"));
  EXPECT_TRUE(IsRefused("setButtonGroupPageSize 2000000000"));
}

}  // namespace
}  // namespace vestrel::workbench
