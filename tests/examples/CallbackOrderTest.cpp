// The host guide's table of the callbacks that each operation makes, row by row against the library.
#include <fstream>
#include <map>

#include "recording/clsRecordController.h"
#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

// A call as the table writes it: its name, and of the arguments what tells one use from another.
std::string InTheTable(const std::string& call) {
  constexpr std::string_view kRefreshes[] = {" page", " group", " control", " read"};
  const std::size_t open = call.find('(');
  const std::string name = call.substr(0, open);
  std::string_view detail;
  if (name == "RefreshPage") {
    detail = kRefreshes[call[open + 1] - '0'];
  } else if (name == "SetFlashing" || name == "HighlightBump" || name == "SetTimerEnabled") {
    detail = call.ends_with("true)") ? " on" : " off";
  }
  return "`" + name + "`" + std::string(detail);
}

// A show with two pages. On the first: Harbour, Lighthouse and (in the second run) Fog in group 1, Blackout
// among the top buttons, Strobe on bump fader 1.
class Scene : public ControllerFixture {
 public:
  Scene() {
    bar->Init(transport_.get());
    Init();
    c().setButtonGroupPageSize(4);
    NewShow();
    c().AddPage(u"Act 2");
    Assign(1, 1, u"Harbour");
    Assign(1, 2, u"Lighthouse");
    Assign(1, 5, u"Fog");
    Assign(0, 17, u"Blackout");
    Assign(9, 1, u"Strobe");
  }
  void TestBody() override {}

  using ControllerFixture::assignment;
  using ControllerFixture::form;
  const Ref<clsRecordController> bar = MakeRef<clsRecordController>();

  clsButtonGroupController& c() { return *controller; }
  void Init() { c().Init(form.get(), kApp, lamps.get(), bar.get()); }
  clsButton& Button(std::int32_t group, std::int32_t index) {
    kept_.push_back(c().buttonWithIndex(group, index));
    return *kept_.back();
  }
  void PickButton(std::int32_t group, std::int32_t index) { Pick(Button(group, index)); }
  void PutOn(std::int32_t group, std::int32_t index) { TurnOn(Button(group, index)); }
  void ClickAt(std::int32_t control) { Click(control); }
  // Records one event on Harbour, at 500 milliseconds.
  void RecordOne() {
    bar->Record();
    clock.ticks += 500;
    bar->TimerTick();
    Button(1, 1).click(1, 0, 0, 0);
    bar->Stop_();
    Button(1, 1).setPlayState(PlayState_Off, PSEventSource_AutoRelease, 1, 0, 0, 0);
    Start();
  }
  void Wait(std::uint32_t milliseconds) { clock.ticks += milliseconds; }
  // What is called from here on counts.
  void Start() { Forget(); }
  std::vector<std::string> Called() {
    std::vector<std::string> names;
    for (const std::string& call : transcript.Take()) names.push_back(InTheTable(call));
    return names;
  }

 private:
  Ref<RecordingTransport> transport_ = MakeRef<RecordingTransport>(transcript);
  std::vector<Ref<clsButton>> kept_;
};

struct Row {
  const char* operation;
  void (*act)(Scene& s);
};

const Row kRows[] = {
    // Shows and pages
    {"`Init`", [](Scene& s) { s.Init(); }},
    {"`CreateNewShow`", [](Scene& s) { s.c().CreateNewShow(u"Other"); }},
    {"`LoadShow`", [](Scene& s) { s.c().LoadShow(u"Gala"); }},
    {"`SetPage`, `AddPage`: another page becomes current", [](Scene& s) { s.c().SetPage(u"Act 2"); }},
    {"`SetPage`, `AddPage`: the page that is current already", [](Scene& s) { s.c().SetPage(u"Act 1"); }},
    {"`SetPage`, `AddPage`: a further page, which is made but not shown",
     [](Scene& s) { s.c().AddPage(u"Act 3"); }},
    {"`DeletePage`: pages remain", [](Scene& s) { s.c().DeletePage(u"Act 1"); }},
    {"`RenamePage`", [](Scene& s) { s.c().RenamePage(u"Act 1", u"Prologue"); }},
    {"`formLostFocus`", [](Scene& s) { s.c().formLostFocus(); }},
    {"`formGotFocus`", [](Scene& s) { s.c().formGotFocus(); }},
    {"`RefocusCurrentPage`", [](Scene& s) { s.c().RefocusCurrentPage(); }},
    {"`clearAll`: two pages, one button on",
     [](Scene& s) {
       s.PutOn(1, 2);
       s.c().clearAll();
     }},
    {"`formShutdown`: one button on",
     [](Scene& s) {
       s.PutOn(1, 2);
       s.c().formShutdown();
     }},
    // Input
    {"`controlClicked`: a button of groups 1 to 8 goes on", [](Scene& s) { s.ClickAt(34); }},
    {"`controlClicked`: it goes off",
     [](Scene& s) {
       s.PutOn(1, 2);
       s.ClickAt(34);
     }},
    {"`controlClicked`: a top button goes on", [](Scene& s) { s.ClickAt(17); }},
    {"`controlClicked`: a locked button or one in bump mode",
     [](Scene& s) {
       s.Button(1, 2).SetLocked(true);
       s.Start();
       s.ClickAt(34);
     }},
    {"`controlClicked`: an empty slot", [](Scene& s) { s.ClickAt(36); }},
    {"`controlPressed`: a top button in bump mode",
     [](Scene& s) {
       s.Button(0, 17).SetBumpMode(BumpMode_On);
       s.c().controlPressed(17);
     }},
    {"`controlReleased`: a top button in bump mode",
     [](Scene& s) {
       s.Button(0, 17).SetBumpMode(BumpMode_On);
       s.c().controlPressed(17);
       s.Start();
       s.c().controlReleased(17);
     }},
    {"`controlPressed`: a button of group 9, its fader at 0", [](Scene& s) { s.c().controlPressed(65); }},
    {"`controlReleased`: a button of group 9, its fader at 0 before",
     [](Scene& s) {
       s.c().controlPressed(65);
       s.Start();
       s.c().controlReleased(65);
     }},
    {"`releaseButtonsOnPage`: for each button that goes off",
     [](Scene& s) {
       s.PutOn(1, 2);
       s.c().releaseButtonsOnPage(1);
     }},
    {"`ToggleButtonAt`: a button of another run", [](Scene& s) { s.c().ToggleButtonAt(1, 5); }},
    {"`buttonGroupGo`: a button is highlighted", [](Scene& s) { s.c().buttonGroupGo(1); }},
    // Layout
    {"`changeButtonGroupPageOffset`", [](Scene& s) { s.c().changeButtonGroupPageOffset(1, PageDir_Next); }},
    {"`goToPageWithButtonIndex`: another run", [](Scene& s) { s.c().goToPageWithButtonIndex(1, 5); }},
    {"`highlightButton`: within the run", [](Scene& s) { s.c().highlightButton(1, Highlight_Next); }},
    {"`highlightButton`: into another run", [](Scene& s) { s.c().highlightButton(1, Highlight_Prev); }},
    // Editing
    {"`assignButton`: the first button of a group",
     [](Scene& s) { s.c().assignButton(2, 1, u"New", ButtonType_Auto); }},
    {"`setModeAssign`: a new name",
     [](Scene& s) { s.c().setModeAssign(u"New", ButtonType_Auto, s.assignment.get()); }},
    {"`controlClicked` in assign mode, `autoAssignNextAvailable`: the first button of a group",
     [](Scene& s) {
       s.c().setModeAssign(u"New", ButtonType_Auto, s.assignment.get());
       s.Start();
       s.ClickAt(37);
     }},
    {"`setModeAssign`: a name that is there, answered with yes",
     [](Scene& s) {
       s.form->overwrite = true;
       s.c().setModeAssign(u"Lighthouse", ButtonType_Auto, s.assignment.get());
     }},
    {"`setModeEditing`", [](Scene& s) { s.c().setModeEditing(true); }},
    {"`controlClicked` in edit mode",
     [](Scene& s) {
       s.c().setModeEditing(true);
       s.ClickAt(34);
     }},
    {"`setModeMove`: the button was off",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.c().setModeMove();
     }},
    {"`controlClicked` in move mode: within the page",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.c().setModeMove();
       s.Start();
       s.ClickAt(36);
     }},
    {"`setModeMove`: the button was on",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.PutOn(1, 2);
       s.c().setModeMove();
     }},
    {"`controlClicked` in move mode: on another page",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.c().setModeMove();
       s.c().SetPage(u"Act 2");
       s.Start();
       s.ClickAt(36);
     }},
    {"`setModeCopy`",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.c().setModeCopy();
     }},
    {"`controlClicked` in copy mode",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.c().setModeCopy();
       s.Start();
       s.ClickAt(36);
     }},
    {"`DeleteButton`: the button was off",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.c().DeleteButton();
     }},
    {"`AssignMarkFade`",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.c().AssignMarkFade(MarkFadeType_Mark);
     }},
    {"`RenameButton`: the button was off, a name is given",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.form->newName = u"Beacon";
       s.c().RenameButton();
     }},
    {"`ToggleBumpMode`",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.c().ToggleBumpMode();
     }},
    {"`ToggleLockState`",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.c().ToggleLockState();
     }},
    {"`ChangeFaderMode`: another mode",
     [](Scene& s) {
       s.PickButton(1, 2);
       s.c().ChangeFaderMode(FaderMode_Speed);
     }},
    {"`setModeAdjFadeInOut`: the button was on",
     [](Scene& s) {
       s.PutOn(1, 2);
       s.PickButton(1, 2);
       s.c().setModeAdjFadeInOut();
     }},
    {"`CancelEditMode`", [](Scene& s) { s.c().CancelEditMode(); }},
    // Faders
    {"`groupFaderChanged`: caught",
     [](Scene& s) {
       s.PutOn(1, 2);
       s.c().groupFaderChanged(1, 40);
     }},
    {"`groupFaderChanged`: raised from 0 in a group where nothing plays",
     [](Scene& s) { s.c().groupFaderChanged(1, 40); }},
    {"`groupFaderChanged`: not caught, or no other value", [](Scene& s) { s.c().groupFaderChanged(1, 0); }},
    {"`BumpFaderChanged`: the button goes on, `updateUI` true",
     [](Scene& s) { s.c().BumpFaderChanged(1, 30, true); }},
    {"`PushCurrentGroupFaderValues`", [](Scene& s) { s.c().PushCurrentGroupFaderValues(); }},
    // Lamps and transport
    {"`LEDManager.TimerTick`: lamps of one row blink",
     [](Scene& s) {
       s.PutOn(1, 2);
       s.c().mLEDManager->TimerTick();
     }},
    {"`Play`", [](Scene& s) { s.bar->Play(); }},
    {"`Record`: a take begins", [](Scene& s) { s.bar->Record(); }},
    {"`Record`: the take ends",
     [](Scene& s) {
       s.bar->Record();
       s.Start();
       s.bar->Record();
     }},
    {"`controlClicked` in a take",
     [](Scene& s) {
       s.bar->Record();
       s.Start();
       s.ClickAt(34);
     }},
    {"`Stop_`: from another state",
     [](Scene& s) {
       s.bar->Play();
       s.Start();
       s.bar->Stop_();
     }},
    {"`TimerTick`: one event is due",
     [](Scene& s) {
       s.RecordOne();
       s.bar->Play();
       s.Start();
       s.Wait(600);
       s.bar->TimerTick();
     }},
    {"`SeekToEventIndex`: stopped",
     [](Scene& s) {
       s.RecordOne();
       s.bar->SeekToEventIndex(0);
     }},
    {"`updateEventTime`",
     [](Scene& s) {
       s.RecordOne();
       s.bar->updateEventTime(0, 700);
     }},
};

void Replace(std::string& text, std::string_view what, std::string_view with) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
}

// The names as the table writes them: a repeated one once, with how often.
std::string Cell(const std::vector<std::string>& names) {
  std::string cell;
  for (std::size_t i = 0; i < names.size();) {
    std::size_t end = i;
    while (end < names.size() && names[end] == names[i]) ++end;
    if (!cell.empty()) cell += ", ";
    cell += names[i];
    if (end - i > 1) cell += " × " + std::to_string(end - i);
    i = end;
  }
  // A page with one bump button.
  Replace(cell, "`GetUIFaderValues`, `UpdateFaderModelValue` × 9", "*faders*");
  Replace(cell, "`GetUIFaderValues`, `UpdateFaderModelValue` × 8", "*faders*");
  Replace(cell, "`EndLEDTimer`, `setLED` × 5", "*dark*, `setLED` × 2");
  Replace(cell, "`EndLEDTimer`, `setLED` × 3", "*dark*");
  return cell.empty() ? "nothing" : cell;
}

// The guide's rows: operation and callbacks.
std::map<std::string, std::string> GuideRows() {
  std::ifstream guide(VESTREL_GUIDE_FILE);
  std::map<std::string, std::string> rows;
  bool inside = false;
  for (std::string line; std::getline(guide, line);) {
    if (line.starts_with("## ")) inside = line == "## What each operation calls";
    if (!inside || !line.starts_with("| ") || line.starts_with("| operation |")) continue;
    const std::size_t bar = line.find(" | ");
    rows[line.substr(2, bar - 2)] = line.substr(bar + 3, line.size() - bar - 5);
  }
  return rows;
}

TEST(CallbackOrderTest, TheGuidesTableIsWhatTheLibraryDoes) {
  auto rows = GuideRows();
  for (const Row& row : kRows) {
    Scene scene;
    scene.Start();
    row.act(scene);
    const std::string called = Cell(scene.Called());
    EXPECT_EQ(rows[row.operation], called) << "| " << row.operation << " | " << called << " |";
    rows.erase(row.operation);
  }
  for (const auto& [operation, callbacks] : rows) ADD_FAILURE() << "a row of no test: " << operation;
}

}  // namespace
}  // namespace vestrel::test
