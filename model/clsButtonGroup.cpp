#include "model/clsButtonGroup.h"

namespace vestrel {

void clsButtonGroup::Init(std::int32_t groupIndex, IPageController* controller) {
  groupIndex_ = groupIndex;
  highlightedButton = nullptr;
  pageOffset = 0;
  buttons = MakeRef<clsObjectList>();
  buttons->SetEventHandler(controller, this);
  fader_ = MakeRef<clsFaderCatch>();
  fader_->Init();
  nowPlayingList = MakeRef<clsObjectList>();
}

}  // namespace vestrel
