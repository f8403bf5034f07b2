// The table of clsButton.
#pragma once

#include "component/Table.h"
#include "component/tables/IComparableTable.h"
#include "model/clsButton.h"
#include "model/clsPage.h"
#include "storage/clsIniFile.h"

namespace vestrel::component {

template <>
struct TableOf<clsButton> {
  using T = clsButton;
  static constexpr auto kTable = MakeTable<T>(
      "A shortcut button: a named link to an item that the host plays, with play state, fader, fader mode, "
      "bump mode and lock.",
      Field<&T::groupIndex>("groupIndex", "Group of the page, 0 to 9; -1 when none."),
      Field<&T::buttonIndex>("buttonIndex", "1-based position inside the group; -1 when none."),
      Field<&T::name>("name", "The item's name, shown on the button."),
      Field<&T::buttonType>("buttonType", "The kind of item."),
      Field<&T::isVisible>("isVisible", "Whether the button is on the visible page of its group."),
      Field<&T::controlIndex>("controlIndex", "The control that shows it, -1 when none."),
      Field<&T::isHighlighted>("isHighlighted", "Whether the highlight cursor is on it."),
      Field<&T::triggeredDimmerValue>("triggeredDimmerValue",
                                      "Dimmer level, 0 to 100, with which the item is triggered."),
      Property<&T::Locked, &T::SetLocked>("Locked",
                                          "A locked button ignores every play-state and fader change. A "
                                          "change calls the handler's LockStateChanged."),
      Property<&T::FaderMode, &T::SetFaderMode>(
          "FaderMode", "What the fader controls. A change calls the handler's FaderModeChanged."),
      Property<&T::BumpMode, &T::SetBumpMode>(
          "BumpMode", "Whether the button follows press and release instead of clicks."),
      Get<&T::faderValue>("faderValue", "The fader's value, 0 to 100. Error 91 before Init."),
      Get<&T::Fader>("Fader", "The fader itself."),
      Get<&T::playState>("playState", "Whether the button is on."),
      Method<&T::Init>("Init",
                       "Gives every field its first value and creates the fader. Both references point back.",
                       "eventHandler", "page"),
      Method<&T::InitWithValues>("InitWithValues", "Init, then the four fields given.", "page", "groupIndex",
                                 "buttonIndex", "name", "buttonType", "eventHandler"),
      Method<&T::Copy>("Copy",
                       "A new button of the same page, group, index, type and handler. Without a name, or "
                       "with an empty one, it takes this button's, and newName receives it.",
                       InOut(Optional("newName"))),
      Method<&T::toString>("toString", "The button's group, index, name and type as text."),
      Method<&T::PrintObject>("PrintObject", "Logs a description."),
      Method<&T::setPlayState>("setPlayState",
                               "Changes the play state unless the button is locked or in that state, and, "
                               "unless suppressEvent, calls the handler's PlayStateChanged.",
                               "value", "eventSource", "mouseButton", "shift", "x", "y",
                               Optional("suppressEvent", false), Optional("suppressSave", false)),
      Method<&T::press>("press", "Press of a button in bump mode."),
      Method<&T::release>("release", "Release of a button in bump mode."),
      Method<&T::click>("click", "Toggles the play state, unless the button is locked or in bump mode.",
                        "mouseButton", "shift", "x", "y"),
      Method<&T::SetFaderValue>("SetFaderValue",
                                "Moves the fader, 0 to 100, through its pick-up; whether it caught.", "value",
                                "updateUI"),
      Method<&T::saveToINI>("saveToINI", "Writes the button's line under the section and prefix in force.",
                            "iniFile"),
      Method<&T::loadFromINI>(
          "loadFromINI",
          "Reads the button's line; its play state and fader value go to the handler's DeferPlaystateFor.",
          "iniFile", "pGroupIndex", "pButtonIndex"),
      Implements<IComparable>());
};

}  // namespace vestrel::component
