#include "workbench/host/Stage.h"

#include <algorithm>

namespace vestrel::workbench {

void Stage::Follow(clsButton& button, std::uint64_t now) {
  std::erase_if(items_, [&](const PlayingItem& item) { return item.button == &button; });
  if (button.playState() == PlayState_On) items_.push_back({&button, button.triggeredDimmerValue, 0, now});
}

void Stage::SetLevel(const clsButton& button, std::int32_t level) {
  if (PlayingItem* item = Find(button)) item->level = level;
}

void Stage::Go(const clsButton& button) {
  if (PlayingItem* item = Find(button)) ++item->goes;
}

PlayingItem* Stage::Find(const clsButton& button) noexcept {
  const auto found =
      std::find_if(items_.begin(), items_.end(), [&](const auto& item) { return item.button == &button; });
  return found == items_.end() ? nullptr : &*found;
}

}  // namespace vestrel::workbench
