#include "workbench/server/ScreenState.h"

#include <algorithm>
#include <vector>

#include "controller/ControlIndex.h"
#include "controller/GroupButtons.h"
#include "core/Cast.h"
#include "core/Convert.h"
#include "recording/vxEvent.h"

namespace vestrel::workbench {

using nlohmann::json;

namespace {

constexpr std::int32_t kFaders = 8;

Ref<clsPage> CurrentPage(WorkSession& session) {
  const Ref<clsPageManager> pages = session.host().controller().PageManager();
  return pages ? pages->CurrentPage() : nullptr;
}

Ref<clsButtonGroup> Group(WorkSession& session, std::int32_t group) {
  const Ref<clsPage> page = CurrentPage(session);
  return page ? page->ButtonGroups(group) : nullptr;
}

std::int32_t SlotCount(std::int32_t group, std::int32_t pageSize) {
  if (group == kTopGroup) return modControlIndex::kTopButtons;
  return group == kBumpGroup ? kFaders : std::max(pageSize, 0);
}

// The control of a slot, or null where the page size leaves none.
json ControlOf(std::int32_t group, std::int32_t slot, std::int32_t pageSize) {
  if (group == kTopGroup) return slot;
  if (slot > pageSize) return nullptr;
  return modControlIndex::returnFirstPositionFromGroup(pageSize, group) + slot - 1;
}

const PlayingItem* Playing(WorkSession& session, const clsButton& button) {
  for (const PlayingItem& item : session.host().stage().items()) {
    if (item.button == &button) return &item;
  }
  return nullptr;
}

std::int32_t LevelOf(WorkSession& session, const clsButton& button) {
  if (button.groupIndex == kBumpGroup && button.Fader()) return button.faderValue();
  const PlayingItem* item = Playing(session, button);
  return item != nullptr ? item->level : button.triggeredDimmerValue;
}

json ButtonState(WorkSession& session, const clsButton& button, json control) {
  return {{"control", std::move(control)},
          {"index", button.buttonIndex},
          {"name", ToUtf8(button.name)},
          {"type", ShortName(button.buttonType)},
          {"on", button.playState() == PlayState_On},
          {"locked", button.Locked()},
          {"bump", button.BumpMode() == BumpMode_On},
          {"fader", ShortName(button.FaderMode())},
          {"highlight", button.isHighlighted},
          {"level", LevelOf(session, button)},
          {"mode", ShortName(button.playState())}};
}

// The slots of the run that is visible; of several buttons with one index the first.
json Slots(WorkSession& session, clsButtonGroup& group, std::int32_t number) {
  const std::int32_t pageSize = session.host().pageSize();
  const auto count = static_cast<std::size_t>(SlotCount(number, pageSize));
  const bool paged = number != kTopGroup && number != kBumpGroup;
  const std::int64_t first = paged ? std::int64_t{group.pageOffset} * pageSize : 0;
  json slots = json::array();
  for (std::size_t i = 0; i < count; ++i) {
    const auto slot = static_cast<std::int32_t>(i) + 1;
    slots.push_back({{"control", ControlOf(number, slot, pageSize)}, {"index", first + slot}});
  }
  for (std::int32_t i = 0; i < group.buttons->Size(); ++i) {
    const Ref<Object> item = group.buttons->GetItem(i);
    const auto& button = Cast<clsButton>(item.get());
    const std::int64_t position = button.buttonIndex - first - 1;
    if (position < 0 || position >= static_cast<std::int64_t>(count)) continue;
    json& slot = slots[static_cast<std::size_t>(position)];
    if (!slot.contains("name")) slot = ButtonState(session, button, slot["control"]);
  }
  return slots;
}

json FaderState(std::int32_t hand, const clsFaderCatch& fader) {
  const std::int32_t distance = fader.value() - hand;
  return {{"hand", hand},
          {"stored", fader.value()},
          {"caught", fader.Engaged()},
          {"way", fader.Engaged() || distance == 0 ? 0 : (distance > 0 ? 1 : -1)},
          {"distance", std::abs(distance)}};
}

json GroupFaders(WorkSession& session) {
  json faders = json::array();
  for (std::int32_t i = 1; i <= kFaders; ++i) {
    const std::int32_t hand = session.host().surface().positions().GroupFaders[i];
    const Ref<clsButtonGroup> group = Group(session, i);
    faders.push_back(group && group->Fader() ? FaderState(hand, *group->Fader()) : json{{"hand", hand}});
  }
  return faders;
}

json BumpFaders(WorkSession& session) {
  json faders = json::array();
  for (std::int32_t i = 1; i <= kFaders; ++i) {
    const std::int32_t hand = session.host().surface().positions().BumpFaders[i];
    const Ref<clsButton> button = session.host().controller().buttonWithIndex(kBumpGroup, i);
    json fader = button && button->Fader() ? FaderState(hand, *button->Fader()) : json{{"hand", hand}};
    fader["marker"] = session.host().form().bumpMarker(i);
    faders.push_back(std::move(fader));
  }
  return faders;
}

std::string RowName(std::size_t row) {
  return std::to_string(ControlSurface::kFirstRowCode + row);
}

std::string LampsOfRow(std::size_t row, std::uint16_t lamps) {
  return ControlSurface::LampText(static_cast<std::uint8_t>(ControlSurface::kFirstRowCode + row), lamps);
}

// The names of the top buttons, as strips on the surface would have them.
json TopLabels(WorkSession& session) {
  json labels = json::array();
  for (std::int32_t i = 1; i <= modControlIndex::kTopButtons; ++i) {
    const Ref<clsButton> button = session.host().controller().buttonWithIndex(kTopGroup, i);
    labels.push_back(button ? ToUtf8(button->name) : "");
  }
  return labels;
}

std::int32_t LengthOf(const clsObjectList& events) {
  if (events.Size() < 1) return 0;
  const auto* last = TryCast<vxEvent>(events.GetItem(events.Size() - 1).get());
  return last != nullptr ? last->time() : 0;
}

const char* WaitingText(EditModeEnum mode, bool picked) {
  switch (mode) {
    case EditMode_Assign:
      return "Click the slot that the new button goes to.";
    case EditMode_EditEnabled:
      return picked ? "Choose what to do with the button, or click another one."
                    : "Click the button to edit.";
    case EditMode_Move:
      return "Click the slot that the button moves to.";
    case EditMode_Copy:
      return "Click the slot that the copy goes to.";
    default:
      return "";
  }
}

// Controls that the next click can mean.
json FlashingControls(WorkSession& session, EditModeEnum mode) {
  json controls = json::array();
  if (mode == EditMode_None) return controls;
  for (std::int32_t number = kFirstGroup; number <= kLastGroup; ++number) {
    const Ref<clsButtonGroup> group = Group(session, number);
    if (!group) continue;
    const bool holdsOne = number == kTopGroup || number == kBumpGroup;
    for (const json& slot : Slots(session, *group, number)) {
      const bool filled = slot.contains("name");
      const bool meant = mode == EditMode_EditEnabled ? filled : !(filled && holdsOne);
      if (meant && !slot["control"].is_null()) controls.push_back(slot["control"]);
    }
  }
  return controls;
}

json PopupState(WorkSession& session) {
  const Ref<clsButton> button = session.host().form().editPopup();
  if (!button) return nullptr;
  return {{"group", button->groupIndex},
          {"index", button->buttonIndex},
          {"control", button->controlIndex},
          {"name", ToUtf8(button->name)}};
}

}  // namespace

json GroupState(WorkSession& session, std::int32_t number) {
  const Ref<clsButtonGroup> group = Group(session, number);
  if (!group || !group->buttons) return nullptr;
  std::string caption = ToUtf8(session.host().form().caption(number));
  if (caption.empty()) caption = "Group " + std::to_string(number);
  return {{"caption", std::move(caption)},
          {"group", number},
          {"step", group->pageOffset},
          {"steps", kRunsPerGroup},
          {"value", group->Fader() ? group->Fader()->value() : 0},
          {"go", static_cast<bool>(group->highlightedButton)},
          {"slots", Slots(session, *group, number)}};
}

json SurfaceState(WorkSession& session) {
  json masks;
  json blink;
  for (std::size_t row = 0; row < ControlSurface::kRows; ++row) {
    masks[RowName(row)] = LampsOfRow(row, session.host().surface().LitLamps(row));
    blink[RowName(row)] = LampsOfRow(row, session.BlinkingLamps(row));
  }
  return {{"masks", std::move(masks)},
          {"blink", std::move(blink)},
          {"blinking", session.host().blinkTimer().running()},
          {"phase", session.blinkPhase()},
          {"group", GroupFaders(session)},
          {"bump", BumpFaders(session)},
          {"labels", TopLabels(session)}};
}

json TransportState(WorkSession& session) {
  TransportBar& bar = session.host().transport();
  clsRecordController& record = session.host().record();
  const Ref<clsObjectList> events = record.EventList();
  return {{"state", ValueText(bar.state())},
          {"recording", bar.recording()},
          {"mode", ShortName(session.recordMode())},
          {"ms", bar.timecode()},
          {"timecode", ToUtf8(record.msToTimecode(bar.timecode()))},
          {"length", LengthOf(*events)},
          {"events", events->Size()},
          {"next", bar.playingEvent() + 1},
          {"current", bar.playingEvent()},
          {"revision", session.recordingRevision()},
          {"dirty", session.recordingChanged()}};
}

json EditState(WorkSession& session) {
  const EditModeEnum mode = session.host().controller().EditMode();
  const char* const names[] = {"None", "Assign", "EditEnabled", "Move", "Copy", "AdjFadeInOut"};
  json popup = PopupState(session);
  return {{"mode", names[static_cast<std::size_t>(mode)]},
          {"waiting", WaitingText(mode, !popup.is_null())},
          {"flashing", FlashingControls(session, mode)},
          {"popup", std::move(popup)}};
}

json StageState(WorkSession& session) {
  json items = json::array();
  for (const PlayingItem& item : session.host().stage().items()) {
    const clsButton& button = *item.button;
    const Ref<clsPage> page = button.Page();
    const std::string place = (page ? ToUtf8(page->pageName()) : std::string()) + "/" +
                              std::to_string(button.groupIndex) + "/" + std::to_string(button.buttonIndex);
    items.push_back({{"id", place + "@" + std::to_string(item.startedAt)},
                     {"name", ToUtf8(button.name)},
                     {"type", ShortName(button.buttonType)},
                     {"level", item.level},
                     {"mode", ShortName(button.FaderMode())},
                     {"goes", item.goes},
                     {"since", item.startedAt - session.start().ticks},
                     {"button", place}});
  }
  return items;
}

}  // namespace vestrel::workbench
