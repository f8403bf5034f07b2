// What can be said of one group's buttons without the controller: searches by index, the first free index,
// what plays, and renumbering. The list is in ascending index order, gaps allowed. Pure but for the two
// operations that change the list's buttons or the group's now-playing list.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "core/Ref.h"
#include "core/clsObjectList.h"
#include "model/clsButton.h"
#include "model/clsButtonGroup.h"
#include "model/clsPage.h"

namespace vestrel {

// Whether the group is one of the eight button groups of the screen.
constexpr bool IsScreenGroup(std::int32_t groupIndex) noexcept {
  return groupIndex >= 1 && groupIndex <= 8;
}

constexpr std::int32_t kFirstGroup = 0;
constexpr std::int32_t kTopGroup = 0;
constexpr std::int32_t kBumpGroup = 9;
constexpr std::int32_t kLastGroup = 9;
// Runs of buttons that a group has, of which it shows one.
constexpr std::int32_t kRunsPerGroup = 10;

// Group 0 to 9 of a page. Raises 9 for another one, 91 for a page that was never set up.
Ref<clsButtonGroup> GroupOf(const clsPage& page, std::int32_t groupIndex);
// The group's own list. Raises 91 when a host has taken it away.
Ref<clsObjectList> ButtonsOf(const clsButtonGroup& group);
// The button at a position as clsObjectList::GetItem counts it. Raises 13 for something else than a button.
Ref<clsButton> ButtonAt(const clsObjectList& buttons, std::int32_t position);

// The first position of a button with that index, or -1.
std::int32_t PositionOfIndex(const clsObjectList& buttons, std::int32_t buttonIndex);
// The last button below or the first above an index, wrapping round; none in an empty list.
Ref<clsButton> ButtonBefore(const clsObjectList& buttons, std::int32_t beforeIndex);
Ref<clsButton> ButtonAfter(const clsObjectList& buttons, std::int32_t afterIndex);
// The lowest index that is free above a gap-free run from 1.
std::int32_t NextFreeButtonIndex(const clsObjectList& buttons);
// The buttons with lower <= index <= upper, in a new list.
Ref<clsObjectList> ButtonsBetween(const clsObjectList& buttons, std::int32_t lower, std::int32_t upper);

// What a lamp shows of some buttons.
struct ButtonPresence {
  bool assigned = false;
  bool playing = false;
};
ButtonPresence PresenceOf(const clsObjectList& buttons);
// Of those with that index alone.
ButtonPresence PresenceAt(const clsObjectList& buttons, std::int32_t buttonIndex);

// The first button with a greater index than `removed`, which has just been reported to leave `list` from
// position `fromIndex`; none when there is none. While the list is being cleared, the items before are gone.
Ref<clsButton> HeirOf(const clsObjectList& list, clsButton& removed, std::int32_t fromIndex);

bool IsListedAsPlaying(const clsButtonGroup& group, clsButton& button);
// Lists anew, in the list's order, the group's buttons that are on. The one place where that list is filled.
void RebuildNowPlaying(clsButtonGroup& group);
// The same for a group whose `list` has just reported `removed` as above.
void RebuildNowPlayingWithout(clsButtonGroup& group, const clsObjectList& list, clsButton& removed,
                              std::int32_t fromIndex);

// Moves the index of every button from a list position on down (ShiftMode_Delete) or up (ShiftMode_Insert) by
// one. Neither sorts nor saves.
void RenumberFrom(const clsObjectList& buttons, std::int32_t fromPosition, ShiftModeEnum mode);

}  // namespace vestrel
