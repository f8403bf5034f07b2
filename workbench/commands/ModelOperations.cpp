// The operations of buttons (the button is their first argument) and of the page manager.
#include "core/Error.h"
#include "workbench/commands/OperationTable.h"

namespace vestrel::workbench {

namespace {

clsButton& Given(clsButton* button) {
  if (button == nullptr) RaiseError(Error_ObjectNotSet);
  return *button;
}

bool Locked(CommandSession&, clsButton* button) {
  return Given(button).Locked();
}

void SetLocked(CommandSession&, clsButton* button, bool value) {
  Given(button).SetLocked(value);
}

FaderModeEnum FaderMode(CommandSession&, clsButton* button) {
  return Given(button).FaderMode();
}

void SetFaderMode(CommandSession&, clsButton* button, FaderModeEnum value) {
  Given(button).SetFaderMode(value);
}

BumpModeEnum BumpMode(CommandSession&, clsButton* button) {
  return Given(button).BumpMode();
}

void SetBumpMode(CommandSession&, clsButton* button, BumpModeEnum value) {
  Given(button).SetBumpMode(value);
}

std::int32_t FaderValue(CommandSession&, clsButton* button) {
  return Given(button).faderValue();
}

PlayStateEnum PlayState(CommandSession&, clsButton* button) {
  return Given(button).playState();
}

Ref<clsButton> Copy(CommandSession&, clsButton* button, std::u16string* newName) {
  return Given(button).Copy(newName);
}

std::u16string ToString(CommandSession&, clsButton* button) {
  return Given(button).toString();
}

void PrintObject(CommandSession&, clsButton* button) {
  Given(button).PrintObject();
}

void SetPlayState(CommandSession&, clsButton* button, PlayStateEnum value, PSEventSourceEnum eventSource,
                  std::int16_t mouseButton, std::int16_t shift, float x, float y, bool suppressEvent,
                  bool suppressSave) {
  Given(button).setPlayState(value, eventSource, mouseButton, shift, x, y, suppressEvent, suppressSave);
}

void Press(CommandSession&, clsButton* button) {
  Given(button).press();
}

void Release(CommandSession&, clsButton* button) {
  Given(button).release();
}

void Click(CommandSession&, clsButton* button, std::int16_t mouseButton, std::int16_t shift, float x,
           float y) {
  Given(button).click(mouseButton, shift, x, y);
}

bool SetFaderValue(CommandSession&, clsButton* button, std::int32_t value, bool updateUI) {
  return Given(button).SetFaderValue(value, updateUI);
}

// A command that comes before the first show is set up finds the placeholder page, so there always is one.
Ref<clsPageManager> Pages(CommandSession& session) {
  return session.host().controller().PageManager();
}

Ref<clsObjectList> PageList(CommandSession& session) {
  return Pages(session)->PageList();
}

Ref<clsPage> CurrentPage(CommandSession& session) {
  return Pages(session)->CurrentPage();
}

std::u16string ShowName(CommandSession& session) {
  return Pages(session)->showName();
}

std::u16string CurrentPageName(CommandSession& session) {
  return Pages(session)->CurrentPageName();
}

bool IsLoading(CommandSession& session) {
  return Pages(session)->IsLoading();
}

bool PageIsValid(CommandSession& session) {
  return Pages(session)->PageIsValid();
}

bool TestShowWritable(CommandSession& session) {
  return Pages(session)->TestShowWritable();
}

void SavePages(CommandSession& session, bool skipPages) {
  Pages(session)->saveToINI(skipPages);
}

}  // namespace

std::vector<Operation> ButtonOperations() {
  return {
      Function<&Locked>("button.Locked", {In("button")}),
      Function<&SetLocked>("button.SetLocked", {In("button"), In("value")}),
      Function<&FaderMode>("button.FaderMode", {In("button")}),
      Function<&SetFaderMode>("button.SetFaderMode", {In("button"), In("value")}),
      Function<&BumpMode>("button.BumpMode", {In("button")}),
      Function<&SetBumpMode>("button.SetBumpMode", {In("button"), In("value")}),
      Function<&FaderValue>("button.faderValue", {In("button")}),
      Function<&PlayState>("button.playState", {In("button")}),
      Function<&Copy>("button.Copy", {In("button"), Optional("newName")}),
      Function<&ToString>("button.toString", {In("button")}),
      Function<&PrintObject>("button.PrintObject", {In("button")}),
      Function<&SetPlayState>("button.setPlayState",
                              {In("button"), In("value"), Optional("eventSource"),
                               Optional("mouseButton", "1"), Optional("shift"), Optional("x"), Optional("y"),
                               Optional("suppressEvent"), Optional("suppressSave")}),
      Function<&Press>("button.press", {In("button")}),
      Function<&Release>("button.release", {In("button")}),
      Function<&Click>("button.click", {In("button"), In("mouseButton"), In("shift"), In("x"), In("y")}),
      Function<&SetFaderValue>("button.SetFaderValue", {In("button"), In("value"), In("updateUI")}),
  };
}

std::vector<Operation> PageManagerOperations() {
  return {
      Function<&PageList>("pages.PageList"),
      Function<&CurrentPage>("pages.CurrentPage"),
      Function<&ShowName>("pages.showName"),
      Function<&CurrentPageName>("pages.CurrentPageName"),
      Function<&IsLoading>("pages.IsLoading"),
      Function<&PageIsValid>("pages.PageIsValid"),
      Function<&TestShowWritable>("pages.TestShowWritable"),
      Function<&SavePages>("pages.saveToINI", {Optional("skipPages")}),
  };
}

}  // namespace vestrel::workbench
