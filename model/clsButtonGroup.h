// One of the ten groups of a page: its buttons, those that are playing, the highlight, the run of buttons
// that is visible and the group fader. A plain holder; the rules that use it are the controller's. Owned by
// its page; its list reports to the controller with this group as user data.
#pragma once

#include <cstdint>

#include "controller/interfaces/IPageController.h"
#include "core/BackRef.h"
#include "core/clsObjectList.h"
#include "model/clsButton.h"
#include "model/clsFaderCatch.h"

namespace vestrel {

class clsButtonGroup : public Object {
 public:
  VESTREL_OBJECT(clsButtonGroup)
  VESTREL_HELD_WEAKLY()

  // The button under the highlight cursor, or none.
  Ref<clsButton> highlightedButton;
  // 0-based number of the run of buttons that is visible.
  std::int32_t pageOffset = 0;
  // The buttons, in ascending order of their index. None before Init, as the next two.
  Ref<clsObjectList> buttons;
  // Those that are on, in the same order; the controller fills it. Reports to nobody.
  Ref<clsObjectList> nowPlayingList;

  // The group fader. Groups 0 and 9 have one that drives nothing.
  Ref<clsFaderCatch> Fader() const noexcept { return fader_; }
  // 0 to 9.
  std::int32_t groupIndex() const noexcept { return groupIndex_; }

  // New empty lists and fader for the group groupIndex (0 to 9, not checked); `controller` (held weakly, may
  // be none) hears of every button that comes or goes through ItemAdded and ItemRemoved. Where memory runs
  // out the group stays as it was.
  void Init(std::int32_t groupIndex, IPageController* controller);

 private:
  Ref<clsFaderCatch> fader_;
  std::int32_t groupIndex_ = 0;
  WeakSource weakSource_;
};

}  // namespace vestrel
