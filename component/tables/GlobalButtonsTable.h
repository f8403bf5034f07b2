// The table of GlobalButtons.
#pragma once

#include "component/Table.h"
#include "util/GlobalButtons.h"

namespace vestrel::component {

template <>
struct TableOf<GlobalButtons> {
  using T = GlobalButtons;
  static constexpr auto kTable = MakeTable<T>(
      "What a host's screens share while a button is edited, moved or dragged; accesses can be traced in the "
      "log.",
      Property<&T::LoggingEnabled, &T::SetLoggingEnabled>("LoggingEnabled",
                                                          "Whether accesses are logged; false in a new one."),
      Property<&T::CountButton, &T::SetCountButton>("CountButton", "A plain value, never logged."),
      Property<&T::NewButton, &T::SetNewButton>("NewButton", "A plain value, never logged."),
      Method<&T::setCaller>("setCaller", "Names the code that is about to use the values below.", "name"),
      Method<&T::getButtonEditing>("getButtonEditing", "The button being edited."),
      Method<&T::setButtonEditing>("setButtonEditing", "Sets the button being edited.", "value"),
      Method<&T::getButtonIndex>("getButtonIndex", "Its index."),
      Method<&T::setButtonIndex>("setButtonIndex", "Sets its index.", "value"),
      Method<&T::getButtonMoving>("getButtonMoving", "The move in progress."),
      Method<&T::setButtonMoving>("setButtonMoving", "Sets the move in progress.", "value"),
      Method<&T::getButtonX>("getButtonX", "The pointer's x."),
      Method<&T::setButtonX>("setButtonX", "Sets the pointer's x.", "value"),
      Method<&T::getButtonY>("getButtonY", "The pointer's y."),
      Method<&T::setButtonY>("setButtonY", "Sets the pointer's y.", "value"),
      Method<&T::getButtonDown>("getButtonDown", "The pressed state."),
      Method<&T::setButtonDown>("setButtonDown", "Sets the pressed state.", "value"));
};

}  // namespace vestrel::component
