// The controller's faders room: moves of the physical faders and what the form is told of them.
#include "controller/GroupButtons.h"
#include "controller/Trap.h"
#include "controller/clsButtonGroupController.h"
#include "core/Cast.h"

namespace vestrel {
namespace {

bool IsIdle(const clsButtonGroup& group) {
  return Cast<clsObjectList>(group.nowPlayingList.get()).Size() == 0 && group.highlightedButton;
}

}  // namespace

void clsButtonGroupController::groupFaderChanged(std::int32_t groupIndex, std::int32_t newValue) {
  const Ref<clsButtonGroupController> alive(this);
  Quietly([&] { MoveGroupFader(groupIndex, newValue); });
}

void clsButtonGroupController::MoveGroupFader(std::int32_t groupIndex, std::int32_t newValue) {
  const Ref<clsPage> page = CurrentPage();
  const Ref<clsButtonGroup> group = GroupOf(*page, groupIndex);
  const Ref<clsFaderCatch> fader = group->Fader();
  const std::int32_t old = fader->value();
  const bool caught = fader->SetValue(newValue, false);
  if (!caught || newValue == old) return;
  page->saveToINI(groupIndex, false);
  Form()->UpdateFaderModelValue(FaderType_Group, groupIndex, fader->value(), true, nullptr);
  if (old == 0 && newValue >= 1 && IsIdle(*group)) buttonGroupGo(groupIndex, 0, 0, false);
}

void clsButtonGroupController::BumpFaderChanged(std::int32_t index, std::int32_t value, bool updateUI) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> button = buttonWithIndex(kBumpGroup, index);
  if (!button || !button->SetFaderValue(value, updateUI)) return;
  Form()->UpdateFaderModelValue(FaderType_BumpFader, index, button->faderValue(), true, button.get());
}

void clsButtonGroupController::GetUIFaderValues(TUIFaderValues& values) {
  Form()->GetUIFaderValues(values);
}

void clsButtonGroupController::UpdateFaderModelValue(IFSSFaderTypeEnum faderType, std::int32_t index,
                                                     std::int32_t value, bool caught, clsButton* button) {
  Form()->UpdateFaderModelValue(faderType, index, value, caught, button);
}

void clsButtonGroupController::PushCurrentGroupFaderValues() {
  const Ref<clsButtonGroupController> alive(this);
  for (std::int32_t g = 1; g <= 8; ++g) {
    Form()->UpdateFaderUI(FaderType_Group, g, Group(g)->Fader()->value());
  }
}

}  // namespace vestrel
