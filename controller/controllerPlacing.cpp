// The controller's placing room: validation, putting buttons into groups and taking them out, move and copy.
#include <vector>

#include "controller/ControlIndex.h"
#include "controller/GroupButtons.h"
#include "controller/clsButtonGroupController.h"
#include "core/Cast.h"
#include "core/Checked.h"
#include "core/Convert.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kAssignContext = u"clsButtonGroupController.assignButton()";
constexpr std::u16string_view kInternalContext = u"clsButtonGroupController.assignButtonInternal";

[[noreturn]] void Refuse(BGCErrors number, std::int32_t value, std::u16string_view what,
                         std::u16string_view context) {
  std::u16string description = LongToText(value);
  description.append(what).append(context);
  throw Error(number, u"clsButtonGroupController", description);
}

// What the groups ask of a button that is placed: those of the bump group follow their bump faders.
void PrepareForGroup(clsButton& button, std::int32_t formerGroup, std::int32_t groupIndex) {
  if (groupIndex == kBumpGroup) {
    button.SetBumpMode(BumpMode_On);
    Cast<clsFaderCatch>(button.Fader().get()).SetValue(0, true);
  } else if (formerGroup == kBumpGroup) {
    button.SetBumpMode(BumpMode_Off);
  }
}

// Undoes an insertion that broke off: out of place the button would be found by no search, and the next save
// would keep the gap that was made for it. `shiftedFrom` is where the others were moved up, none below 0.
void TakeOutAgain(clsObjectList& buttons, clsButton& button, std::int32_t shiftedFrom) {
  try {
    const std::int32_t position = buttons.FindObject(&button);
    if (position >= 0) buttons.Remove(position);
  } catch (...) {
    // It has left the list before its leaving is told.
  }
  if (shiftedFrom >= 0 && IsScreenGroup(button.groupIndex)) {
    RenumberFrom(buttons, shiftedFrom, ShiftMode_Delete);
  }
}

bool Holds(const Ref<clsPage>& page, clsButton& button) {
  if (!page || button.groupIndex < kFirstGroup || button.groupIndex > kLastGroup) return false;
  const Ref<clsButtonGroup> group = page->ButtonGroups(button.groupIndex);
  return group && group->buttons && group->buttons->FindObject(&button) >= 0;
}

}  // namespace

void clsButtonGroupController::ValidateGroup(std::int32_t groupIndex, std::u16string_view context) {
  if (groupIndex >= kFirstGroup && groupIndex <= kLastGroup) return;
  Refuse(BGCErr_GroupOutOfRange, groupIndex, u" - invalid group: ", context);
}

void clsButtonGroupController::ValidateButtonIndex(std::int32_t groupIndex, std::int32_t buttonIndex,
                                                   std::u16string_view context) const {
  ValidateGroup(groupIndex, context);
  const std::int32_t last = groupIndex == kTopGroup ? modControlIndex::kTopButtons
                                                    : MultiplyChecked(buttonsPerGroup_, kRunsPerGroup);
  if (buttonIndex >= 1 && buttonIndex <= last) return;
  Refuse(BGCErr_ButtonIndexOutOfRange, buttonIndex, u" - invalid buttonIndex: ", context);
}

void clsButtonGroupController::ValidateForAssigning(std::int32_t groupIndex, std::int32_t buttonIndex) const {
  ValidateButtonIndex(groupIndex, buttonIndex, kAssignContext);
}

void clsButtonGroupController::ValidateForPlacing(std::int32_t groupIndex, std::int32_t buttonIndex) const {
  ValidateButtonIndex(groupIndex, buttonIndex, kInternalContext);
}

void clsButtonGroupController::assignButton(std::int32_t groupIndex, std::int32_t buttonControlIndex,
                                            std::u16string_view name, ButtonTypeEnum buttonType) {
  const Ref<clsButtonGroupController> alive(this);
  const std::u16string given(name);
  AnnounceInvalidPage(given);
  ValidateGroup(groupIndex, kAssignContext);
  AssignButtonAt(groupIndex, ButtonIndexFromSlot(groupIndex, buttonControlIndex), given, buttonType);
}

void clsButtonGroupController::AssignButtonAt(std::int32_t groupIndex, std::int32_t buttonIndex,
                                              std::u16string_view name, ButtonTypeEnum buttonType) {
  ValidateForAssigning(groupIndex, buttonIndex);
  const Ref<clsPage> page = CurrentPage();
  const Ref<clsButton> button = MakeRef<clsButton>();
  button->InitWithValues(page.get(), groupIndex, buttonIndex, name, buttonType, this);
  AssignButtonInternal(page, button, groupIndex, buttonIndex);
}

void clsButtonGroupController::AssignButtonInternal(const Ref<clsPage>& page, const Ref<clsButton>& button,
                                                    std::int32_t groupIndex, std::int32_t buttonIndex) {
  ValidateForPlacing(groupIndex, buttonIndex);
  // A callback may have placed the button meanwhile; it stands in one place only.
  if (const Ref<clsPage> holder = PageHolding(*button)) TakeOutOfGroup(holder, button);
  // The list that it was the highlight of may have been replaced since.
  button->isHighlighted = false;
  const std::int32_t formerGroup = button->groupIndex;
  button->groupIndex = groupIndex;
  button->buttonIndex = buttonIndex;
  button->BelongTo(page.get());
  PrepareForGroup(*button, formerGroup, groupIndex);
  InsertIntoGroup(page, button);
  SaveGroup(page, groupIndex);
  RefreshGroupLamps(groupIndex, buttonIndex);
}

void clsButtonGroupController::InsertIntoGroup(const Ref<clsPage>& page, const Ref<clsButton>& button) {
  const Ref<clsButtonGroup> group = GroupOf(*page, button->groupIndex);
  const Ref<clsObjectList> buttons = ButtonsOf(*group);
  const std::int32_t taken = PositionOfIndex(*buttons, button->buttonIndex);
  if (taken >= 0) ShiftButtons(ShiftMode_Insert, button->groupIndex, taken, *page);
  // Goes when the group is in order again: the end of what the new button displaces may call back.
  const std::vector<Ref<Object>> held = buttons->Held();
  try {
    buttons->AddItem(button.get());
    buttons->SortInPlace(nullptr, false, u"buttonIndex");
  } catch (...) {
    TakeOutAgain(*buttons, *button, taken);
    throw;
  }
  if (IsScreenGroup(group->groupIndex())) RebuildNowPlaying(*group);
}

void clsButtonGroupController::TakeOutOfGroup(const Ref<clsPage>& page, const Ref<clsButton>& button) {
  const Ref<clsObjectList> buttons = ButtonsOf(*GroupOf(*page, button->groupIndex));
  const std::int32_t position = buttons->FindObject(button.get());
  if (position < 0) return;
  buttons->Remove(position);
  ShiftButtons(ShiftMode_Delete, button->groupIndex, position, *page);
}

void clsButtonGroupController::ShiftButtons(ShiftModeEnum mode, std::int32_t groupIndex,
                                            std::int32_t fromListIndex, const clsPage& page) {
  if (!IsScreenGroup(groupIndex)) {
    modLog::Log(u"BGC.ShiftButtons(): attempted to shift a group outside of 1-8");
    return;
  }
  RenumberFrom(*ButtonsOf(*GroupOf(page, groupIndex)), fromListIndex, mode);
}

void clsButtonGroupController::SaveGroup(const Ref<clsPage>& page, std::int32_t groupIndex) const {
  if (!Manager()->IsLoading()) page->saveToINI(groupIndex, true);
}

void clsButtonGroupController::removeButton(clsButton* button) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> removed(&Cast<clsButton>(button));
  LeavePage(CurrentPage(), removed);
}

void clsButtonGroupController::LeavePage(const Ref<clsPage>& page, const Ref<clsButton>& button) {
  const std::int32_t groupIndex = button->groupIndex;
  const std::int32_t buttonIndex = button->buttonIndex;
  TakeOutOfGroup(page, button);
  SaveGroup(page, groupIndex);
  RefreshGroupLamps(groupIndex, buttonIndex);
}

// Looks on the page that was current when a move or copy began, then on the button's own.
Ref<clsPage> clsButtonGroupController::PageHolding(clsButton& button) const {
  if (Holds(sourcePage_, button)) return sourcePage_;
  const Ref<clsPage> own = button.Page();
  return Holds(own, button) ? own : nullptr;
}

Ref<clsPage> clsButtonGroupController::SourceOf(clsButton& button) const {
  Ref<clsPage> holder = PageHolding(button);
  if (holder) return holder;
  return sourcePage_ ? sourcePage_ : CurrentPage();
}

// Checked before anything changes, so that a target that takes no button does not lose the one moved.
void clsButtonGroupController::MoveButtonTo(std::int32_t groupIndex, std::int32_t buttonIndex) {
  const Ref<clsButton> button = EditButton();
  const Ref<clsPage> source = SourceOf(*button);
  const Ref<clsPage> target = CurrentPage();
  if (source == target && button->groupIndex == groupIndex && button->buttonIndex == buttonIndex) return;
  ValidateForPlacing(groupIndex, buttonIndex);
  LeavePage(source, button);
  if (!(source == target)) CopyFiles(*button, *source, button->name, *target, true);
  AssignButtonInternal(target, button, groupIndex, buttonIndex);
  Form()->RefreshPage(IFSSRefresh_Group, groupIndex, nullptr);
}

void clsButtonGroupController::CopyButtonTo(std::int32_t groupIndex, std::int32_t buttonIndex) {
  const Ref<clsButton> button = EditButton();
  const Ref<clsPage> source = SourceOf(*button);
  const Ref<clsPage> target = CurrentPage();
  ValidateForPlacing(groupIndex, buttonIndex);
  std::u16string newName = button->name + u" copy";
  const Ref<clsButton> copy = button->Copy(&newName);
  CopyFiles(*button, *source, newName, *target, false);
  AssignButtonInternal(target, copy, groupIndex, buttonIndex);
  Form()->RefreshPage(IFSSRefresh_Group, groupIndex, nullptr);
}

// Names are taken by value: the host may rename while it copies.
void clsButtonGroupController::CopyFiles(const clsButton& button, const clsPage& source,
                                         const std::u16string& newName, const clsPage& target,
                                         bool deleteSource) {
  const std::u16string sourcePage{std::u16string_view(source.pageName())};
  const std::u16string sourceName{std::u16string_view(button.name)};
  const std::u16string targetPage{std::u16string_view(target.pageName())};
  const std::u16string targetName{std::u16string_view(newName)};
  Form()->CopyButtonFiles(button.buttonType, sourcePage, sourceName, targetPage, targetName, deleteSource);
}

}  // namespace vestrel
