// Every way in which a command can be bad, with the message that the operator sees.
#include "tests/workbench/WorkbenchFixture.h"

namespace vestrel::workbench {
namespace {

class BadCommandTest : public Workbench {};

TEST_F(BadCommandTest, IsToldWithItsLineAndCounted) {
  const struct {
    std::string_view command;
    std::string_view message;
  } cases[] = {
      {"goHome", "unknown operation \"goHome\""},
      {"controlclicked 1 1 0 0 0", "unknown operation \"controlclicked\"; did you mean controlClicked?"},
      {"AddPage \"Main", "the text \"Main has no closing quote"},
      {"AddPage", "pageName is missing; usage: AddPage pageName"},
      {"controlClicked 33 1 0",
       "x is missing; usage: controlClicked controlIndex mouseButton shift x y [triggerMode] [returnButton] "
       "[buttonVar]"},
      {"formShutdown now", "too many arguments; usage: formShutdown"},
      {"GetUIFaderValues 1", "too many arguments; usage: GetUIFaderValues"},
      {"controlPressed -", "controlIndex: cannot be left out"},
      {"controlPressed first", "controlIndex: \"first\" is no whole number"},
      {"controlPressed 1.5", "controlIndex: \"1.5\" is no whole number"},
      {"controlPressed \"\"", "controlIndex: \"\" is no whole number"},
      {"controlPressed 2147483648", "controlIndex: 2147483648 is not between -2147483648 and 2147483647"},
      {"controlPressed 99999999999999999999",
       "controlIndex: 99999999999999999999 is not between -2147483648 and 2147483647"},
      {"controlClicked 1 32768 0 0 0", "mouseButton: 32768 is not between -32768 and 32767"},
      {"controlClicked 1 1 0 left 0", "x: \"left\" is no number"},
      {"controlClicked 1 1 0 1e99 0", "x: 1e99 is too large"},
      {"setModeEditing maybe", "enabled: \"maybe\" is neither true nor false"},
      {"ChangeFaderMode Dimmer",
       "newMode: \"Dimmer\" is no number and none of FaderMode_Dimmer, FaderMode_Speed, "
       "FaderMode_Proportional"},
      {"buttonIsVisible Intro", "button: \"Intro\" is no button; one is written @group/index"},
      {"buttonIsVisible @1", "button: \"@1\" is no button; one is written @group/index"},
      {"buttonIsVisible @1/x", "button: \"x\" is no whole number"},
      {"buttonIsVisible @1/1", "button: there is no button @1/1 on the current page"},
      {"setButtonGroupButtonList 1 4", "theButtonList: \"4\" is no group; one is written @group"},
      {"setButtonGroupButtonList 1 @10", "theButtonList: 10 is not between 0 and 9"},
      {"IButtonEventHandler_DeferPlaystateFor Main - 0 0", "page: there is no page \"Main\" in the show"},
      {"record.IVXEventListHandler_EventFired 0 0", "ev: the recording has no event 0"},
      {"record.LoadEventsFrom take.evt all",
       "buttonMap: \"all\" is no map; the current page's is written buttons"},
      {"setModeAssign Intro 1 me",
       "assignmentCallbackObj: \"me\" is no object of the host; its own is written host"},
      {"wait -5", "milliseconds: -5 is not between 0 and 86400000"},
      {"host.group 0 50", "index: 0 is not between 1 and 8"},
      {"host.bump 9 50", "index: 9 is not between 1 and 8"},
      {"host.answer DeletePage yes",
       "dialog: \"DeletePage\" is none of PromptButtonOverwrite, RenameButton, DeleteButton"},
      {"host.answer PromptButtonOverwrite perhaps", "answer: \"perhaps\" is neither true nor false"},
      {"host.policy solo on", "policy: \"solo\" is not releaseOnPlay"},
      {"host.interval blink 0", "milliseconds: 0 is not between 1 and 86400000"},
      {"host.interval sweep 5", "timer: \"sweep\" is neither blink nor transport"},
  };
  for (const auto& test : cases) {
    const std::string expected =
        "> " + std::string(test.command) + "\n  ! line 3: " + std::string(test.message) + "\n";
    EXPECT_EQ(Play("\n# a comment\n" + std::string(test.command) + "\n"), expected);
    EXPECT_EQ(failures, 1U) << test.command;
  }
}

TEST_F(BadCommandTest, TheRunGoesOnAfterIt) {
  EXPECT_EQ(Play("nothing\nstatic.ZeroToOneBased 4\nwait\n"),
            "> nothing\n"
            "  ! line 1: unknown operation \"nothing\"\n"
            "> static.ZeroToOneBased 4\n"
            "  = 5\n"
            "> wait\n"
            "  ! line 3: milliseconds is missing; usage: wait milliseconds\n");
  EXPECT_EQ(failures, 2U);
}

}  // namespace
}  // namespace vestrel::workbench
