// Each form of line that a command may print.
#include "tests/workbench/WorkbenchFixture.h"

namespace vestrel::workbench {
namespace {

class OutputTest : public Workbench {};

constexpr std::string_view kShow =
    "setButtonGroupPageSize 4\n"
    "CreateNewShow Gala\n"
    "AddPage Main\n"
    "assignButton 1 1 \"Warm Wash\" ButtonType_Sequence\n"
    "assignButton 0 9 Haze ButtonType_Auto\n";

TEST_F(OutputTest, TheRunBeginsWithEverythingStartedAndNoShow) {
  EXPECT_EQ(Play("state.show\n"),
            "> state.show\n"
            "  show = \"$$null_show$$\"\n"
            "  pages = []\n"
            "  current = \"$$null_page$$\"\n");
  EXPECT_TRUE(FileBytes(folder() / "vestrel.log")
                  .starts_with("[LogSystem] ========================================\r\n"
                               "[LogSystem] logging started at 15/11/2026 19:30:00\r\n"));
}

TEST_F(OutputTest, ACommandIsPrintedWithoutItsComment) {
  EXPECT_EQ(Play("  host.policy releaseOnPlay on   # from now on\r\n"), "> host.policy releaseOnPlay on\n");
}

TEST_F(OutputTest, CallbacksComeInOrderWithButtonsEnumerationsAndLamps) {
  EXPECT_EQ(LastOf(std::string(kShow) + "controlClicked 33 1 0 1.5 2\n"),
            "  ButtonStateChanged(Warm Wash@1/1, 1, 0, 1.5, 2)\n"
            "  StartLEDTimer()\n"
            "  setLED(245, #.......) off\n"
            "  RefreshPage(IFSSRefresh_Control, 0, Warm Wash@1/1)\n"
            "  RefreshPage(IFSSRefresh_Control, 0, Warm Wash@1/1)\n");
}

TEST_F(OutputTest, TopLampsAreDrawnSixteenWide) {
  EXPECT_EQ(LastOf(std::string(kShow) + "leds.setButtonInTop32 16 true false\n"),
            "  setLED(246, ...............#) on\n");
  EXPECT_EQ(LastOf(std::string(kShow) + "leds.clearAll\n"),
            "  EndLEDTimer()\n"
            "  setLED(245, ########) off\n"
            "  setLED(246, ################) off\n"
            "  setLED(247, ################) off\n");
}

TEST_F(OutputTest, ResultsOfEachKind) {
  const struct {
    std::string_view command;
    std::string_view printed;
  } cases[] = {
      {"static.OneBasedMod 5 4", "  = 1\n"},
      {"static.IsSomething @1/1", "  = true\n"},
      {"static.IsSomething -", "  = false\n"},
      {"static.controlIndexFromButtonIndex 4 2 7", "  = 39\n"},
      {"static.RemoveFileExt show.ini", "  = \"show\"\n"},
      {"static.Basename \"a/\"\"b\"\"\" /", "  = \"\"\"b\"\"\"\n"},
      {"static.ListFromSplitString a,b ,", "  = [\"a\", \"b\"]\n"},
      {"static.StringListFrom 1|two|", "  = [\"1\", \"two\", \"\"]\n"},
      {"static.BoxLong -3", "  = -3\n"},
      {"static.AreEqual 5 5", "  = true\n"},
      {"static.GetLogger", "  = object\n"},
      {"buttonWithIndex 1 1", "  = Warm Wash@1/1\n"},
      {"buttonWithIndex 1 2", "  = none\n"},
      {"button.playState @1/1", "  = PlayState_Off\n"},
      {"getButtons", "  = [Haze@0/9, Warm Wash@1/1]\n"},
      {"GetButtonMap", "  = {\"Haze\": Haze@0/9, \"Warm Wash\": Warm Wash@1/1}\n"},
      {"pages.CurrentPage", "  = page \"Main\"\n"},
      {"record.msToTimecode 3723004", "  = \"01:02:03.004\"\n"},
      {"getButtons 1 9", "  = []\n"},
  };
  std::string commands(kShow);
  std::string expected;
  for (const auto& test : cases) {
    commands += std::string(test.command) + "\n";
    expected += "> " + std::string(test.command) + "\n" + std::string(test.printed);
  }
  const std::string printed = Play(commands);
  EXPECT_EQ(printed.substr(printed.find("> static.OneBasedMod")), expected);
}

TEST_F(OutputTest, ResultsThatComeBackThroughArgumentsFollowTheResult) {
  EXPECT_EQ(LastOf(std::string(kShow) + "getPrevButton 1 -3\n"),
            "  = Warm Wash@1/1\n"
            "  beforeIndex = -3\n");
  EXPECT_EQ(LastOf("record.timecodeToMS 00:59.999\n"), "  = true\n  result = 59999\n");
  EXPECT_EQ(LastOf("record.timecodeToMS 59.999 7\n"), "  = true\n  result = 59999\n");
  EXPECT_EQ(LastOf("record.timecodeToMS 1:2 7\n"), "  = false\n  result = 7\n");
  EXPECT_EQ(LastOf("host.group 3 60\nGetUIFaderValues\n"),
            "  GetUIFaderValues(groups 0 0 60 0 0 0 0 0 bumps 0 0 0 0 0 0 0 0)\n"
            "  values = groups 0 0 60 0 0 0 0 0 bumps 0 0 0 0 0 0 0 0\n");
}

TEST_F(OutputTest, AnObjectLeftOutIsNotHandedBackAndNoneIs) {
  const std::string show(kShow);
  EXPECT_EQ(LastOf(show + "releaseButtonsOnPage 3\n"), "");
  EXPECT_EQ(LastOf(show + "releaseButtonsOnPage 3 - -\n"), "  excludeButton = x@-999/-999\n");
  EXPECT_EQ(LastOf(show + "releaseButtonsOnPage 3 - @1/1\n"), "  excludeButton = Warm Wash@1/1\n");
}

TEST_F(OutputTest, AnArgumentLeftOutInTheMiddleTakesItsDefault) {
  EXPECT_EQ(LastOf(std::string(kShow) + "highlightButton 1 Highlight_First - @1/1\n"),
            "  RefreshPage(IFSSRefresh_Control, 0, Warm Wash@1/1)\n"
            "  RefreshPage(IFSSRefresh_Control, 0, Warm Wash@1/1)\n");
}

TEST_F(OutputTest, AFailingOperationPrintsItsErrorAndCounts) {
  EXPECT_EQ(LastOf("static.Assert false\n"), "  ! error 7155 (modUtils.Assert()): assert false\n");
  EXPECT_EQ(failures, 1U);
}

TEST_F(OutputTest, TheDataFolderIsWrittenAsDataInErrors) {
  const std::string printed = LastOf("record.LoadEventsFrom \"none.evt\"\n");
  EXPECT_NE(printed.find("  ! error 53 "), std::string::npos) << printed;
  EXPECT_EQ(printed.find(folder().string()), std::string::npos) << printed;
}

TEST_F(OutputTest, AMessageBoxIsOneLine) {
  const std::string printed = LastOf("SetPage Main\n");
  EXPECT_TRUE(
      printed.starts_with("  message box [Error]: BGC SetPage: attempted to set page [Main] on null "
                          "show.  Please report to Talvo Systems Inc.\n"))
      << printed;
  EXPECT_EQ(failures, 0U);
}

TEST_F(OutputTest, AStoryHasItsCommentsAndEndsWithTheFiles) {
  EXPECT_EQ(Play("# A new show.\n\nCreateNewShow Gala\n", RunStyle::Story),
            "# A new show.\n"
            "\n"
            "> CreateNewShow Gala\n"
            "  EndLEDTimer()\n"
            "  setLED(245, ########) off\n"
            "  setLED(246, ################) off\n"
            "  setLED(247, ################) off\n"
            "  EndLEDTimer()\n"
            "  setLED(245, ########) off\n"
            "  setLED(246, ################) off\n"
            "  setLED(247, ################) off\n"
            "\n"
            "Files:\n"
            "  new Sequences/Gala/pageSetting.ini\n"
            "  new vestrel.log\n");
}

TEST_F(OutputTest, FilesAreListedSinceTheLastTime) {
  EXPECT_EQ(LastOf(std::string(kShow) + "host.files\nhost.files\n"), "");
  EXPECT_EQ(LastOf(std::string(kShow) + "host.files\ncontrolClicked 33 1 0 0 0\nhost.files\n"),
            "  Sequences/Gala/Main/pageSetting.ini = changed\n");
}

}  // namespace
}  // namespace vestrel::workbench
