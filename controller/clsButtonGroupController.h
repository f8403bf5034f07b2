// The one object that the host's form drives: shows and pages, control input, layout and navigation, editing
// and faders. Made by the host, which keeps it alive; holds the form, the lamp output (through its LED
// manager) and the record controller. It draws nothing and plays nothing: every effect outside the library is
// a callback into the host. Its rooms are the source files named after what they do.
//
// What holds for every operation below:
// - Groups are 0 (top buttons), 1 to 8 (groups of the screen) and 9 (bump buttons); button indices start
//   at 1; faders and levels are 0 to 100. "The page" is the current one of the show that is set up.
// - Errors: 91 before Init (no show, form or lamp output yet) or where an object that is needed is none;
//   9 for a group outside 0 to 9; 6 and 11 from index arithmetic (overflow, a page size of 0); whatever the
//   host raises in a callback. An operation described as quiet ends at a failure and answers what it had
//   reached.
// - Every callback is synchronous and may call any operation again, replace the show or let go of every
//   reference; state changes are complete when a callback that follows from them is made.
// - Saving a group or a page lets the host process its pending messages once a group. Writing that fails is
//   not reported.
// - A lamp update reaches ILEDSetter.setLED (and StartLEDTimer or EndLEDTimer) only where a lamp changes.
// - Lamps always show the page, also where a button of another page gave rise to the update.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controller/clsPageManager.h"
#include "controller/interfaces/Enumerations.h"
#include "controller/interfaces/IAssignmentCallback.h"
#include "controller/interfaces/IFormSequenceShortcuts.h"
#include "controller/interfaces/ILEDSetter.h"
#include "controller/interfaces/IPageController.h"
#include "controller/interfaces/IRecordController.h"
#include "core/BackRef.h"
#include "core/clsDictionary.h"
#include "core/clsObjectList.h"
#include "leds/LEDManager.h"
#include "model/clsButton.h"
#include "model/clsButtonGroup.h"
#include "model/clsDeferred.h"
#include "model/clsPage.h"
#include "recording/clsRecordController.h"

namespace vestrel {

class clsButtonGroupController : public virtual IPageController {
 public:
  VESTREL_OBJECT(clsButtonGroupController, IPageController, IButtonEventHandler, IObjListEventHandler)
  VESTREL_HELD_WEAKLY()

  clsButtonGroupController();

  // ---- Set-up, shows and pages (controllerShows.cpp) ----

  // Mirrors button state onto the surface; created by Init, and none before.
  Ref<LEDManager> mLEDManager;
  // The record controller given to Init, none before. Raises 13 when it is a host's own IRecordController.
  Ref<clsRecordController> recordController() const;
  // Whether pages made from now on read and write their files; true after Init.
  bool persist() const override { return persist_; }
  void SetPersist(bool value) noexcept { persist_ = value; }

  // Makes the controller ready with no show set. Keeps `form`, `ledSetter` and `recordController` alive;
  // `appPath` is the root of all data, without a separator at its end. The page size is -1 until the host
  // calls setButtonGroupPageSize. Callbacks: EndLEDTimer and setLED, which darken the surface.
  void Init(IFormSequenceShortcuts* form, std::u16string_view appPath, ILEDSetter* ledSetter,
            IRecordController* recordController);
  // Darkens the surface. Callbacks: EndLEDTimer, setLED.
  void formLostFocus();
  // Sends every lamp of the page anew. Callbacks: EndLEDTimer, setLED, StartLEDTimer. Quiet, here and where
  // the commands below end with it.
  void formGotFocus();
  // Saves the show with all its pages, then switches every button of the page off as the user (mouse button
  // 0), each with the callbacks of PlayStateChanged. Once a callback shows another page or sets up another
  // show the rest go off unsaved. The controller stays usable.
  void formShutdown();
  // Sets up an empty show in place of the one before and writes its file. A file that cannot be written is
  // logged and shown (HideSplashScreen, then a message box) and the show is set up all the same. Ends the
  // edit mode and forgets the edit button, the source page of a move or copy and the pending assignment.
  // Raises 75 or 76 when the folders cannot be made.
  void CreateNewShow(std::u16string_view showName);
  // Sets up the show that is on disk (none there: an empty one) and makes its first page current, with the
  // callbacks of RefocusCurrentPage. No writability test. Ends the edit mode and forgets what CreateNewShow
  // forgets. Raises 13 for a page file whose numbers cannot be read, and 57, 70 or 75 for a show or page file
  // that is there but cannot be read; the show is then set up as far as it was read, its file is never
  // written, and SetPage reads the pages that were not reached.
  void LoadShow(std::u16string_view showName);
  // Adds a page (empty, and written at once) or selects the one of that name, matched exactly; one that is
  // new becomes current only when it is the first. A page that becomes current reports its faders as
  // RefocusCurrentPage does. An unwritable file of the current page is logged and shown as in CreateNewShow.
  // After a LoadShow that raised, a page whose file is there is read, not emptied; raises as LoadShow where
  // it cannot be. With no show set: a severe log line and a message box.
  void AddPage(std::u16string_view pageName);
  // The same as AddPage, the words in the log aside: a page that is not there is made.
  void SetPage(std::u16string_view pageName);
  // Takes the page out of the show (its folder stays) and makes the first remaining one current, with its
  // callbacks. A page that is not there is logged. defaultNewName is not used.
  void DeletePage(std::u16string_view pageName, std::u16string_view defaultNewName = u"Page 1");
  // A new list of clsString with the names in order.
  Ref<clsObjectList> GetPageNames();
  // Logs every page, group and button at Info.
  void InfoDump();
  // Renames the page and binds it to the new name's folder; moves nothing. A page that is not there is
  // logged.
  void RenamePage(std::u16string_view oldName, std::u16string_view newName);
  // Switches off every playing button of every page as the user (mouse button 0) and forces its fader to 0,
  // making each page current in turn and the one that was shown current again. A page that a callback deleted
  // is passed over; when a callback sets up another show the operation ends there. Callbacks: a page's as in
  // SetPage, RefreshPage(IFSSRefresh_EntirePageNonGUI) a page, a button's as in PlayStateChanged, and
  // RefreshPage(IFSSRefresh_EntirePage) last. With no show set: the message of SetPage.
  void clearAll();
  // Callback: HideSplashScreen.
  void HideSplashScreen();
  // Resumes the page's fader pick-up. Callbacks: GetUIFaderValues once, then UpdateFaderModelValue for groups
  // 1 to 8 and for each bump button 1 to 8.
  void RefocusCurrentPage();
  // The page's buttons by name, for LoadEventsFrom; of several with one name (letter case aside) the last.
  Ref<clsDictionary> GetButtonMap();

  // ---- Control input and play state (controllerInput.cpp, controllerPlayState.cpp) ----

  // Logs its arguments at Info and does nothing else.
  void fakeMouseUp(std::int16_t controlIndex, std::u16string_view source);
  // Presses or releases the button at the control (from 1) unless an edit mode is active; only bump-mode
  // buttons answer (clsButton::press). Callbacks: those of PlayStateChanged and FaderValueChanged.
  void controlPressed(std::int32_t controlIndex);
  void controlReleased(std::int32_t controlIndex);
  // A click on the control (from 1), with what the host reports of the mouse. By the edit mode:
  //   none          clicks the button there and moves the group's highlight to the one after it; with
  //                 returnButton, *buttonVar receives the button or none
  //   assign        places the pending button at that slot: CompleteAssignment(false), the callbacks of
  //                 assignButton, SetFlashing(false), RefreshPage(IFSSRefresh_Group); the mode stays
  //   edit enabled  the button there becomes the edit button: ShowEditPopup; an empty slot clears it
  //   move, copy    places the edit button, or a copy of it named "<name> copy", there: CopyButtonFiles (a
  //                 move only between pages), RefreshPage(IFSSRefresh_Group), and, the mode being none again,
  //                 DisableEditMode and SetFlashing(false). A move onto itself only ends the mode.
  // triggerMode is not consulted. Raises BGCErr_GroupOutOfRange or BGCErr_ButtonIndexOutOfRange, changing
  // nothing, for a target that cannot take a button, and 91 for a move or copy without an edit button.
  void controlClicked(std::int32_t controlIndex, std::int16_t mouseButton, std::int16_t shift, float x,
                      float y, TriggerModeEnum triggerMode = TriggerMode_Toggle, bool returnButton = false,
                      Ref<clsButton>* buttonVar = nullptr);
  // Switches off the playing buttons of the group (below 0: of all ten; 0 and 9: none) that are not locked,
  // of one type or any (ButtonType_None), excludeButton aside: as automatic release (mouse button 1),
  // unsaved, with the callbacks of PlayStateChanged. An exclude button in bump mode releases nothing. Where
  // *excludeButton is none it receives a placeholder. A failure is logged and ends it.
  void releaseButtonsOnPage(std::int32_t groupIndex, ButtonTypeEnum onlyType = ButtonType_None,
                            Ref<clsButton>* excludeButton = nullptr);
  // Fires the highlighted button of group 1 to 8 (others and a controller still in Init: nothing) and moves
  // the highlight on. Callbacks: RefreshPage, GoFromSubmaster with the crossfade settings as given. A failure
  // is logged and ends it.
  void buttonGroupGo(std::int32_t groupIndex, std::int16_t crossFade = 0, float overRideTime = 0,
                     bool manualCrossfade = false);
  // Shows the button, switches it over as the user (mouse button 1; PlayState_Null goes off), and moves the
  // highlight to the one after it. Answers whether there is such a button. Callbacks: RefreshPage, those of
  // PlayStateChanged.
  bool ToggleButtonAt(std::int32_t groupIndex, std::int32_t buttonIndex);

  // ---- Group layout and navigation (controllerLayout.cpp) ----

  // The number, from 0, of the run of buttons that the group shows. Quiet: 0.
  std::int32_t getPageOffset(std::int32_t groupIndex);
  // Steps the group one run, within 0 to 9 (any direction but PageDir_Prev is forward), and saves its section
  // in any case; answers whether it moved. The caller redraws. Quiet.
  bool changeButtonGroupPageOffset(std::int32_t groupIndex, PageDirEnum direction);
  // The buttons that the group's controls show now: groups 1 to 8 and 9 (indices 1 to 8) in a new list, group
  // 0's own list itself; none for other groups.
  Ref<clsObjectList> getVisibleGroupButtons(std::int32_t groupIndex);
  // The group's button before or after an index, wrapping; none in an empty group. A negative beforeIndex is
  // set to 999999 and answers the last button; a negative afterIndex answers the first. getNextButton is
  // quiet.
  Ref<clsButton> getPrevButton(std::int32_t groupIndex, std::int32_t& beforeIndex);
  Ref<clsButton> getNextButton(std::int32_t groupIndex, std::int32_t afterIndex);
  // The number of controls a group has, for all groups alike. Nothing is refused, laid out or saved.
  void setButtonGroupPageSize(std::int32_t pageSize);
  // Shows the run that holds the button index, not bounded to 9 and not saved; answers whether it was
  // another. On group 0 it shifts the top buttons, which hosts avoid. Callback:
  // RefreshPage(IFSSRefresh_Group).
  bool goToPageWithButtonIndex(std::int32_t groupIndex, std::int32_t buttonIndex);
  // Moves the group's highlight, wrapping at both ends; Highlight_NextAfter takes the button after
  // afterButton and, without one, only redraws. Callbacks: RefreshPage(IFSSRefresh_Control) for the button
  // left and the one reached, or, where goToHighlightPage brings another run into view,
  // RefreshPage(IFSSRefresh_Group). Quiet; a search forward that fails leaves no button highlighted.
  void highlightButton(std::int32_t groupIndex, HighlightDirEnum dir, bool goToHighlightPage = true,
                       clsButton* afterButton = nullptr);
  // None when no button is highlighted.
  Ref<clsButton> getHighlightedButton(std::int32_t groupIndex);
  // The group's button of that index, none when there is none or for a group outside 0 to 9. Quiet.
  Ref<clsButton> buttonWithIndex(std::int32_t groupIndex, std::int32_t buttonIndex);
  // The button that the control (from 1) shows now, or none.
  Ref<clsButton> buttonAtControlIndex(std::int32_t controlIndex);
  // Puts the list itself in the place of the group's, saves the group, and reads the whole page anew from its
  // file, so that its buttons are new ones that are off. Callbacks: those of RefocusCurrentPage. Raises 91
  // for no list, 13 for a list with something else than buttons.
  void setButtonGroupButtonList(std::int32_t groupIndex, clsObjectList* theButtonList);
  // A new list of the buttons of a group, or (below 0) of groups 0 to 9 in order, of one type or any
  // (ButtonType_None). Quiet.
  Ref<clsObjectList> getButtons(std::int32_t groupIndex = -1, ButtonTypeEnum buttonType = ButtonType_None);
  // Whether the button's index lies in the run that its group shows. Quiet: false.
  bool buttonIsVisible(clsButton* button);
  // Marks the buttons of a group, or (below 0) of all, as shown by no control. Quiet.
  void resetVisibility(std::int32_t groupIndex = -1);

  // ---- Assignment and editing (controllerEditing.cpp, controllerPlacing.cpp) ----
  //
  // Placing a button sorts it in by index; where the index is taken, in groups 1 to 8, that button and the
  // later ones move up by one (groups 0 and 9 get a second button of that index). Taking one out of groups 1
  // to 8 moves the later ones down by one. Both save the group and update its lamps; while a show loads, they
  // do not save. A button placed in group 9 gets bump mode and its fader at 0; one that leaves it loses bump
  // mode. Indices go from 1 to 32 in group 0 and to ten times the page size elsewhere. A move, a copy, a mark
  // or fade and the answer yes to an overwrite check their target before any further callback, so that a
  // refusal changes nothing; an assignment tells CompleteAssignment first. Whatever acts on the edit button
  // raises 91 when there is none.

  // Makes a button in a slot (from 1) of the run that the group shows. Raises BGCErr_GroupOutOfRange or
  // BGCErr_ButtonIndexOutOfRange. With no real page: a severe log line and a message box, and it goes on.
  void assignButton(std::int32_t groupIndex, std::int32_t buttonControlIndex, std::u16string_view name,
                    ButtonTypeEnum buttonType);
  // Takes the button out of its group on the page; where it is not there, only saves and updates lamps.
  void removeButton(clsButton* button);
  // Starts the assignment of a button: assign mode, SetFlashing(true), and the next click or
  // autoAssignNextAvailable places what is pending then, whatever CompleteAssignment starts.
  // assignmentCallbackObj (none: nobody is told) is kept for that. Where
  // the page has a button of that name already: PromptButtonOverwrite; on yes the callbacks of DeleteButton,
  // CompleteAssignment(true), SetFlashing(false) and RefreshPage, the new button standing where the old one
  // was; on no nothing.
  void setModeAssign(std::u16string_view buttonName, ButtonTypeEnum buttonType,
                     IAssignmentCallback* assignmentCallbackObj);
  // In assign mode: brings the group's first free index into view and places the pending button at that very
  // index, in group 0 as well, with the callbacks of a click in assign mode. In other modes nothing.
  void autoAssignNextAvailable(std::int32_t groupIndex);
  // Sets the edit mode to EditMode_EditEnabled or EditMode_None and nothing else.
  void setModeEditing(bool enabled);
  // Move or copy mode: the next click places the edit button. The source is the page that is current now or,
  // where that does not hold the button, the button's own page. Callbacks: SetFlashing(true); setModeMove
  // also switches the edit button off as the user (mouse button 1).
  void setModeMove();
  // Callback: DisableEditMode. The mode stays until the host answers with setModeEditing(false).
  void CancelEditMode();
  void setModeCopy();
  // Switches the edit button on if it is off, so that the operator sees what he adjusts (as automatic
  // release, mouse button 1, so that it is not recorded). Callbacks: those of PlayStateChanged,
  // DisableEditMode, SetFlashing(false). Answers the edit button; sets no mode.
  Ref<clsButton> setModeAdjFadeInOut();
  // The same, with DisableEditMode only in EditMode_EditEnabled.
  void beginEditCue();
  // Each of the following acts on the edit button, ends the edit mode and calls DisableEditMode last.
  // Switches it off (unsaved), calls the form's DeleteButton with noPrompt, takes it out of its group and
  // calls RefreshPage(IFSSRefresh_Group).
  void DeleteButton(bool noPrompt = false);
  // Makes a button named "<name> Mark" just before the edit button, or "<name> Fade" just after it, of its
  // type. Callbacks: CreateMarkFadeButton, RefreshPage(IFSSRefresh_Group).
  void AssignMarkFade(MarkFadeTypeEnum mfType);
  // Switches it off, asks the form's RenameButton for a name, and unless that is empty takes it, saves the
  // group and calls RefreshPage(IFSSRefresh_Control); then switches it on again if it was on.
  void RenameButton();
  // Neither saves. The lock and the fader mode are reported by LockStateChanged and FaderModeChanged.
  void ToggleBumpMode();
  void ToggleLockState();
  void ChangeFaderMode(FaderModeEnum newMode);

  // ---- Faders (controllerFaders.cpp) ----

  // The physical fader of group 1 to 8 moved. Where the group's fader follows: saves the group's section,
  // callback UpdateFaderModelValue; raised from 0 with nothing of the group playing, it fires the highlighted
  // button as buttonGroupGo does. Quiet.
  void groupFaderChanged(std::int32_t groupIndex, std::int32_t newValue);
  // The physical bump fader 1 to 8 moved: moves the fader of that button of group 9, if there is one, through
  // its pick-up (clsButton::SetFaderValue, whose callbacks come first); where it follows,
  // UpdateFaderModelValue. Saves nothing of its own.
  void BumpFaderChanged(std::int32_t index, std::int32_t value, bool updateUI);
  // Passed on to the form as they are.
  void GetUIFaderValues(TUIFaderValues& values) override;
  void UpdateFaderModelValue(IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value, bool caught,
                             clsButton* button = nullptr) override;
  // Callback: UpdateFaderUI for groups 1 to 8 with the page's values.
  void PushCurrentGroupFaderValues();

  // ---- What buttons and lists report (controllerPlayState.cpp) ----

  // A button changed its play state. In this order: saves it into the current page unless suppressSave; sets
  // its dimmer value; ButtonStateChanged; lists anew what plays in the group (1 to 8) of the page, and of the
  // button's own page where that is another; HighlightBump (group 9);
  // RefreshPage(IFSSRefresh_Control) when it is off; lamps; the record controller. A failure is logged with
  // the step it happened in (0 to 6) and ends it.
  void PlayStateChanged(clsButton* button, PSEventSourceEnum eventSource, std::int16_t mouseButton,
                        std::int16_t shift, float x, float y, bool suppressSave = false) override;
  // Callbacks of the same names.
  void LockStateChanged(clsButton* button) override;
  void FaderModeChanged(clsButton* button) override;
  // For a button of group 9: UpdateFaderUI when updateUI, then UpdateFaderModelValue. Others are logged.
  void FaderValueChanged(clsButton* button, bool updateUI) override;
  // Remembers what a loaded button does not apply, for the life of the controller; nothing reads it back.
  void DeferPlaystateFor(clsPage* page, clsButton* button, PlayStateEnum playState,
                         std::int32_t faderValue) override;
  // The first button of a group 1 to 8 becomes its highlighted one; when that leaves, the highlight goes to
  // the next later one, or to none. Groups 0 and 9 hand no highlight on: one whose highlighted button leaves
  // has none. What plays in a group 1 to 8 is listed anew where a playing button comes, leaves or is placed.
  // userData is the clsButtonGroup.
  void ItemAdded(clsObjectList* list, Object* item, std::int32_t atIndex, Object* userData) override;
  void ItemRemoved(clsObjectList* list, Object* item, std::int32_t fromIndex, Object* userData) override;

  // ---- Additions ----

  // The page manager of the show that is set up, to list and search pages that are not current; none before
  // Init.
  Ref<clsPageManager> PageManager() const noexcept { return pageManager_; }
  // What the next click on a control will do, for a host that shows it.
  EditModeEnum EditMode() const noexcept { return editMode_; }

 protected:
  ~clsButtonGroupController() override;

 private:
  // A control as the model sees it.
  struct ControlTarget {
    std::int32_t groupIndex;
    std::int32_t slot;
    std::int32_t buttonIndex;
  };
  // A change of a play state as the button reported it.
  struct PlayStateChange {
    PSEventSourceEnum eventSource;
    std::int16_t mouseButton;
    std::int16_t shift;
    float x;
    float y;
    bool suppressSave;
  };
  // What waits to be placed by the next click in assign mode.
  struct PendingAssignment {
    std::u16string name;
    ButtonTypeEnum buttonType = ButtonType_None;
    Ref<IAssignmentCallback> callback;
  };

  // Where a pending button goes: a slot of the visible run, or a button index.
  enum class Numbering : std::uint8_t { Slot, ButtonIndex };
  struct Place {
    std::int32_t groupIndex;
    std::int32_t number;
    Numbering numbering;
  };

  // Each raises 91 where there is none. What they answer is kept alive while host code runs.
  Ref<IFormSequenceShortcuts> Form() const;
  Ref<LEDManager> Lamps() const;
  Ref<clsPageManager> Manager() const;
  Ref<clsPage> CurrentPage() const;
  Ref<clsButtonGroup> Group(std::int32_t groupIndex) const;
  Ref<clsButton> EditButton() const;

  // controllerShows.cpp
  Ref<clsPageManager> InitShow();
  void RefreshAllLEDs();
  void RefreshGroupLamps(std::int32_t groupIndex, std::int32_t buttonIndex);
  void SelectPage(std::u16string_view command, std::u16string_view pageName, bool create);
  bool ClearPage(const Ref<clsPageManager>& manager, std::u16string_view pageName);

  // controllerInput.cpp
  void ClickButton(const ControlTarget& target, const PlayStateChange& click, bool returnButton,
                   Ref<clsButton>* buttonVar);
  void PickEditButton(const ControlTarget& target);
  void EndPlacingMode();
  void ReleaseButtons(std::int32_t groupIndex, ButtonTypeEnum onlyType, Ref<clsButton>* excludeButton);
  void FireHighlighted(std::int32_t groupIndex, std::int16_t crossFade, float overRideTime,
                       bool manualCrossfade);

  // controllerPlayState.cpp
  void HandlePlayStateChange(clsButton& button, const PlayStateChange& change, std::int32_t& location);
  void SetTriggeredDimmerValue(clsButton& button) const;
  void ListPlaying(const clsButton& button) const;

  // controllerLayout.cpp
  std::int32_t ButtonIndexFromSlot(std::int32_t groupIndex, std::int32_t slot) const;
  ControlTarget TargetOf(std::int32_t controlIndex) const;
  bool ShowRunOf(const Ref<clsButtonGroup>& group, std::int32_t buttonIndex);
  void MoveHighlight(const Ref<clsButtonGroup>& group, HighlightDirEnum dir, bool goToHighlightPage,
                     clsButton* afterButton);

  // controllerPlacing.cpp
  static void ValidateGroup(std::int32_t groupIndex, std::u16string_view context);
  void ValidateButtonIndex(std::int32_t groupIndex, std::int32_t buttonIndex,
                           std::u16string_view context) const;
  void ValidateForAssigning(std::int32_t groupIndex, std::int32_t buttonIndex) const;
  void ValidateForPlacing(std::int32_t groupIndex, std::int32_t buttonIndex) const;
  void AssignButtonAt(std::int32_t groupIndex, std::int32_t buttonIndex, std::u16string_view name,
                      ButtonTypeEnum buttonType);
  void AssignButtonInternal(const Ref<clsPage>& page, const Ref<clsButton>& button, std::int32_t groupIndex,
                            std::int32_t buttonIndex);
  void InsertIntoGroup(const Ref<clsPage>& page, const Ref<clsButton>& button);
  void TakeOutOfGroup(const Ref<clsPage>& page, const Ref<clsButton>& button);
  void LeavePage(const Ref<clsPage>& page, const Ref<clsButton>& button);
  static void ShiftButtons(ShiftModeEnum mode, std::int32_t groupIndex, std::int32_t fromListIndex,
                           const clsPage& page);
  void SaveGroup(const Ref<clsPage>& page, std::int32_t groupIndex) const;
  void MoveButtonTo(std::int32_t groupIndex, std::int32_t buttonIndex);
  void CopyButtonTo(std::int32_t groupIndex, std::int32_t buttonIndex);
  void CopyFiles(const clsButton& button, const clsPage& source, const std::u16string& newName,
                 const clsPage& target, bool deleteSource);
  Ref<clsPage> PageHolding(clsButton& button) const;
  Ref<clsPage> SourceOf(clsButton& button) const;

  // controllerEditing.cpp
  void AnnounceInvalidPage(std::u16string_view name) const;
  void OverwriteButton(const Ref<clsButton>& existing, const PendingAssignment& pending);
  void PlacePendingButton(const Place& place, bool forceOverwrite);
  void StartPlacing(EditModeEnum mode);
  void SwitchOnForEditing(clsButton& button) const;
  void EndEditMode();

  // controllerFaders.cpp
  void MoveGroupFader(std::int32_t groupIndex, std::int32_t newValue);

  Ref<IFormSequenceShortcuts> form_;
  Ref<IRecordController> recordController_;
  Ref<clsPageManager> pageManager_;
  Ref<clsObjectList> deferredList_;
  Ref<clsButton> editButton_;
  Ref<clsPage> sourcePage_;
  PendingAssignment pending_;
  std::u16string appPath_;
  std::int32_t buttonsPerGroup_ = -1;
  EditModeEnum editMode_ = EditMode_None;
  std::int32_t level_ = 0;
  bool persist_ = false;
  bool ready_ = false;
  // Last, so that it is gone first: what the other members release finds no controller any more.
  WeakSource weakSource_;
};

}  // namespace vestrel
