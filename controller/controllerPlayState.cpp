// The controller's play-state room: what follows when a button or a list of buttons reports a change.
#include <utility>

#include "controller/GroupButtons.h"
#include "controller/Trap.h"
#include "controller/clsButtonGroupController.h"
#include "core/Cast.h"
#include "core/Convert.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

// The number of the step that was running, as the log gives it.
enum Location : std::int32_t {
  Location_Save = 0,
  Location_DimmerValue = 1,
  Location_Form = 2,
  Location_NowPlaying = 3,
  Location_Bump = 4,
  Location_Refresh = 5,
  Location_Outputs = 6,
};

constexpr std::int32_t kFullDimmer = 100;

template <class T>
T& Given(T* object) {
  if (object == nullptr) RaiseError(Error_ObjectNotSet, u"clsButtonGroupController");
  return *object;
}

bool IsOnOrOff(const clsButton& button) {
  return button.playState() == PlayState_On || button.playState() == PlayState_Off;
}

void HandHighlightOn(clsButtonGroup& group, const clsObjectList& list, clsButton& removed,
                     std::int32_t fromIndex) {
  removed.isHighlighted = false;
  const Ref<clsButton> heir = HeirOf(list, removed, fromIndex);
  if (heir) heir->isHighlighted = true;
  group.highlightedButton = heir;
}

// Groups 0 and 9 hand no highlight on, but a button that left is nobody's highlight.
void DropHighlight(clsButtonGroup& group, clsButton& removed) {
  if (group.highlightedButton != &removed) return;
  removed.isHighlighted = false;
  group.highlightedButton = nullptr;
}

}  // namespace

void clsButtonGroupController::PlayStateChanged(clsButton* button, PSEventSourceEnum eventSource,
                                                std::int16_t mouseButton, std::int16_t shift, float x,
                                                float y, bool suppressSave) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> changed(button);
  std::int32_t location = Location_Save;
  const auto failure = FailureOf([&] {
    HandlePlayStateChange(Given(button), {eventSource, mouseButton, shift, x, y, suppressSave}, location);
  });
  if (failure) modLog::Log(u" PlayStateChanged:" + *failure + u" Location:" + LongToText(location));
}

void clsButtonGroupController::HandlePlayStateChange(clsButton& button, const PlayStateChange& change,
                                                     std::int32_t& location) {
  if (!change.suppressSave) CurrentPage()->saveSingleButton(&button);
  location = Location_DimmerValue;
  SetTriggeredDimmerValue(button);
  location = Location_Form;
  Form()->ButtonStateChanged(&button, change.mouseButton, change.shift, change.x, change.y);
  location = Location_NowPlaying;
  ListPlaying(button);
  location = Location_Bump;
  if (button.groupIndex == kBumpGroup && IsOnOrOff(button)) {
    Form()->HighlightBump(button.buttonIndex, button.playState() == PlayState_On);
  }
  location = Location_Refresh;
  if (button.playState() == PlayState_Off) Form()->RefreshPage(IFSSRefresh_Control, 0, &button);
  location = Location_Outputs;
  RefreshGroupLamps(button.groupIndex, button.buttonIndex);
  const Ref<IRecordController> recorder = recordController_;
  Given(recorder.get())
      .ButtonPlaystateChanged(&button, change.eventSource, change.mouseButton, change.shift, change.x,
                              change.y);
}

void clsButtonGroupController::SetTriggeredDimmerValue(clsButton& button) const {
  if (IsScreenGroup(button.groupIndex)) {
    button.triggeredDimmerValue = Group(button.groupIndex)->Fader()->value();
  } else if (button.groupIndex == kBumpGroup) {
    button.triggeredDimmerValue = button.faderValue();
  } else if (button.groupIndex == kTopGroup) {
    button.triggeredDimmerValue = kFullDimmer;
  }
}

// The list of the button's own page is kept right as well where that is another one than the current.
void clsButtonGroupController::ListPlaying(const clsButton& button) const {
  if (!IsScreenGroup(button.groupIndex)) return;
  const Ref<clsPage> current = CurrentPage();
  RebuildNowPlaying(*GroupOf(*current, button.groupIndex));
  const Ref<clsPage> own = button.Page();
  if (!own || own == current) return;
  if (const Ref<clsButtonGroup> group = own->ButtonGroups(button.groupIndex)) RebuildNowPlaying(*group);
}

void clsButtonGroupController::LockStateChanged(clsButton* button) {
  const Ref<clsButton> changed(button);
  Form()->LockStateChanged(button);
}

void clsButtonGroupController::FaderModeChanged(clsButton* button) {
  const Ref<clsButton> changed(button);
  Form()->FaderModeChanged(button);
}

void clsButtonGroupController::FaderValueChanged(clsButton* button, bool updateUI) {
  const Ref<clsButtonGroupController> alive(this);
  const Ref<clsButton> changed(&Given(button));
  if (changed->groupIndex != kBumpGroup) {
    modLog::Log(u"BGC IButtonEventHandler_FaderValueChanged: attempted to set fader value for non-bump type?",
                LogLevel_2_WARNING);
    return;
  }
  if (updateUI) Form()->UpdateFaderUI(FaderType_BumpFader, changed->buttonIndex, changed->faderValue());
  Form()->UpdateFaderModelValue(FaderType_BumpFader, changed->buttonIndex, changed->faderValue(), true,
                                changed.get());
}

void clsButtonGroupController::DeferPlaystateFor(clsPage* page, clsButton* button, PlayStateEnum playState,
                                                 std::int32_t faderValue) {
  const Ref<clsDeferred> deferred = MakeRef<clsDeferred>();
  deferred->page = page;
  deferred->button = button;
  deferred->playState = playState;
  deferred->faderValue = faderValue;
  Given(deferredList_.get()).AddItem(deferred.get());
}

void clsButtonGroupController::ItemAdded(clsObjectList* list, Object* item, std::int32_t /*atIndex*/,
                                         Object* userData) {
  auto& group = Cast<clsButtonGroup>(userData);
  if (!IsScreenGroup(group.groupIndex())) return;
  auto& added = Cast<clsButton>(item);
  if (Given(list).Size() == 1) {
    const Ref<clsButton> former = std::exchange(group.highlightedButton, &added);
    added.isHighlighted = true;
  }
  if (added.playState() == PlayState_On) RebuildNowPlaying(group);
}

void clsButtonGroupController::ItemRemoved(clsObjectList* list, Object* item, std::int32_t fromIndex,
                                           Object* userData) {
  auto& group = Cast<clsButtonGroup>(userData);
  auto& removed = Cast<clsButton>(item);
  if (!IsScreenGroup(group.groupIndex())) return DropHighlight(group, removed);
  // While highlightButton tells the form, its button is the group's highlight without being marked so.
  if (removed.isHighlighted || group.highlightedButton == &removed) {
    HandHighlightOn(group, Given(list), removed, fromIndex);
  }
  // One that has just gone off is listed until the form has been told.
  if (removed.playState() == PlayState_On || IsListedAsPlaying(group, removed)) {
    RebuildNowPlayingWithout(group, Given(list), removed, fromIndex);
  }
}

}  // namespace vestrel
