#include "tests/scenarios/Scene.h"

#include "core/Cast.h"
#include "tests/scenarios/PageFaults.h"

namespace vestrel::test {
namespace {

constexpr std::u16string_view kShowFile = u"C:\\app\\Sequences\\Gala\\pageSetting.ini";
constexpr std::u16string_view kFirstPage = u"C:\\app\\Sequences\\Gala\\Act 1\\pageSetting.ini";
constexpr std::u16string_view kSecondPage = u"C:\\app\\Sequences\\Gala\\Act 2\\pageSetting.ini";

constexpr std::string_view kFirstBytes =
    "[ButtonGroup0]\r\nusedIndices=1|2\r\nButton1_fields=Top|1|0|1|0|0|False\r\n"
    "Button2_fields=Roof|1|0|0|0|0|False\r\n"
    "[ButtonGroup1]\r\nusedIndices=1|2|3\r\nButton1_fields=One|1|0|0|0|0|False\r\n"
    "Button2_fields=Two|2|0|0|0|0|False\r\nButton3_fields=Three|1|0|0|0|0|True\r\n"
    "[ButtonGroup2]\r\nusedIndices=1|2|5|6\r\nButton1_fields=Intro|1|0|0|0|0|False\r\n"
    "Button2_fields=Chase|1|0|0|0|0|False\r\nButton5_fields=Far|4|0|0|0|0|False\r\n"
    "Button6_fields=End|1|0|0|0|0|False\r\n"
    "[ButtonGroup9]\r\nusedIndices=1|2\r\nButton1_fields=Bump|1|0|1|0|0|False\r\n"
    "Button2_fields=Bang|1|0|1|0|0|False\r\n";
constexpr std::string_view kSecondBytes =
    "[ButtonGroup2]\r\nusedIndices=1\r\nButton1_fields=Other|1|0|0|0|0|False\r\n";

}  // namespace

Scene::Scene(MemoryFiles& memory, FakeHostServices& services, FakeClock& fakeClock,
             const std::function<void(SimulatedHost&)>& cast)
    : files(memory), clock(fakeClock), services_(services) {
  if (cast) cast(*this);
  files.Put(kShowFile, "[PageManager]\r\nPageList=Act 1|Act 2\r\n");
  files.Put(kFirstPage, kFirstBytes);
  files.Put(kSecondPage, kSecondBytes);
  files.Put(u"C:\\app\\take.txt", "");
  Join(u"C:\\app");
  controller->LoadShow(u"Gala");
  page = controller->PageManager()->CurrentPage();
  intro = controller->buttonWithIndex(2, 1);
  chase = controller->buttonWithIndex(2, 2);
  top = controller->buttonWithIndex(0, 1);
  bump = controller->buttonWithIndex(9, 1);
  list = MakeRef<clsObjectList>();
  record->Record();
  clock.ticks += 10;
  record->TimerTick();
  controller->ToggleButtonAt(2, 2);
  controller->ToggleButtonAt(1, 1);
  controller->setModeEditing(true);
  controller->controlClicked(37, 1, 0, 0, 0);
  controller->setModeEditing(false);
  form->overwrite = true;
  form->newName = u"Renamed";
  Listen();
}

Scene::~Scene() {
  transcript.onCall = nullptr;
  services_.onPump = nullptr;
}

void Scene::Listen() {
  transcript.onCall = [this](const std::string& call) {
    transcript.calls.clear();
    if (onCallback) onCallback(call.substr(0, call.find('(')));
  };
  services_.onPump = [this] {
    if (onCallback) onCallback("PumpMessages");
  };
}

// What is reported again is sent only where the lamp shows something else.
std::string Scene::LampFaults() {
  controller->formGotFocus();
  int sent = 0;
  transcript.onCall = [&](const std::string& call) { sent += call.starts_with("setLED") ? 1 : 0; };
  const Ref<clsPage> shown = controller->PageManager()->CurrentPage();
  for (std::int32_t g = 1; g <= 8; ++g) {
    const Ref<clsButtonGroup> group = shown->ButtonGroups(g);
    controller->mLEDManager->setButtonsInGroups1To8(g, group->buttons->Size() > 0,
                                                    group->nowPlayingList->Size() > 0);
  }
  Listen();
  return sent == 0 ? "" : "a lamp shows something else";
}

std::string Scene::Faults() {
  onCallback = nullptr;
  const Ref<clsPageManager> manager = controller->PageManager();
  for (Object* item : manager->PageList()->Snapshot()) {
    const std::string faults = FaultsOf(Cast<clsPage>(item));
    if (!faults.empty()) return faults;
  }
  const std::string faults = FaultsOf(*manager->CurrentPage());
  if (!faults.empty()) return faults;
  if (manager->IsLoading()) return "still loading";
  return LampFaults();
}

// The controller may be gone when an action is due; then only what a host kept is used.
#define ON_CONTROLLER(call)               \
  HostAction {                            \
#call, [](Scene & s) {                  \
      const auto c = s.controller;          \
      if (!c) return;                       \
      (void)c->call;                        \
    } \
  }
#define ON_MANAGER(call)                          \
  HostAction {                                    \
    "PageManager." #call, [](Scene& s) {          \
      if (!s.controller) return;                  \
      const auto m = s.controller->PageManager(); \
      (void)m->call;                              \
    }                                             \
  }
#define ON(what, call)                                     \
  HostAction {                                             \
#what "." #call, [](Scene & s) { (void)s.what->call; } \
  }

const std::vector<HostAction>& HostActions() {
  static const std::vector<HostAction> kActions{
      ON_CONTROLLER(recordController()),
      ON_CONTROLLER(SetPersist(true)),
      ON_CONTROLLER(Init(s.form.get(), u"C:\\app", s.lamps.get(), s.record.get())),
      ON_CONTROLLER(formLostFocus()),
      ON_CONTROLLER(formGotFocus()),
      ON_CONTROLLER(formShutdown()),
      ON_CONTROLLER(CreateNewShow(u"Encore")),
      ON_CONTROLLER(LoadShow(u"Gala")),
      ON_CONTROLLER(AddPage(u"Act 3")),
      ON_CONTROLLER(SetPage(u"Act 1")),
      ON_CONTROLLER(SetPage(u"Act 2")),
      ON_CONTROLLER(DeletePage(u"Act 1")),
      ON_CONTROLLER(DeletePage(u"Act 2")),
      ON_CONTROLLER(GetPageNames()),
      ON_CONTROLLER(InfoDump()),
      ON_CONTROLLER(RenamePage(u"Act 1", u"Act 9")),
      ON_CONTROLLER(clearAll()),
      ON_CONTROLLER(HideSplashScreen()),
      ON_CONTROLLER(RefocusCurrentPage()),
      ON_CONTROLLER(GetButtonMap()),
      ON_CONTROLLER(fakeMouseUp(1, u"host")),
      ON_CONTROLLER(controlPressed(65)),
      ON_CONTROLLER(controlReleased(65)),
      ON_CONTROLLER(controlClicked(37, 1, 0, 0, 0)),
      ON_CONTROLLER(controlClicked(38, 1, 0, 0, 0)),
      ON_CONTROLLER(controlClicked(41, 1, 0, 0, 0)),
      ON_CONTROLLER(releaseButtonsOnPage(-1)),
      ON_CONTROLLER(buttonGroupGo(2)),
      ON_CONTROLLER(ToggleButtonAt(2, 5)),
      ON_CONTROLLER(ToggleButtonAt(2, 2)),
      ON_CONTROLLER(getPageOffset(2)),
      ON_CONTROLLER(changeButtonGroupPageOffset(2, PageDir_Next)),
      ON_CONTROLLER(getVisibleGroupButtons(2)),
      ON_CONTROLLER(getNextButton(2, 1)),
      ON_CONTROLLER(setButtonGroupPageSize(4)),
      ON_CONTROLLER(goToPageWithButtonIndex(2, 6)),
      ON_CONTROLLER(highlightButton(2, Highlight_Next)),
      ON_CONTROLLER(highlightButton(2, Highlight_First, false)),
      ON_CONTROLLER(getHighlightedButton(2)),
      ON_CONTROLLER(buttonWithIndex(2, 1)),
      ON_CONTROLLER(buttonAtControlIndex(37)),
      ON_CONTROLLER(setButtonGroupButtonList(2, c->getButtons(2).get())),
      ON_CONTROLLER(getButtons()),
      ON_CONTROLLER(buttonIsVisible(s.intro.get())),
      ON_CONTROLLER(resetVisibility()),
      ON_CONTROLLER(assignButton(2, 1, u"New", ButtonType_Multi)),
      ON_CONTROLLER(assignButton(3, 1, u"New", ButtonType_Multi)),
      ON_CONTROLLER(removeButton(s.intro.get())),
      ON_CONTROLLER(removeButton(s.chase.get())),
      ON_CONTROLLER(setModeAssign(u"Fresh", ButtonType_Auto, s.assignment.get())),
      ON_CONTROLLER(setModeAssign(u"Chase", ButtonType_Auto, s.assignment.get())),
      ON_CONTROLLER(autoAssignNextAvailable(2)),
      ON_CONTROLLER(setModeEditing(true)),
      ON_CONTROLLER(setModeEditing(false)),
      ON_CONTROLLER(setModeMove()),
      ON_CONTROLLER(CancelEditMode()),
      ON_CONTROLLER(setModeCopy()),
      ON_CONTROLLER(setModeAdjFadeInOut()),
      ON_CONTROLLER(beginEditCue()),
      ON_CONTROLLER(DeleteButton(true)),
      ON_CONTROLLER(AssignMarkFade(MarkFadeType_Mark)),
      ON_CONTROLLER(RenameButton()),
      ON_CONTROLLER(ToggleBumpMode()),
      ON_CONTROLLER(ToggleLockState()),
      ON_CONTROLLER(ChangeFaderMode(FaderMode_Proportional)),
      ON_CONTROLLER(groupFaderChanged(3, 30)),
      ON_CONTROLLER(groupFaderChanged(2, 30)),
      ON_CONTROLLER(BumpFaderChanged(1, 30, true)),
      ON_CONTROLLER(BumpFaderChanged(1, 0, true)),
      ON_CONTROLLER(PushCurrentGroupFaderValues()),
      ON_CONTROLLER(LockStateChanged(s.intro.get())),
      ON_CONTROLLER(FaderModeChanged(s.intro.get())),
      ON_CONTROLLER(FaderValueChanged(s.bump.get(), true)),
      ON_CONTROLLER(PlayStateChanged(s.intro.get(), PSEventSource_User, 1, 0, 0, 0)),
      ON_CONTROLLER(DeferPlaystateFor(s.page.get(), s.intro.get(), PlayState_On, 1)),
      ON_CONTROLLER(mLEDManager->TimerTick()),
      ON_CONTROLLER(mLEDManager->clearAll()),
      ON_MANAGER(saveToINI()),
      ON_MANAGER(saveToINI(true)),
      ON_MANAGER(setShow(u"Gala")),
      ON_MANAGER(setShow(u"Encore", true)),
      ON_MANAGER(SetPage(u"Act 2")),
      ON_MANAGER(DeletePage(u"Act 1", u"")),
      ON_MANAGER(RenamePage(u"Act 1", u"Act 8")),
      ON_MANAGER(TestShowWritable()),
      ON(page, saveToINI()),
      ON(page, loadFromINI()),
      ON(page, GotFocus()),
      ON(page, LostFocus()),
      ON(page, TestWritable()),
      ON(page, ButtonGroups(2)->buttons->Clear()),
      ON(page, ButtonGroups(2)->buttons->Remove(0)),
      ON(intro, click(1, 0, 0, 0)),
      ON(chase, click(1, 0, 0, 0)),
      ON(intro, SetLocked(true)),
      ON(intro, SetFaderMode(FaderMode_Speed)),
      ON(chase, Copy()),
      ON(bump, press()),
      ON(bump, release()),
      ON(bump, SetFaderValue(70, true)),
      ON(top, setPlayState(PlayState_On, PSEventSource_RecPlayback, 1, 0, 0, 0)),
      ON(record, Play()),
      ON(record, Record()),
      ON(record, Stop_()),
      ON(record, TimerTick()),
      ON(record, ClearEvents()),
      ON(record, SetRecordMode(RecordMode_Overwrite)),
      ON(record, SeekToEventIndex(0)),
      ON(record, updateEventTime(0, 5)),
      ON(record, SaveEventsTo(u"C:\\app\\take.txt")),
      HostAction{"record.LoadEventsFrom",
                 [](Scene& s) {
                   if (s.controller) {
                     s.record->LoadEventsFrom(u"C:\\app\\take.txt", s.controller->GetButtonMap().get());
                   }
                 }},
      ON(record, Init(s.transport.get())),
      HostAction{"lets go of the controller", [](Scene& s) { s.controller = nullptr; }},
      HostAction{"lets go of everything else",
                 [](Scene& s) {
                   const auto button = MakeRef<clsButton>();
                   button->Init(nullptr, nullptr);
                   s.intro = s.chase = s.top = s.bump = button;
                   s.form = nullptr;
                   s.lamps = nullptr;
                   s.assignment = nullptr;
                   s.form = MakeRef<RecordingForm>(s.transcript);
                   s.lamps = MakeRef<RecordingLamps>(s.transcript);
                   s.assignment = MakeRef<RecordingAssignment>(s.transcript);
                 }},
  };
  return kActions;
}

}  // namespace vestrel::test
