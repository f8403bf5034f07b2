// The table of clsButtonGroupController.
#pragma once

#include "component/Table.h"
#include "component/tables/IButtonEventHandlerTable.h"
#include "component/tables/IObjListEventHandlerTable.h"
#include "controller/clsButtonGroupController.h"

namespace vestrel::component {

template <>
struct TableOf<clsButtonGroupController> {
  using T = clsButtonGroupController;
  static constexpr auto kTable = MakeTable<T>(
      "The one object that the host's form drives: shows and pages, control input, layout and navigation, "
      "editing and faders.",
      Field<&T::mLEDManager>("mLEDManager", "Mirrors button state onto the surface; created by Init."),
      Get<&T::recordController>("recordController", "The record controller given to Init."),
      Property<&T::persist, &T::SetPersist>("persist",
                                            "Whether pages made from now on read and write their files."),
      Method<&T::Init>(
          "Init", "Keeps the host's objects and sets up with no show. setButtonGroupPageSize comes next.",
          "form", "appPath", "ledSetter", "recordController"),
      Method<&T::formLostFocus>("formLostFocus", "The screen went to the background: darkens the surface."),
      Method<&T::formGotFocus>("formGotFocus",
                               "The screen came to the front: sends every lamp of the page anew."),
      Method<&T::formShutdown>("formShutdown",
                               "Saves the show, then switches every button of the current page off."),
      Method<&T::CreateNewShow>("CreateNewShow", "Starts a new show of that name.", "showName"),
      Method<&T::LoadShow>("LoadShow", "Loads a show.", "showName"),
      Method<&T::AddPage>("AddPage", "Adds a page.", "pageName"),
      Method<&T::SetPage>("SetPage", "Makes a page current.", "pageName"),
      Method<&T::DeletePage>("DeletePage", "Takes a page out of the show.", "pageName",
                             Optional("defaultNewName", u"Page 1")),
      Method<&T::GetPageNames>("GetPageNames", "A new list of the page names as clsString."),
      Method<&T::InfoDump>("InfoDump", "Logs every page, group and button."),
      Method<&T::RenamePage>("RenamePage", "Renames a page.", "oldName", "newName"),
      Method<&T::clearAll>("clearAll",
                           "Switches off every playing button of every page and puts its fader to 0; the "
                           "page that was shown is current again."),
      Method<&T::HideSplashScreen>("HideSplashScreen", "Passes on to the form."),
      Method<&T::RefocusCurrentPage>("RefocusCurrentPage", "Resumes the current page's fader pick-up."),
      Method<&T::GetButtonMap>("GetButtonMap", "A new dictionary of the current page's buttons by name."),
      Method<&T::fakeMouseUp>("fakeMouseUp", "Logs; for hosts that report a missing release.", "controlIndex",
                              "source"),
      Method<&T::controlPressed>("controlPressed", "A control went down.", "controlIndex"),
      Method<&T::controlReleased>("controlReleased", "A control came up.", "controlIndex"),
      Method<&T::controlClicked>("controlClicked",
                                 "A control was clicked: acts on the edit under way, or toggles its button. "
                                 "buttonVar receives the button when returnButton is true.",
                                 "controlIndex", "mouseButton", "shift", "x", "y",
                                 Optional("triggerMode", TriggerMode_Toggle), Optional("returnButton", false),
                                 Out(Optional("buttonVar"))),
      Method<&T::releaseButtonsOnPage>(
          "releaseButtonsOnPage",
          "Switches the playing buttons of a group (-1: of all) off, those of one type or all, but one.",
          "groupIndex", Optional("onlyType", ButtonType_None), InOut(Optional("excludeButton"))),
      Method<&T::buttonGroupGo>("buttonGroupGo", "Fires the go of a group.", "groupIndex",
                                Optional("crossFade", 0), Optional("overRideTime", 0),
                                Optional("manualCrossfade", false)),
      Method<&T::ToggleButtonAt>("ToggleButtonAt",
                                 "Toggles the button at that group and index; whether there is one.",
                                 "groupIndex", "buttonIndex"),
      Method<&T::getPageOffset>("getPageOffset", "The number of the run of buttons that the group shows.",
                                "groupIndex"),
      Method<&T::changeButtonGroupPageOffset>("changeButtonGroupPageOffset",
                                              "Turns the group one page; whether it could.", "groupIndex",
                                              "direction"),
      Method<&T::getVisibleGroupButtons>("getVisibleGroupButtons",
                                         "The buttons that the group's controls show: of group 0 its own "
                                         "list, of group 9 the buttons 1 to 8, otherwise a new list.",
                                         "groupIndex"),
      Method<&T::getPrevButton>("getPrevButton", "The button before a button index, going round.",
                                "groupIndex", InOut("beforeIndex")),
      Method<&T::getNextButton>("getNextButton", "The button after a button index, going round.",
                                "groupIndex", "afterIndex"),
      Method<&T::setButtonGroupPageSize>("setButtonGroupPageSize",
                                         "How many buttons of a group are visible at a time.", "pageSize"),
      Method<&T::goToPageWithButtonIndex>(
          "goToPageWithButtonIndex", "Shows the run that holds a button index; whether that turned the page.",
          "groupIndex", "buttonIndex"),
      Method<&T::highlightButton>("highlightButton", "Moves the group's highlight.", "groupIndex", "dir",
                                  Optional("goToHighlightPage", true), Optional("afterButton")),
      Method<&T::getHighlightedButton>("getHighlightedButton", "The group's highlighted button, or none.",
                                       "groupIndex"),
      Method<&T::buttonWithIndex>("buttonWithIndex", "The group's button with that index, or none.",
                                  "groupIndex", "buttonIndex"),
      Method<&T::buttonAtControlIndex>("buttonAtControlIndex", "The button that a control shows, or none.",
                                       "controlIndex"),
      Method<&T::setButtonGroupButtonList>("setButtonGroupButtonList", "Replaces a group's buttons.",
                                           "groupIndex", "theButtonList"),
      Method<&T::getButtons>("getButtons",
                             "A new list of buttons, of one group (-1: of all) and of one type or all.",
                             Optional("groupIndex", -1), Optional("buttonType", ButtonType_None)),
      Method<&T::buttonIsVisible>("buttonIsVisible",
                                  "Whether the button's index lies in its group's visible run.", "button"),
      Method<&T::resetVisibility>("resetVisibility",
                                  "Marks the buttons of a group (-1: of all) as not shown.",
                                  Optional("groupIndex", -1)),
      Method<&T::assignButton>("assignButton", "Creates a button at a slot of the group's visible run.",
                               "groupIndex", "buttonControlIndex", "name", "buttonType"),
      Method<&T::removeButton>("removeButton", "Takes a button out of its group.", "button"),
      Method<&T::setModeAssign>("setModeAssign", "Starts an assignment: the next click places the button.",
                                "buttonName", "buttonType", "assignmentCallbackObj"),
      Method<&T::autoAssignNextAvailable>("autoAssignNextAvailable",
                                          "Places the pending button at the group's first free index.",
                                          "groupIndex"),
      Method<&T::setModeEditing>("setModeEditing",
                                 "Switches editing on or off: while on, a click opens the editing pop-up.",
                                 "enabled"),
      Method<&T::setModeMove>("setModeMove", "The next click moves the edited button there."),
      Method<&T::CancelEditMode>(
          "CancelEditMode",
          "Asks the form to leave its edit state (DisableEditMode); the mode ends when "
          "the form answers with setModeEditing(false)."),
      Method<&T::setModeCopy>("setModeCopy", "The next click copies the edited button there."),
      Method<&T::setModeAdjFadeInOut>("setModeAdjFadeInOut",
                                      "Starts adjusting fade times; answers the edited button."),
      Method<&T::beginEditCue>("beginEditCue", "Starts editing the cue."),
      Method<&T::DeleteButton>("DeleteButton", "Deletes the edited button.", Optional("noPrompt", false)),
      Method<&T::AssignMarkFade>("AssignMarkFade", "Makes a mark or fade button of the edited button.",
                                 "mfType"),
      Method<&T::RenameButton>("RenameButton", "Renames the edited button as the host answers."),
      Method<&T::ToggleBumpMode>("ToggleBumpMode", "Toggles the edited button's bump mode."),
      Method<&T::ToggleLockState>("ToggleLockState", "Toggles the edited button's lock."),
      Method<&T::ChangeFaderMode>("ChangeFaderMode", "Sets the edited button's fader mode.", "newMode"),
      Method<&T::groupFaderChanged>("groupFaderChanged", "A group fader, 1 to 8, moved.", "groupIndex",
                                    "newValue"),
      Method<&T::BumpFaderChanged>("BumpFaderChanged", "A bump fader, 1 to 8, moved.", "index", "value",
                                   "updateUI"),
      Method<&T::GetUIFaderValues>("GetUIFaderValues", "The host's fader positions, as its form answers.",
                                   InOut("values")),
      Method<&T::UpdateFaderModelValue>("UpdateFaderModelValue", "Passes on to the form.", "faderType",
                                        "index", "value", "caught", Optional("button")),
      Method<&T::PushCurrentGroupFaderValues>(
          "PushCurrentGroupFaderValues", "Moves the group faders on screen to the current page's values."),
      Implements<IButtonEventHandler>(), Implements<IObjListEventHandler>(),
      Get<&T::PageManager>("PageManager", "The page manager of the show that is set up."));
};

}  // namespace vestrel::component
