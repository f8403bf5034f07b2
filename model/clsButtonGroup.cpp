#include "model/clsButtonGroup.h"

namespace vestrel {

void clsButtonGroup::Init(std::int32_t groupIndex, IPageController* controller) {
  const auto newButtons = MakeRef<clsObjectList>();
  newButtons->SetEventHandler(controller, this);
  const auto newFader = MakeRef<clsFaderCatch>();
  newFader->Init();
  const auto newPlaying = MakeRef<clsObjectList>();
  groupIndex_ = groupIndex;
  highlightedButton = nullptr;
  pageOffset = 0;
  buttons = newButtons;
  fader_ = newFader;
  nowPlayingList = newPlaying;
}

}  // namespace vestrel
