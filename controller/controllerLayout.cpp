// The controller's layout room: which button a control shows, paging of groups, the highlight. The arithmetic
// itself is modControlIndex and GroupButtons.
#include <utility>

#include "controller/ControlIndex.h"
#include "controller/GroupButtons.h"
#include "controller/Trap.h"
#include "controller/clsButtonGroupController.h"
#include "core/Cast.h"
#include "core/Checked.h"
#include "model/clsButtonPredicate.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

constexpr std::int32_t kLastPageOffset = kRunsPerGroup - 1;
constexpr std::int32_t kBumpFaders = 8;
// Above every button index.
constexpr std::int32_t kAboveAll = 999999;
constexpr std::int32_t kBelowAll = -1;

struct IndexRange {
  std::int32_t first;
  std::int32_t last;
};

IndexRange VisibleRange(std::int32_t pageOffset, std::int32_t buttonsPerGroup) {
  const std::int32_t first = AddChecked(MultiplyChecked(pageOffset, buttonsPerGroup), 1);
  return {first, SubtractChecked(AddChecked(first, buttonsPerGroup), 1)};
}

void CheckAllButtons(const clsObjectList& list) {
  for (Object* item : list.Snapshot()) Cast<clsButton>(item);
}

void Unhighlight(const Ref<clsButton>& button) {
  if (button) button->isHighlighted = false;
}

// A search that fails finds none.
Ref<clsButton> NextOf(const clsButtonGroup& group, std::int32_t afterIndex) {
  Ref<clsButton> result;
  Quietly([&] { result = ButtonAfter(*ButtonsOf(group), afterIndex); });
  return result;
}

// The button that takes over the highlight; for a direction that names none, the one that has it.
Ref<clsButton> NextHighlight(const clsButtonGroup& group, HighlightDirEnum dir, clsButton* afterButton) {
  Ref<clsButton> current = group.highlightedButton;
  switch (dir) {
    case Highlight_First:
      return NextOf(group, kBelowAll);
    case Highlight_Prev:
      return ButtonBefore(*ButtonsOf(group), current ? current->buttonIndex : kAboveAll);
    case Highlight_Next:
      return NextOf(group, current ? current->buttonIndex : kBelowAll);
    case Highlight_NextAfter:
      return afterButton == nullptr ? current : NextOf(group, afterButton->buttonIndex);
  }
  return current;
}

}  // namespace

std::int32_t clsButtonGroupController::ButtonIndexFromSlot(std::int32_t groupIndex, std::int32_t slot) const {
  return AddChecked(MultiplyChecked(buttonsPerGroup_, Group(groupIndex)->pageOffset), slot);
}

clsButtonGroupController::ControlTarget clsButtonGroupController::TargetOf(std::int32_t controlIndex) const {
  const std::int32_t group = modControlIndex::returnGroupFromPosition(buttonsPerGroup_, controlIndex);
  const std::int32_t slot = modControlIndex::globalToLocalControlIndex(buttonsPerGroup_, controlIndex);
  return {group, slot, ButtonIndexFromSlot(group, slot)};
}

std::int32_t clsButtonGroupController::getPageOffset(std::int32_t groupIndex) {
  std::int32_t result = 0;
  Quietly([&] { result = Group(groupIndex)->pageOffset; });
  return result;
}

bool clsButtonGroupController::changeButtonGroupPageOffset(std::int32_t groupIndex, PageDirEnum direction) {
  const Ref<clsButtonGroupController> alive(this);
  bool moved = false;
  Quietly([&] {
    const Ref<clsPage> page = CurrentPage();
    const Ref<clsButtonGroup> group = GroupOf(*page, groupIndex);
    const std::int32_t offset = group->pageOffset;
    moved = direction == PageDir_Prev ? offset > 0 : offset < kLastPageOffset;
    if (moved) group->pageOffset = direction == PageDir_Prev ? offset - 1 : offset + 1;
    page->saveToINI(groupIndex, false);
  });
  return moved;
}

Ref<clsObjectList> clsButtonGroupController::getVisibleGroupButtons(std::int32_t groupIndex) {
  if (groupIndex < kFirstGroup || groupIndex > kLastGroup) return nullptr;
  const Ref<clsButtonGroup> group = Group(groupIndex);
  Ref<clsObjectList> buttons = ButtonsOf(*group);
  if (groupIndex == kTopGroup) return buttons;
  if (groupIndex == kBumpGroup) return ButtonsBetween(*buttons, 1, kBumpFaders);
  const IndexRange range = VisibleRange(group->pageOffset, buttonsPerGroup_);
  return ButtonsBetween(*buttons, range.first, range.last);
}

Ref<clsButton> clsButtonGroupController::getPrevButton(std::int32_t groupIndex, std::int32_t& beforeIndex) {
  const Ref<clsObjectList> buttons = ButtonsOf(*Group(groupIndex));
  if (buttons->Size() <= 0) return nullptr;
  if (buttons->Size() == 1) return ButtonAt(*buttons, 0);
  if (beforeIndex < 0) beforeIndex = kAboveAll;
  return ButtonBefore(*buttons, beforeIndex);
}

Ref<clsButton> clsButtonGroupController::getNextButton(std::int32_t groupIndex, std::int32_t afterIndex) {
  Ref<clsButton> result;
  Quietly([&] { result = NextOf(*Group(groupIndex), afterIndex); });
  return result;
}

void clsButtonGroupController::setButtonGroupPageSize(std::int32_t pageSize) {
  modLog::LogFormat(LogLevel_3_INFO, u"BGC setButtonGroupPageSize: %d", pageSize);
  buttonsPerGroup_ = pageSize;
}

bool clsButtonGroupController::goToPageWithButtonIndex(std::int32_t groupIndex, std::int32_t buttonIndex) {
  const Ref<clsButtonGroupController> alive(this);
  return ShowRunOf(Group(groupIndex), buttonIndex);
}

bool clsButtonGroupController::ShowRunOf(const Ref<clsButtonGroup>& group, std::int32_t buttonIndex) {
  const std::int32_t run = DivideChecked(SubtractChecked(buttonIndex, 1), buttonsPerGroup_);
  if (group->pageOffset == run) return false;
  group->pageOffset = run;
  Form()->RefreshPage(IFSSRefresh_Group, group->groupIndex(), nullptr);
  return true;
}

void clsButtonGroupController::highlightButton(std::int32_t groupIndex, HighlightDirEnum dir,
                                               bool goToHighlightPage, clsButton* afterButton) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> after(afterButton);
  Quietly([&] { MoveHighlight(Group(groupIndex), dir, goToHighlightPage, afterButton); });
}

void clsButtonGroupController::MoveHighlight(const Ref<clsButtonGroup>& group, HighlightDirEnum dir,
                                             bool goToHighlightPage, clsButton* afterButton) {
  const Ref<clsButton> left = group->highlightedButton;
  Unhighlight(left);
  if (left) Form()->RefreshPage(IFSSRefresh_Control, 0, left.get());
  // The form may have moved the highlight meanwhile.
  Ref<clsButton> reached;
  try {
    reached = NextHighlight(*group, dir, afterButton);
  } catch (...) {
    // The search found nothing out, so the highlight stays where it is.
    if (const Ref<clsButton> kept = group->highlightedButton) kept->isHighlighted = true;
    throw;
  }
  Unhighlight(group->highlightedButton);
  const Ref<clsButton> former = std::exchange(group->highlightedButton, reached);
  if (!reached) return;
  reached->isHighlighted = true;
  if (goToHighlightPage && ShowRunOf(group, reached->buttonIndex)) return;
  Form()->RefreshPage(IFSSRefresh_Control, 0, reached.get());
}

Ref<clsButton> clsButtonGroupController::getHighlightedButton(std::int32_t groupIndex) {
  return Group(groupIndex)->highlightedButton;
}

Ref<clsButton> clsButtonGroupController::buttonWithIndex(std::int32_t groupIndex, std::int32_t buttonIndex) {
  Ref<clsButton> result;
  if (groupIndex < kFirstGroup || groupIndex > kLastGroup) return nullptr;
  Quietly([&] {
    const Ref<clsObjectList> buttons = ButtonsOf(*Group(groupIndex));
    const std::int32_t position = PositionOfIndex(*buttons, buttonIndex);
    if (position >= 0) result = ButtonAt(*buttons, position);
  });
  return result;
}

Ref<clsButton> clsButtonGroupController::buttonAtControlIndex(std::int32_t controlIndex) {
  const ControlTarget target = TargetOf(controlIndex);
  return buttonWithIndex(target.groupIndex, target.buttonIndex);
}

void clsButtonGroupController::setButtonGroupButtonList(std::int32_t groupIndex,
                                                        clsObjectList* theButtonList) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsObjectList> list(theButtonList);
  CheckAllButtons(Cast<clsObjectList>(theButtonList));
  const Ref<clsPage> page = CurrentPage();
  const Ref<clsButtonGroup> group = GroupOf(*page, groupIndex);
  // Goes last: a host's objects may go with it, and call back.
  const Ref<clsObjectList> former = std::exchange(group->buttons, list);
  page->saveButtonGroupToINI(groupIndex, true);
  group->Init(groupIndex, this);
  page->loadFromINI();
  page->GotFocus();
}

Ref<clsObjectList> clsButtonGroupController::getButtons(std::int32_t groupIndex, ButtonTypeEnum buttonType) {
  Ref<clsObjectList> result = MakeRef<clsObjectList>();
  Quietly([&] {
    const std::int32_t first = groupIndex < 0 ? kFirstGroup : groupIndex;
    const std::int32_t last = groupIndex < 0 ? kLastGroup : groupIndex;
    for (std::int32_t g = first; g <= last; ++g) result->ExtendWith(ButtonsOf(*Group(g)).get());
    if (buttonType == ButtonType_None) return;
    const Ref<clsButtonPredicate> ofType = MakeRef<clsButtonPredicate>();
    ofType->SetButtonType(buttonType);
    result = result->Filter(ofType.get());
  });
  return result;
}

bool clsButtonGroupController::buttonIsVisible(clsButton* button) {
  bool result = false;
  Quietly([&] {
    const auto& shown = Cast<clsButton>(button);
    const IndexRange range = VisibleRange(Group(shown.groupIndex)->pageOffset, buttonsPerGroup_);
    result = range.first <= shown.buttonIndex && shown.buttonIndex <= range.last;
  });
  return result;
}

void clsButtonGroupController::resetVisibility(std::int32_t groupIndex) {
  Quietly([&] {
    const Ref<clsObjectList> buttons = getButtons(groupIndex);
    for (Object* item : buttons->Snapshot()) {
      auto& button = Cast<clsButton>(item);
      button.isVisible = false;
      button.controlIndex = -1;
    }
  });
}

}  // namespace vestrel
