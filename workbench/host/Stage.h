// What the host plays: one item for every button that is on, with the level and the fader mode that apply to
// it. Stands in for the lighting itself; it makes no light and no call. Owned by the simulated host.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/Ref.h"
#include "model/clsButton.h"

namespace vestrel::workbench {

struct PlayingItem {
  Ref<clsButton> button;
  // 0 to 100.
  std::int32_t level = 0;
  // How often a group's go fired it while it was playing.
  std::int32_t goes = 0;
  // Milliseconds since the system's start.
  std::uint64_t startedAt = 0;
};

class Stage {
 public:
  // Starts the button's item at its triggered level, or stops it, as the button's play state says.
  void Follow(clsButton& button, std::uint64_t now);
  // Nothing when the button's item does not play.
  void SetLevel(const clsButton& button, std::int32_t level);
  // A go on an item that is playing.
  void Go(const clsButton& button);

  // In the order in which they were started.
  std::span<const PlayingItem> items() const noexcept { return items_; }

 private:
  PlayingItem* Find(const clsButton& button) noexcept;

  std::vector<PlayingItem> items_;
};

}  // namespace vestrel::workbench
