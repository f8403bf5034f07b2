// The controller's input room: presses, releases and clicks of controls, releasing buttons, the go of a
// group.
#include <utility>

#include "controller/GroupButtons.h"
#include "controller/Trap.h"
#include "controller/clsButtonGroupController.h"
#include "core/Cast.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

// Index of the placeholder that stands in for no excluded button; equal to no button of a page.
constexpr std::int32_t kNowhere = -999;
constexpr std::int16_t kLeftButton = 1;

bool IsReleasable(clsButton& button, clsButton& spared) {
  return button.playState() == PlayState_On && !button.Locked() && button.CompareTo(&spared, u"all") != 0;
}

}  // namespace

void clsButtonGroupController::fakeMouseUp(std::int16_t controlIndex, std::u16string_view source) {
  modLog::LogFormat(LogLevel_3_INFO, u"fake mouseUp from [%d] from [%s]", std::int32_t{controlIndex}, source);
}

void clsButtonGroupController::controlPressed(std::int32_t controlIndex) {
  const Ref<clsButtonGroupController> alive(this);
  if (editMode_ != EditMode_None) return;
  const Ref<clsButton> button = buttonAtControlIndex(controlIndex);
  if (button) button->press();
}

void clsButtonGroupController::controlReleased(std::int32_t controlIndex) {
  const Ref<clsButtonGroupController> alive(this);
  if (editMode_ != EditMode_None) return;
  const Ref<clsButton> button = buttonAtControlIndex(controlIndex);
  if (button) button->release();
}

void clsButtonGroupController::controlClicked(std::int32_t controlIndex, std::int16_t mouseButton,
                                              std::int16_t shift, float x, float y,
                                              TriggerModeEnum /*triggerMode*/, bool returnButton,
                                              Ref<clsButton>* buttonVar) {
  const Ref<clsButtonGroupController> alive(this);
  const ControlTarget target = TargetOf(controlIndex);
  switch (editMode_) {
    case EditMode_None:
      ClickButton(target, {PSEventSource_User, mouseButton, shift, x, y, false}, returnButton, buttonVar);
      break;
    case EditMode_Assign:
      PlacePendingButton({target.groupIndex, target.slot, Numbering::Slot}, false);
      break;
    case EditMode_EditEnabled:
      PickEditButton(target);
      break;
    case EditMode_Move:
      MoveButtonTo(target.groupIndex, target.buttonIndex);
      EndPlacingMode();
      break;
    case EditMode_Copy:
      CopyButtonTo(target.groupIndex, target.buttonIndex);
      EndPlacingMode();
      break;
    case EditMode_AdjFadeInOut:
      break;
  }
}

void clsButtonGroupController::ClickButton(const ControlTarget& target, const PlayStateChange& click,
                                           bool returnButton, Ref<clsButton>* buttonVar) {
  const Ref<clsButton> button = buttonWithIndex(target.groupIndex, target.buttonIndex);
  if (returnButton && buttonVar != nullptr) *buttonVar = button;
  if (!button) return;
  button->click(click.mouseButton, click.shift, click.x, click.y);
  highlightButton(target.groupIndex, Highlight_NextAfter, false, button.get());
}

void clsButtonGroupController::PickEditButton(const ControlTarget& target) {
  const Ref<clsButton> button = buttonWithIndex(target.groupIndex, target.buttonIndex);
  const Ref<clsButton> former = std::exchange(editButton_, button);
  if (button) Form()->ShowEditPopup(button.get());
}

void clsButtonGroupController::EndPlacingMode() {
  editMode_ = EditMode_None;
  Form()->DisableEditMode();
  Form()->SetFlashing(false);
}

bool clsButtonGroupController::ToggleButtonAt(std::int32_t groupIndex, std::int32_t buttonIndex) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> button = buttonWithIndex(groupIndex, buttonIndex);
  if (!button) return false;
  const PlayStateEnum newState = button->playState() == PlayState_Off ? PlayState_On : PlayState_Off;
  goToPageWithButtonIndex(groupIndex, buttonIndex);
  button->setPlayState(newState, PSEventSource_User, kLeftButton, 0, 0, 0, false, false);
  highlightButton(groupIndex, Highlight_NextAfter, false, button.get());
  return true;
}

void clsButtonGroupController::releaseButtonsOnPage(std::int32_t groupIndex, ButtonTypeEnum onlyType,
                                                    Ref<clsButton>* excludeButton) {
  const Ref<clsButtonGroupController> alive(this);
  if (groupIndex == kTopGroup || groupIndex == kBumpGroup) return;
  const auto failure = FailureOf([&] { ReleaseButtons(groupIndex, onlyType, excludeButton); });
  if (failure) modLog::Log(u"error in releaseButtonsOnPage:" + *failure);
}

void clsButtonGroupController::ReleaseButtons(std::int32_t groupIndex, ButtonTypeEnum onlyType,
                                              Ref<clsButton>* excludeButton) {
  // The caller's variable may change while host code runs.
  Ref<clsButton> spared = excludeButton == nullptr ? nullptr : *excludeButton;
  if (!spared) {
    spared = MakeRef<clsButton>();
    spared->InitWithValues(nullptr, kNowhere, kNowhere, u"x", ButtonType_None, this);
    if (excludeButton != nullptr) *excludeButton = spared;
    modLog::Log(u"BGC.releaseButtonsOnPage() called with no excluded/source button");
  } else if (spared->BumpMode() == BumpMode_On) {
    return;
  }
  const Ref<clsObjectList> buttons = getButtons(groupIndex < 0 ? -1 : groupIndex, onlyType);
  for (Object* item : buttons->Snapshot()) {
    auto& button = Cast<clsButton>(item);
    if (!IsReleasable(button, *spared)) continue;
    button.setPlayState(PlayState_Off, PSEventSource_AutoRelease, kLeftButton, 0, 0, 0, false, true);
  }
}

void clsButtonGroupController::buttonGroupGo(std::int32_t groupIndex, std::int16_t crossFade,
                                             float overRideTime, bool manualCrossfade) {
  const Ref<clsButtonGroupController> alive(this);
  if (!ready_ || !IsScreenGroup(groupIndex)) return;
  const auto failure =
      FailureOf([&] { FireHighlighted(groupIndex, crossFade, overRideTime, manualCrossfade); });
  if (failure) modLog::Log(u" ButtonGroupGo:" + *failure);
}

void clsButtonGroupController::FireHighlighted(std::int32_t groupIndex, std::int16_t crossFade,
                                               float overRideTime, bool manualCrossfade) {
  const Ref<clsButton> button = Group(groupIndex)->highlightedButton;
  if (button) {
    goToPageWithButtonIndex(groupIndex, button->buttonIndex);
    Form()->GoFromSubmaster(button.get(), crossFade, overRideTime, manualCrossfade);
    modLog::LogFormat(LogLevel_4_SPEW, u"buttonGroupGo: triggered %s", button->name);
  } else {
    modLog::Log(u"buttonGroupGo: nothing highlighted", LogLevel_4_SPEW);
  }
  highlightButton(groupIndex, Highlight_Next, false);
}

}  // namespace vestrel
