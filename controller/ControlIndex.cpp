#include "controller/ControlIndex.h"

#include "core/Checked.h"

namespace vestrel::modControlIndex {
namespace {

constexpr std::int32_t kFirstGroupControl = kTopButtons + 1;

// Controls in the groups 1 up to the one before `group`.
std::int32_t ControlsBefore(std::int32_t buttonsPerGroup, std::int32_t group) {
  return MultiplyChecked(SubtractChecked(group, 1), buttonsPerGroup);
}

}  // namespace

std::int32_t OneBasedMod(std::int32_t value, std::int32_t modValue) {
  return AddChecked(RemainderChecked(SubtractChecked(value, 1), modValue), 1);
}

std::int32_t ZeroToOneBased(std::int32_t index) {
  return AddChecked(index, 1);
}

std::int32_t OneToZeroBased(std::int32_t index) {
  return SubtractChecked(index, 1);
}

std::int32_t globalToLocalControlIndex(std::int32_t buttonsPerGroup, std::int32_t controlIndex) {
  if (controlIndex < kFirstGroupControl) return controlIndex;
  return OneBasedMod(SubtractChecked(controlIndex, kTopButtons), buttonsPerGroup);
}

std::int32_t controlIndexFromButtonIndex(std::int32_t buttonsPerGroup, std::int32_t groupIndex,
                                         std::int32_t buttonIndex) {
  if (groupIndex == 0) return buttonIndex;
  const std::int32_t before = AddChecked(kTopButtons, ControlsBefore(buttonsPerGroup, groupIndex));
  return AddChecked(before, OneBasedMod(buttonIndex, buttonsPerGroup));
}

std::int32_t returnGroupFromPosition(std::int32_t buttonsPerGroup, std::int32_t thePosition) {
  if (thePosition < kFirstGroupControl) return 0;
  return AddChecked(DivideChecked(SubtractChecked(thePosition, kFirstGroupControl), buttonsPerGroup), 1);
}

std::int32_t returnFirstPositionFromGroup(std::int32_t buttonsPerGroup, std::int32_t theGroup) {
  if (theGroup < 0) return 0;
  if (theGroup == 0) return 1;
  return AddChecked(kFirstGroupControl, ControlsBefore(buttonsPerGroup, theGroup));
}

}  // namespace vestrel::modControlIndex
