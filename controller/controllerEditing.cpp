// The controller's editing room: the edit modes and what they do to the edit button.
//
//   from any mode                        the mode becomes         the form is told
//   setModeEditing(true / false)         EditEnabled / None       -
//   setModeAssign, name not on the page  Assign                   SetFlashing(true)
//   setModeMove, setModeCopy             Move, Copy               SetFlashing(true)
//   an edit of the edit button           None                     DisableEditMode
//   a click in Move or Copy              None                     DisableEditMode, SetFlashing(false)
//   a click in Assign                    stays                    SetFlashing(false)
#include <utility>

#include "controller/ControlIndex.h"
#include "controller/GroupButtons.h"
#include "controller/clsButtonGroupController.h"
#include "core/Cast.h"
#include "core/Checked.h"
#include "util/modLog.h"
#include "util/modSprintf.h"
#include "util/modUtils.h"

namespace vestrel {
namespace {

constexpr std::int16_t kLeftButton = 1;

void Switch(clsButton& button, PlayStateEnum state, bool suppressSave = false) {
  button.setPlayState(state, PSEventSource_User, kLeftButton, 0, 0, 0, false, suppressSave);
}

}  // namespace

void clsButtonGroupController::AnnounceInvalidPage(std::u16string_view name) const {
  if (Manager()->PageIsValid()) return;
  modLog::LogFormat(LogLevel_1_SEVERE,
                    u"BGC.assignButton(): Attempted to assign button [%s] to invalid/null page", name);
  modUtils::ShowErrorBox(modSprintf::Format(
      u"Error in BGC.assignButton(): page is invalid.\\n\\nPlease try creating a new show, "
      u"or report this error to Talvo Systems Inc."));
}

void clsButtonGroupController::setModeAssign(std::u16string_view buttonName, ButtonTypeEnum buttonType,
                                             IAssignmentCallback* assignmentCallbackObj) {
  const Ref<clsButtonGroupController> alive(this);
  PendingAssignment pending{std::u16string(buttonName), buttonType, assignmentCallbackObj};
  const Ref<clsObjectList> buttons = getButtons();
  const std::int32_t position = buttons->FindFieldValue(u"name", buttonName);
  if (position >= 0) return OverwriteButton(ButtonAt(*buttons, position), pending);
  const Ref<IFormSequenceShortcuts> form = Form();
  editMode_ = EditMode_Assign;
  const PendingAssignment former = std::exchange(pending_, std::move(pending));
  form->SetFlashing(true);
}

void clsButtonGroupController::OverwriteButton(const Ref<clsButton>& existing,
                                               const PendingAssignment& pending) {
  const std::u16string question =
      modSprintf::Format(u"Do you want to overwrite the existing [%s] button?", pending.name);
  if (!Form()->PromptButtonOverwrite(question)) {
    modLog::Log(u"cancelling button assignment -- no overwrite wanted");
    return;
  }
  const std::int32_t groupIndex = existing->groupIndex;
  const std::int32_t buttonIndex = existing->buttonIndex;
  // Before the old button is gone.
  ValidateForAssigning(groupIndex, buttonIndex);
  // What was there goes last: its end may edit something else.
  const Ref<clsButton> formerButton = std::exchange(editButton_, existing);
  DeleteButton(true);
  const PendingAssignment formerAssignment = std::exchange(pending_, pending);
  PlacePendingButton({groupIndex, buttonIndex, Numbering::ButtonIndex}, true);
  modLog::LogFormat(LogLevel_3_INFO, u"overwrote existing button: %s", pending.name);
  Form()->RefreshPage(IFSSRefresh_EntirePage);
}

void clsButtonGroupController::PlacePendingButton(const Place& place, bool forceOverwrite) {
  // What is placed is what was pending now, whatever the callback starts.
  const PendingAssignment pending = pending_;
  if (pending.callback) pending.callback->CompleteAssignment(forceOverwrite);
  if (place.numbering == Numbering::Slot) {
    assignButton(place.groupIndex, place.number, pending.name, pending.buttonType);
  } else {
    AnnounceInvalidPage(pending.name);
    AssignButtonAt(place.groupIndex, place.number, pending.name, pending.buttonType);
  }
  Form()->SetFlashing(false);
  Form()->RefreshPage(IFSSRefresh_Group, place.groupIndex, nullptr);
}

void clsButtonGroupController::autoAssignNextAvailable(std::int32_t groupIndex) {
  const Ref<clsButtonGroupController> alive(this);
  if (editMode_ != EditMode_Assign) return;
  const std::int32_t buttonIndex = NextFreeButtonIndex(*ButtonsOf(*Group(groupIndex)));
  goToPageWithButtonIndex(groupIndex, buttonIndex);
  PlacePendingButton({groupIndex, buttonIndex, Numbering::ButtonIndex}, false);
}

void clsButtonGroupController::setModeEditing(bool enabled) {
  editMode_ = enabled ? EditMode_EditEnabled : EditMode_None;
}

void clsButtonGroupController::StartPlacing(EditModeEnum mode) {
  const Ref<clsPage> page = CurrentPage();
  const Ref<IFormSequenceShortcuts> form = Form();
  editMode_ = mode;
  const Ref<clsPage> former = std::exchange(sourcePage_, page);
  form->SetFlashing(true);
}

void clsButtonGroupController::setModeMove() {
  const Ref<clsButtonGroupController> alive(this);
  StartPlacing(EditMode_Move);
  const Ref<clsButton> button = EditButton();
  Switch(*button, PlayState_Off);
  modLog::LogFormat(LogLevel_3_INFO, u"turned button [%s] off prior to move", button->name);
}

void clsButtonGroupController::setModeCopy() {
  const Ref<clsButtonGroupController> alive(this);
  StartPlacing(EditMode_Copy);
}

void clsButtonGroupController::CancelEditMode() {
  Form()->DisableEditMode();
}

void clsButtonGroupController::EndEditMode() {
  editMode_ = EditMode_None;
  Form()->DisableEditMode();
}

// Not as the user, so that it is not recorded.
void clsButtonGroupController::SwitchOnForEditing(clsButton& button) const {
  if (button.playState() != PlayState_Off) return;
  button.setPlayState(PlayState_On, PSEventSource_AutoRelease, kLeftButton, 0, 0, 0);
}

Ref<clsButton> clsButtonGroupController::setModeAdjFadeInOut() {
  const Ref<clsButtonGroupController> alive(this);
  Ref<clsButton> button = EditButton();
  SwitchOnForEditing(*button);
  Form()->DisableEditMode();
  Form()->SetFlashing(false);
  return button;
}

void clsButtonGroupController::beginEditCue() {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> button = EditButton();
  SwitchOnForEditing(*button);
  if (editMode_ == EditMode_EditEnabled) Form()->DisableEditMode();
}

void clsButtonGroupController::DeleteButton(bool noPrompt) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> button = EditButton();
  Switch(*button, PlayState_Off, true);
  Form()->DeleteButton(button.get(), noPrompt);
  removeButton(button.get());
  Form()->RefreshPage(IFSSRefresh_Group, button->groupIndex, nullptr);
  EndEditMode();
}

void clsButtonGroupController::AssignMarkFade(MarkFadeTypeEnum mfType) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> source = EditButton();
  const Ref<clsPage> page = CurrentPage();
  const bool mark = mfType == MarkFadeType_Mark;
  const std::u16string originalName = source->name;
  const std::int32_t groupIndex = source->groupIndex;
  const std::int32_t buttonIndex = mark ? source->buttonIndex : AddChecked(source->buttonIndex, 1);
  // Before the host makes files for it.
  ValidateForPlacing(groupIndex, buttonIndex);
  const Ref<clsButton> added = MakeRef<clsButton>();
  added->InitWithValues(page.get(), groupIndex, buttonIndex,
                        modSprintf::Format(mark ? u"%s Mark" : u"%s Fade", originalName), source->buttonType,
                        this);
  Form()->CreateMarkFadeButton(added.get(), originalName, mfType);
  AssignButtonInternal(page, added, groupIndex, buttonIndex);
  Form()->RefreshPage(IFSSRefresh_Group, groupIndex, nullptr);
  EndEditMode();
}

void clsButtonGroupController::RenameButton() {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> button = EditButton();
  const Ref<clsPage> page = CurrentPage();
  const bool wasOn = button->playState() == PlayState_On;
  Switch(*button, PlayState_Off);
  const std::int32_t control =
      modControlIndex::controlIndexFromButtonIndex(buttonsPerGroup_, button->groupIndex, button->buttonIndex);
  const std::u16string newName = Form()->RenameButton(button.get(), control);
  if (!newName.empty()) {
    button->name = newName;
    CurrentPage()->saveToINI(button->groupIndex, true);
    Form()->RefreshPage(IFSSRefresh_Control, button->groupIndex, button.get());
  }
  // Unsaved where a callback showed another page, in whose file the button has no place.
  if (wasOn) Switch(*button, PlayState_On, CurrentPage() != page);
  EndEditMode();
}

void clsButtonGroupController::ToggleBumpMode() {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> button = EditButton();
  button->SetBumpMode(button->BumpMode() == BumpMode_Off ? BumpMode_On : BumpMode_Off);
  EndEditMode();
}

void clsButtonGroupController::ToggleLockState() {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> button = EditButton();
  button->SetLocked(!button->Locked());
  EndEditMode();
}

void clsButtonGroupController::ChangeFaderMode(FaderModeEnum newMode) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> button = EditButton();
  button->SetFaderMode(newMode);
  EndEditMode();
}

}  // namespace vestrel
