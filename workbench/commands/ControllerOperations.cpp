// The operations of the button group controller, room by room.
#include "workbench/commands/OperationTable.h"

namespace vestrel::workbench {

namespace {

using Controller = clsButtonGroupController;

// The host has to know the page size and the show as well, so these three go through it.
void SetPageSize(CommandSession& session, std::int32_t pageSize) {
  session.host().SetPageSize(pageSize);
}

void CreateShow(CommandSession& session, std::u16string_view showName) {
  session.host().CreateShow(showName);
}

void LoadShow(CommandSession& session, std::u16string_view showName) {
  session.host().LoadShow(showName);
}

Ref<LEDManager> LampManager(CommandSession& session) {
  return session.host().controller().mLEDManager;
}

}  // namespace

std::vector<Operation> ShowOperations() {
  return {
      Function<&LampManager>("mLEDManager"),
      Method<&Controller::recordController>("recordController"),
      Method<&Controller::persist>("persist"),
      Method<&Controller::SetPersist>("SetPersist", {In("value")}),
      Shown(Method<&Controller::Init>(
          "Init", {Optional("form", "host"), Path("appPath"), Optional("ledSetter", "host"),
                   Optional("recordController", "host")})),
      Method<&Controller::formLostFocus>("formLostFocus"),
      Method<&Controller::formGotFocus>("formGotFocus"),
      Method<&Controller::formShutdown>("formShutdown"),
      Shown(Function<&CreateShow>("CreateNewShow", {In("showName")})),
      Shown(Function<&LoadShow>("LoadShow", {In("showName")})),
      Shown(Method<&Controller::AddPage>("AddPage", {In("pageName")})),
      Shown(Method<&Controller::SetPage>("SetPage", {In("pageName")})),
      Shown(Method<&Controller::DeletePage>("DeletePage",
                                            {In("pageName"), Optional("defaultNewName", "Page 1")})),
      Method<&Controller::GetPageNames>("GetPageNames"),
      Method<&Controller::InfoDump>("InfoDump"),
      Method<&Controller::RenamePage>("RenamePage", {In("oldName"), In("newName")}),
      Shown(Method<&Controller::clearAll>("clearAll")),
      Method<&Controller::HideSplashScreen>("HideSplashScreen"),
      Method<&Controller::RefocusCurrentPage>("RefocusCurrentPage"),
      Method<&Controller::GetButtonMap>("GetButtonMap"),
      Method<&Controller::PageManager>("PageManager"),
  };
}

std::vector<Operation> InputOperations() {
  return {
      Method<&Controller::fakeMouseUp>("fakeMouseUp", {In("controlIndex"), In("source")}),
      Method<&Controller::controlPressed>("controlPressed", {In("controlIndex")}),
      Method<&Controller::controlReleased>("controlReleased", {In("controlIndex")}),
      Method<&Controller::controlClicked>(
          "controlClicked",
          {In("controlIndex"), In("mouseButton"), In("shift"), In("x"), In("y"),
           Optional("triggerMode", "TriggerMode_Toggle"), Optional("returnButton"), Optional("buttonVar")}),
      Method<&Controller::releaseButtonsOnPage>(
          "releaseButtonsOnPage",
          {In("groupIndex"), Optional("onlyType", "ButtonType_None"), Optional("excludeButton")}),
      Method<&Controller::buttonGroupGo>(
          "buttonGroupGo",
          {In("groupIndex"), Optional("crossFade"), Optional("overRideTime"), Optional("manualCrossfade")}),
      Method<&Controller::ToggleButtonAt>("ToggleButtonAt", {In("groupIndex"), In("buttonIndex")}),
  };
}

std::vector<Operation> LayoutOperations() {
  return {
      Method<&Controller::getPageOffset>("getPageOffset", {In("groupIndex")}),
      Shown(Method<&Controller::changeButtonGroupPageOffset>("changeButtonGroupPageOffset",
                                                             {In("groupIndex"), In("direction")})),
      Method<&Controller::getVisibleGroupButtons>("getVisibleGroupButtons", {In("groupIndex")}),
      Method<&Controller::getPrevButton>("getPrevButton", {In("groupIndex"), In("beforeIndex")}),
      Method<&Controller::getNextButton>("getNextButton", {In("groupIndex"), In("afterIndex")}),
      Shown(Function<&SetPageSize>("setButtonGroupPageSize", {In("pageSize")})),
      Method<&Controller::goToPageWithButtonIndex>("goToPageWithButtonIndex",
                                                   {In("groupIndex"), In("buttonIndex")}),
      Method<&Controller::highlightButton>(
          "highlightButton",
          {In("groupIndex"), In("dir"), Optional("goToHighlightPage", "true"), Optional("afterButton")}),
      Method<&Controller::getHighlightedButton>("getHighlightedButton", {In("groupIndex")}),
      Method<&Controller::buttonWithIndex>("buttonWithIndex", {In("groupIndex"), In("buttonIndex")}),
      Method<&Controller::buttonAtControlIndex>("buttonAtControlIndex", {In("controlIndex")}),
      Shown(Method<&Controller::setButtonGroupButtonList>("setButtonGroupButtonList",
                                                          {In("groupIndex"), In("theButtonList")})),
      Method<&Controller::getButtons>("getButtons",
                                      {Optional("groupIndex", "-1"), Optional("buttonType", "999")}),
      Method<&Controller::buttonIsVisible>("buttonIsVisible", {In("button")}),
      Method<&Controller::resetVisibility>("resetVisibility", {Optional("groupIndex", "-1")}),
  };
}

std::vector<Operation> EditingOperations() {
  return {
      Method<&Controller::assignButton>(
          "assignButton", {In("groupIndex"), In("buttonControlIndex"), In("name"), In("buttonType")}),
      Method<&Controller::removeButton>("removeButton", {In("button")}),
      Method<&Controller::setModeAssign>(
          "setModeAssign", {In("buttonName"), In("buttonType"), Optional("assignmentCallbackObj", "host")}),
      Method<&Controller::autoAssignNextAvailable>("autoAssignNextAvailable", {In("groupIndex")}),
      Method<&Controller::setModeEditing>("setModeEditing", {In("enabled")}),
      Method<&Controller::setModeMove>("setModeMove"),
      Method<&Controller::CancelEditMode>("CancelEditMode"),
      Method<&Controller::setModeCopy>("setModeCopy"),
      Method<&Controller::setModeAdjFadeInOut>("setModeAdjFadeInOut"),
      Method<&Controller::beginEditCue>("beginEditCue"),
      Method<&Controller::DeleteButton>("DeleteButton", {Optional("noPrompt")}),
      Method<&Controller::AssignMarkFade>("AssignMarkFade", {In("mfType")}),
      Method<&Controller::RenameButton>("RenameButton"),
      Method<&Controller::ToggleBumpMode>("ToggleBumpMode"),
      Method<&Controller::ToggleLockState>("ToggleLockState"),
      Method<&Controller::ChangeFaderMode>("ChangeFaderMode", {In("newMode")}),
  };
}

std::vector<Operation> FaderOperations() {
  return {
      Method<&Controller::groupFaderChanged>("groupFaderChanged", {In("groupIndex"), In("newValue")}),
      Method<&Controller::BumpFaderChanged>("BumpFaderChanged", {In("index"), In("value"), In("updateUI")}),
      Method<&Controller::GetUIFaderValues>("GetUIFaderValues", {In("values")}),
      Method<&Controller::UpdateFaderModelValue>(
          "UpdateFaderModelValue",
          {In("faderType"), In("index"), In("value"), In("caught"), Optional("button")}),
      Method<&Controller::PushCurrentGroupFaderValues>("PushCurrentGroupFaderValues"),
  };
}

std::vector<Operation> NotificationOperations() {
  return {
      Method<&Controller::PlayStateChanged>("IButtonEventHandler_PlayStateChanged",
                                            {In("button"), In("eventSource"), In("mouseButton"), In("shift"),
                                             In("x"), In("y"), Optional("suppressSave")}),
      Method<&Controller::LockStateChanged>("IButtonEventHandler_LockStateChanged", {In("button")}),
      Method<&Controller::FaderModeChanged>("IButtonEventHandler_FaderModeChanged", {In("button")}),
      Method<&Controller::FaderValueChanged>("IButtonEventHandler_FaderValueChanged",
                                             {In("button"), In("updateUI")}),
      Method<&Controller::DeferPlaystateFor>("IButtonEventHandler_DeferPlaystateFor",
                                             {In("page"), In("button"), In("playState"), In("faderValue")}),
      Method<&Controller::ItemAdded>("IObjListEventHandler_ItemAdded",
                                     {In("list"), In("item"), In("atIndex"), In("userData")}),
      Method<&Controller::ItemRemoved>("IObjListEventHandler_ItemRemoved",
                                       {In("list"), In("item"), In("fromIndex"), In("userData")}),
  };
}

}  // namespace vestrel::workbench
