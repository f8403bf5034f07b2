// The table of IFormSequenceShortcuts.
#pragma once

#include "component/Table.h"
#include "controller/interfaces/IFormSequenceShortcuts.h"
#include "model/clsButton.h"

namespace vestrel::component {

template <>
struct TableOf<IFormSequenceShortcuts> {
  using T = IFormSequenceShortcuts;
  static constexpr auto kTable = MakeTable<T>(
      "The host's form. Called only by the controller, on the user-interface thread; calls are synchronous "
      "and may call back into the library.",
      Method<&T::SetButtonGroupPageCaption>("SetButtonGroupPageCaption",
                                            "Not called by the library; for the host's own use.",
                                            "groupIndex", "caption"),
      Method<&T::RefreshPage>("RefreshPage",
                              "Redraw the whole page, the group justGroupIndex or the control of justButton. "
                              "IFSSRefresh_EntirePageNonGUI re-reads the page's state without repainting.",
                              "refreshType", Optional("justGroupIndex", 0), Optional("justButton")),
      Method<&T::SetFlashing>(
          "SetFlashing", "Start or stop flashing the indication that an edit waits for its target.", "state"),
      Method<&T::ShowEditPopup>("ShowEditPopup", "Open the editing pop-up for the button.", "button"),
      Method<&T::DisableEditMode>("DisableEditMode", "Leave the edit state."),
      Method<&T::CopyButtonFiles>(
          "CopyButtonFiles",
          "Copy (or, with deleteSource, move) the item files of a button from one page's folder to another.",
          "buttonType", "srcPageName", "srcButtonName", "destPageName", "destButtonName",
          Optional("deleteSource", false)),
      Method<&T::DeleteButton>(
          "DeleteButton", "Delete the item files of the button, asking the operator first unless noPrompt.",
          "button", Optional("noPrompt", false)),
      Method<&T::RenameButton>("RenameButton",
                               "Ask for a new name; the empty text means that nothing is to be renamed.",
                               "button", "controlIndex"),
      Method<&T::ButtonStateChanged>(
          "ButtonStateChanged",
          "A button's play state changed, whatever the source: start or stop its item and redraw it.",
          "button", "mouseButton", "shift", "x", "y"),
      Method<&T::LockStateChanged>("LockStateChanged", "Redraw the button's lock indication.", "button"),
      Method<&T::UpdateFaderUI>("UpdateFaderUI", "Move a fader on the screen (1 to 8) to a value (0 to 100).",
                                "faderType", "index", "value"),
      Method<&T::FaderModeChanged>("FaderModeChanged", "Redraw the button's fader mode indication.",
                                   "button"),
      Method<&T::HighlightBump>("HighlightBump", "Light or darken the marker of a bump fader, 1 to 8.",
                                "bumpIndex", "state"),
      Method<&T::ReleaseButton>("ReleaseButton", "Not called by the library; for the host's own use.",
                                "button"),
      Method<&T::GoFromSubmaster>("GoFromSubmaster",
                                  "Fire the go of the button's item with these crossfade settings.", "button",
                                  "crossFade", "overRideTime", "manualCrossfade"),
      Method<&T::GetUIFaderValues>("GetUIFaderValues", "Write the current fader positions into values.",
                                   InOut("values")),
      Method<&T::UpdateFaderModelValue>(
          "UpdateFaderModelValue",
          "Apply the level (0 to 100) to what fader 1 to 8 drives; button is the bump button or none.",
          "faderType", "index", "value", "caught", Optional("button")),
      Method<&T::HideSplashScreen>("HideSplashScreen",
                                   "Close the start-up splash screen; repeated calls are harmless."),
      Method<&T::CreateMarkFadeButton>(
          "CreateMarkFadeButton",
          "Create the item files of a mark or fade button made from the button named originalName.", "button",
          "originalName", "mfType"),
      Method<&T::PromptButtonOverwrite>("PromptButtonOverwrite", "Ask the operator; true means overwrite.",
                                        "promptText"));
};

}  // namespace vestrel::component
