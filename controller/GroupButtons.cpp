#include "controller/GroupButtons.h"

#include <vector>

#include "core/Cast.h"
#include "core/Checked.h"
#include "model/clsButtonPredicate.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kSource = u"clsButtonGroupController";

// While a list is being cleared, the items that it reports as removed are still in place.
bool IsBeingCleared(const ItemSnapshot& items, clsButton& removed, std::int32_t fromIndex) {
  return fromIndex < items.size() && items[fromIndex] == &removed;
}

// The first position whose item has not left the list yet.
std::int32_t FirstRemaining(const ItemSnapshot& items, clsButton& removed, std::int32_t fromIndex) {
  return IsBeingCleared(items, removed, fromIndex) ? fromIndex + 1 : 0;
}

void FillNowPlaying(clsButtonGroup& group, const ItemSnapshot& items, std::int32_t from) {
  if (!group.nowPlayingList) group.nowPlayingList = MakeRef<clsObjectList>();
  const Ref<clsObjectList> playing = group.nowPlayingList;
  // Goes when all are listed: the end of what items that left have kept in the slots may call back.
  const std::vector<Ref<Object>> held = playing->Held();
  playing->Clear();
  for (std::int32_t i = from; i < items.size(); ++i) {
    if (Cast<clsButton>(items[i]).playState() == PlayState_On) playing->AddItem(items[i]);
  }
}

Ref<clsButtonPredicate> Above(std::int32_t index) {
  Ref<clsButtonPredicate> result = MakeRef<clsButtonPredicate>();
  result->SetButtonIndexGreaterThan(index, false);
  return result;
}

Ref<clsButtonPredicate> Below(std::int32_t index) {
  Ref<clsButtonPredicate> result = MakeRef<clsButtonPredicate>();
  result->SetButtonIndexLessThan(index, false);
  return result;
}

}  // namespace

Ref<clsButtonGroup> GroupOf(const clsPage& page, std::int32_t groupIndex) {
  Ref<clsButtonGroup> result = page.ButtonGroups(groupIndex);
  if (!result) RaiseError(Error_ObjectNotSet, kSource);
  return result;
}

Ref<clsObjectList> ButtonsOf(const clsButtonGroup& group) {
  if (!group.buttons) RaiseError(Error_ObjectNotSet, kSource);
  return group.buttons;
}

Ref<clsButton> ButtonAt(const clsObjectList& buttons, std::int32_t position) {
  return CastOrNone<clsButton>(buttons.GetItem(position).get());
}

std::int32_t PositionOfIndex(const clsObjectList& buttons, std::int32_t buttonIndex) {
  const Ref<clsButton> probe = MakeRef<clsButton>();
  probe->buttonIndex = buttonIndex;
  return buttons.FindObjectValue(probe.get(), u"buttonIndex");
}

// A position of -1, nothing found, is the last item; the searches wrap by it.
Ref<clsButton> ButtonBefore(const clsObjectList& buttons, std::int32_t beforeIndex) {
  if (buttons.Size() <= 0) return nullptr;
  return ButtonAt(buttons, buttons.LastIndexWhere(Below(beforeIndex).get()));
}

Ref<clsButton> ButtonAfter(const clsObjectList& buttons, std::int32_t afterIndex) {
  if (buttons.Size() <= 0) return nullptr;
  const std::int32_t position = buttons.FirstIndexWhere(Above(afterIndex).get());
  return ButtonAt(buttons, position < 0 ? 0 : position);
}

std::int32_t NextFreeButtonIndex(const clsObjectList& buttons) {
  std::int32_t previous = 0;
  for (Object* item : buttons.Snapshot()) {
    const std::int32_t index = Cast<clsButton>(item).buttonIndex;
    if (SubtractChecked(index, previous) > 1) break;
    previous = index;
  }
  return AddChecked(previous, 1);
}

Ref<clsObjectList> ButtonsBetween(const clsObjectList& buttons, std::int32_t lower, std::int32_t upper) {
  const Ref<clsButtonPredicate> between = MakeRef<clsButtonPredicate>();
  between->SetButtonIndexBetween(lower, upper);
  return buttons.Filter(between.get());
}

ButtonPresence PresenceOf(const clsObjectList& buttons) {
  ButtonPresence result;
  for (Object* item : buttons.Snapshot()) {
    result.assigned = true;
    result.playing = result.playing || Cast<clsButton>(item).playState() == PlayState_On;
  }
  return result;
}

ButtonPresence PresenceAt(const clsObjectList& buttons, std::int32_t buttonIndex) {
  return PresenceOf(*ButtonsBetween(buttons, buttonIndex, buttonIndex));
}

Ref<clsButton> HeirOf(const clsObjectList& list, clsButton& removed, std::int32_t fromIndex) {
  const ItemSnapshot items = list.Snapshot();
  for (std::int32_t i = FirstRemaining(items, removed, fromIndex); i < items.size(); ++i) {
    auto* const button = CastOrNone<clsButton>(items[i]);
    if (button != nullptr && button->buttonIndex > removed.buttonIndex) return button;
  }
  return nullptr;
}

bool IsListedAsPlaying(const clsButtonGroup& group, clsButton& button) {
  return group.nowPlayingList && group.nowPlayingList->FindObject(&button) >= 0;
}

void RebuildNowPlaying(clsButtonGroup& group) {
  FillNowPlaying(group, ButtonsOf(group)->Snapshot(), 0);
}

void RebuildNowPlayingWithout(clsButtonGroup& group, const clsObjectList& list, clsButton& removed,
                              std::int32_t fromIndex) {
  const ItemSnapshot items = list.Snapshot();
  FillNowPlaying(group, items, FirstRemaining(items, removed, fromIndex));
}

void RenumberFrom(const clsObjectList& buttons, std::int32_t fromPosition, ShiftModeEnum mode) {
  const ItemSnapshot items = buttons.Snapshot();
  const std::int32_t step = mode == ShiftMode_Delete ? -1 : mode == ShiftMode_Insert ? 1 : 0;
  for (std::int32_t i = fromPosition; i < items.size(); ++i) {
    auto& button = Cast<clsButton>(items[i]);
    button.buttonIndex = AddChecked(button.buttonIndex, step);
  }
}

}  // namespace vestrel
