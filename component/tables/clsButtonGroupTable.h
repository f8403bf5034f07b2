// The table of clsButtonGroup.
#pragma once

#include "component/Table.h"
#include "controller/interfaces/IPageController.h"
#include "model/clsButtonGroup.h"

namespace vestrel::component {

template <>
struct TableOf<clsButtonGroup> {
  using T = clsButtonGroup;
  static constexpr auto kTable = MakeTable<T>(
      "One of the ten groups of a page: its buttons, those that are playing, the highlight, the visible run "
      "of buttons and the group fader.",
      Field<&T::highlightedButton>("highlightedButton", "The button under the highlight cursor, or none."),
      Field<&T::pageOffset>("pageOffset", "0-based number of the run of buttons that is visible."),
      Field<&T::buttons>("buttons", "The buttons, in ascending order of their index."),
      Field<&T::nowPlayingList>("nowPlayingList",
                                "The buttons that are on, in ascending order of their index."),
      Get<&T::Fader>("Fader", "The group fader."), Get<&T::groupIndex>("groupIndex", "0 to 9."),
      Method<&T::Init>("Init",
                       "New empty lists and fader; the controller hears of every button that comes or goes.",
                       "groupIndex", "controller"));
};

}  // namespace vestrel::component
