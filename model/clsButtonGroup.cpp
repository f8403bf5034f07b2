#include "model/clsButtonGroup.h"

#include <utility>

namespace vestrel {

void clsButtonGroup::Init(std::int32_t groupIndex, IPageController* controller) {
  const auto newButtons = MakeRef<clsObjectList>();
  newButtons->SetEventHandler(controller, this);
  const auto newFader = MakeRef<clsFaderCatch>();
  newFader->Init();
  const auto newPlaying = MakeRef<clsObjectList>();
  // What was there goes last: a host's objects may go with it, and call back.
  const Ref<clsButton> formerHighlight = std::exchange(highlightedButton, nullptr);
  const Ref<clsObjectList> formerButtons = std::exchange(buttons, newButtons);
  const Ref<clsObjectList> formerPlaying = std::exchange(nowPlayingList, newPlaying);
  groupIndex_ = groupIndex;
  pageOffset = 0;
  fader_ = newFader;
}

}  // namespace vestrel
