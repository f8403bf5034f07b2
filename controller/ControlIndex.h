// The arithmetic between controls, groups and slots; pure functions, shared by the controller and the facade.
// A control index numbers every control of the screen from 1: 1 to 32 are the top buttons (group 0), from 33
// on each group has `buttonsPerGroup` consecutive controls, group 1 first. A slot is the 1-based position of
// a control within its group. Nothing checks that a group exists.
//
// All raise 6 where a result leaves 32 bits, and 11 for a `buttonsPerGroup` or `modValue` of 0 where they
// divide by it. Divisions truncate toward zero.
#pragma once

#include <cstdint>

namespace vestrel::modControlIndex {

// Controls of group 0.
inline constexpr std::int32_t kTopButtons = 32;

// `value` folded onto 1 .. modValue; 0 stays 0.
std::int32_t OneBasedMod(std::int32_t value, std::int32_t modValue);
std::int32_t ZeroToOneBased(std::int32_t index);
std::int32_t OneToZeroBased(std::int32_t index);
// The slot of a control; a top button's slot is its control index.
std::int32_t globalToLocalControlIndex(std::int32_t buttonsPerGroup, std::int32_t controlIndex);
// The control that shows a button whatever page its group is on; in group 0 the button index itself.
std::int32_t controlIndexFromButtonIndex(std::int32_t buttonsPerGroup, std::int32_t groupIndex,
                                         std::int32_t buttonIndex);
// The group that a control belongs to.
std::int32_t returnGroupFromPosition(std::int32_t buttonsPerGroup, std::int32_t thePosition);
// The control of a group's first slot; 0 for a negative group.
std::int32_t returnFirstPositionFromGroup(std::int32_t buttonsPerGroup, std::int32_t theGroup);

}  // namespace vestrel::modControlIndex
