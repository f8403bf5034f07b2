// The controller's shows room: set-up, focus, show and page commands, shutdown. Commands keep the page
// manager they began with: a callback may set up another show in the middle of one.
#include <utility>

#include "controller/GroupButtons.h"
#include "controller/Trap.h"
#include "controller/clsButtonGroupController.h"
#include "core/Cast.h"
#include "core/clsString.h"
#include "util/modLog.h"
#include "util/modSprintf.h"
#include "util/modUtils.h"

namespace vestrel {
namespace {

constexpr std::int32_t kFullLevel = 100;

void LogButton(const clsButton& button) {
  modLog::LogFormat(LogLevel_3_INFO, u"       - (%d) button [%s] [state: %d]", button.buttonIndex,
                    button.name, static_cast<std::int32_t>(button.playState()));
}

void LogPage(const clsPage& page) {
  modLog::LogFormat(LogLevel_3_INFO, u"   - page [%s]", page.pageName());
  for (std::int32_t g = kFirstGroup; g <= kLastGroup; ++g) {
    modLog::LogFormat(LogLevel_3_INFO, u"     - group %d", g);
    const ItemSnapshot buttons = ButtonsOf(*GroupOf(page, g))->Snapshot();
    for (Object* item : buttons) LogButton(Cast<clsButton>(item));
  }
}

bool HasPage(const clsPageManager& manager, std::u16string_view pageName) {
  return manager.PageList()->FindFieldValue(u"pageName", pageName) >= 0;
}

// A page that a callback deleted is not made again, nor is the placeholder made a page of a show that has
// others, as one that was loaded half way has.
void ShowAgain(clsPageManager& manager, std::u16string_view pageName) {
  const bool hasShow = manager.showName() != clsPageManager::kNullShow;
  if (HasPage(manager, pageName) || !hasShow) return manager.SetPage(pageName);
  if (pageName == clsPageManager::kNullPage) manager.ShowPlaceholder();
}

void SwitchOff(clsButton& button, bool suppressSave) {
  button.setPlayState(PlayState_Off, PSEventSource_User, 0, 0, 0, 0, false, suppressSave);
}

}  // namespace

void clsButtonGroupController::Init(IFormSequenceShortcuts* form, std::u16string_view appPath,
                                    ILEDSetter* ledSetter, IRecordController* recordController) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<IFormSequenceShortcuts> givenForm(form);
  const Ref<IRecordController> givenRecorder(recordController);
  const std::u16string givenPath(appPath);
  modLog::LogFormat(LogLevel_3_INFO, u"BGC appPath is: %s", appPath);
  const Ref<LEDManager> lamps = MakeRef<LEDManager>();
  lamps->Init(ledSetter);
  // What was there goes last: its end may call back.
  const Ref<LEDManager> formerLamps = std::exchange(mLEDManager, lamps);
  const Ref<IFormSequenceShortcuts> formerForm = std::exchange(form_, givenForm);
  const Ref<clsObjectList> formerDeferred = std::exchange(deferredList_, MakeRef<clsObjectList>());
  buttonsPerGroup_ = -1;
  appPath_ = givenPath;
  persist_ = true;
  ready_ = false;
  InitShow();
  ready_ = true;
  recordController_ = givenRecorder;
}

Ref<clsPageManager> clsButtonGroupController::InitShow() {
  modLog::Log(u"BGC InitShow()");
  Ref<clsPageManager> manager = MakeRef<clsPageManager>();
  manager->Init(appPath_, this);
  const Ref<LEDManager> lamps = Lamps();
  // What was there goes last: a host's objects may go with it, and call back.
  const Ref<clsPageManager> former = std::exchange(pageManager_, manager);
  lamps->clearAll();
  editMode_ = EditMode_None;
  // What the edit modes worked on belongs to the show that was replaced.
  const Ref<clsButton> formerButton = std::exchange(editButton_, nullptr);
  const Ref<clsPage> formerPage = std::exchange(sourcePage_, nullptr);
  const PendingAssignment formerAssignment = std::exchange(pending_, {});
  level_ = kFullLevel;
  return manager;
}

void clsButtonGroupController::RefreshAllLEDs() {
  Quietly([this] {
    Lamps()->clearAll();
    const ItemSnapshot topButtons = ButtonsOf(*Group(kTopGroup))->Snapshot();
    for (Object* item : topButtons) RefreshGroupLamps(kTopGroup, Cast<clsButton>(item).buttonIndex);
    for (std::int32_t g = 1; g <= 8; ++g) RefreshGroupLamps(g, -1);
  });
}

void clsButtonGroupController::RefreshGroupLamps(std::int32_t groupIndex, std::int32_t buttonIndex) {
  if (IsScreenGroup(groupIndex)) {
    const ButtonPresence group = PresenceOf(*ButtonsOf(*Group(groupIndex)));
    Lamps()->setButtonsInGroups1To8(groupIndex, group.assigned, group.playing);
  } else if (groupIndex == kTopGroup) {
    const ButtonPresence button = PresenceAt(*ButtonsOf(*Group(groupIndex)), buttonIndex);
    Lamps()->setButtonInTop32(buttonIndex, button.assigned, button.playing);
  }
}

void clsButtonGroupController::formLostFocus() {
  const Ref<clsButtonGroupController> alive(this);
  Lamps()->clearAll();
}

void clsButtonGroupController::formGotFocus() {
  const Ref<clsButtonGroupController> alive(this);
  RefreshAllLEDs();
}

void clsButtonGroupController::RefocusCurrentPage() {
  const Ref<clsButtonGroupController> alive(this);
  CurrentPage()->GotFocus();
}

void clsButtonGroupController::CreateNewShow(std::u16string_view showName) {
  const Ref<clsButtonGroupController> alive(this);
  const std::u16string name(showName);
  modLog::Log(u"BGC CreateNewShow()");
  const Ref<clsPageManager> manager = InitShow();
  manager->setShow(name, true);
  if (!manager->TestShowWritable()) {
    modLog::LogFormat(LogLevel_1_SEVERE, u"BGC CreateNewShow [%s]: Show INI is not writable", name);
    Form()->HideSplashScreen();
    modUtils::ShowErrorBox(modSprintf::Format(
        u"INI file for show [%s] is not writeable.\\n\\nPlease report to Talvo Systems Inc", name));
  }
  RefreshAllLEDs();
}

void clsButtonGroupController::LoadShow(std::u16string_view showName) {
  const Ref<clsButtonGroupController> alive(this);
  const std::u16string name(showName);
  modLog::LogFormat(LogLevel_3_INFO, u"BGC LoadShow [%s]", name);
  InitShow()->setShow(name);
  RefreshAllLEDs();
}

void clsButtonGroupController::AddPage(std::u16string_view pageName) {
  SelectPage(u"AddPage", pageName, true);
}

void clsButtonGroupController::SetPage(std::u16string_view pageName) {
  SelectPage(u"SetPage", pageName, false);
}

void clsButtonGroupController::SelectPage(std::u16string_view command, std::u16string_view pageName,
                                          bool create) {
  const Ref<clsButtonGroupController> alive(this);
  const std::u16string name(pageName);
  modLog::LogFormat(LogLevel_3_INFO, u"BGC %s [%s]", command, name);
  const Ref<clsPageManager> manager = Manager();
  manager->SetPage(name, create);
  if (!manager->CurrentPage()->TestWritable()) {
    modLog::LogFormat(LogLevel_1_SEVERE, u"BGC %s [%s]: INI file not writable", command, name);
    Form()->HideSplashScreen();
    modUtils::ShowErrorBox(modSprintf::Format(
        u"Page [%s] not writable.\\n\\nPlease create a new show as a precaution, and file a "
        u"bug report with Talvo Systems Inc.",
        name));
  }
  RefreshAllLEDs();
}

void clsButtonGroupController::DeletePage(std::u16string_view pageName, std::u16string_view defaultNewName) {
  const Ref<clsButtonGroupController> alive(this);
  modLog::LogFormat(LogLevel_3_INFO, u"BGC DeletePage [%s]", pageName);
  Manager()->DeletePage(pageName, defaultNewName);
  RefreshAllLEDs();
}

Ref<clsObjectList> clsButtonGroupController::GetPageNames() {
  return Manager()->GetPageNames();
}

void clsButtonGroupController::RenamePage(std::u16string_view oldName, std::u16string_view newName) {
  Manager()->RenamePage(oldName, newName);
}

void clsButtonGroupController::HideSplashScreen() {
  Form()->HideSplashScreen();
}

void clsButtonGroupController::formShutdown() {
  const Ref<clsButtonGroupController> alive(this);
  modLog::Log(u"button group controller shutdown");
  modLog::Log(u"saving show...");
  Manager()->saveToINI();
  modLog::Log(u"show saved");
  // After the save on purpose: each button that goes off is saved again by itself, unless a callback showed
  // another page, in whose file it has no place.
  const Ref<clsPage> page = CurrentPage();
  const Ref<clsObjectList> buttons = getButtons();
  for (Object* item : buttons->Snapshot()) SwitchOff(Cast<clsButton>(item), CurrentPage() != page);
}

void clsButtonGroupController::clearAll() {
  const Ref<clsButtonGroupController> alive(this);
  modLog::Log(u"BGC.ClearAll():");
  const Ref<clsPageManager> manager = Manager();
  const std::u16string shown = manager->CurrentPageName();
  const Ref<clsObjectList> names = manager->GetPageNames();
  for (Object* item : names->Snapshot()) {
    if (!ClearPage(manager, Cast<clsString>(item).value())) return;
  }
  ShowAgain(*manager, shown);
  Form()->RefreshPage(IFSSRefresh_EntirePage, 0);
}

// Answers false when another show has taken the place of the one being cleared.
bool clsButtonGroupController::ClearPage(const Ref<clsPageManager>& manager, std::u16string_view pageName) {
  if (!HasPage(*manager, pageName)) return true;
  manager->SetPage(pageName, false);
  Form()->RefreshPage(IFSSRefresh_EntirePageNonGUI, 0);
  modLog::LogFormat(LogLevel_3_INFO, u"  - clearing page [%s]", pageName);
  const Ref<clsPage> page = CurrentPage();
  const Ref<clsObjectList> buttons = getButtons();
  for (Object* item : buttons->Snapshot()) {
    if (pageManager_ != manager) return false;
    auto& button = Cast<clsButton>(item);
    if (button.playState() != PlayState_On) continue;
    modLog::LogFormat(LogLevel_3_INFO, u"    - clearing button [%s]", button.name);
    Cast<clsFaderCatch>(button.Fader().get()).SetValue(0, true);
    SwitchOff(button, manager->CurrentPage() != page);
  }
  return pageManager_ == manager;
}

void clsButtonGroupController::InfoDump() {
  modLog::Log(u"BGC.InfoDump():");
  const Ref<clsObjectList> pages = Manager()->PageList();
  modLog::LogFormat(LogLevel_3_INFO, u" - number of pages: %d", pages->Size());
  for (Object* item : pages->Snapshot()) LogPage(Cast<clsPage>(item));
}

Ref<clsDictionary> clsButtonGroupController::GetButtonMap() {
  Ref<clsDictionary> result = MakeRef<clsDictionary>();
  const Ref<clsObjectList> buttons = getButtons();
  for (Object* item : buttons->Snapshot()) result->Add(Cast<clsButton>(item).name, item);
  return result;
}

}  // namespace vestrel
