// The host's form with the shortcut screen. Implemented by the host and called only by the controller, from
// its Init on, always on the user-interface thread; every call is synchronous and may call back into the
// controller. The empty bodies do nothing, so a host overrides what it needs. A form is kept alive by its
// controller. What it raises ends the operation that called it, as that operation says.
//
// Groups are 0 (top buttons), 1 to 8 (the screen) and 9 (bump buttons); faders are numbered 1 to 8, their
// values and levels are 0 to 100. A button is never none unless the operation says so. mouseButton, shift, x
// and y are those of the click as the host gave them to the library, in the host's own units.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controller/interfaces/Enumerations.h"
#include "controller/interfaces/TUIFaderValues.h"
#include "core/Object.h"

namespace vestrel {

class clsButton;

class IFormSequenceShortcuts : public virtual Object {
 public:
  VESTREL_OBJECT(IFormSequenceShortcuts)

  // Not called by the library; for the host's own use.
  virtual void SetButtonGroupPageCaption(std::int32_t /*groupIndex*/, std::u16string_view /*caption*/) {}
  // Redraw, by refreshType, the whole page, the group justGroupIndex or the control of justButton; the other
  // argument says nothing. IFSSRefresh_EntirePageNonGUI re-reads the page's state without repainting.
  virtual void RefreshPage(IFSSRefreshEnum /*refreshType*/, std::int32_t /*justGroupIndex*/ = 0,
                           clsButton* /*justButton*/ = nullptr) {}
  // Start (true) or stop flashing the indication that an edit waits for its target.
  virtual void SetFlashing(bool /*state*/) {}
  // Open the editing pop-up for the button.
  virtual void ShowEditPopup(clsButton* /*button*/) {}
  // Leave the edit state (menus, captions). Answered with the controller's setModeEditing(false).
  virtual void DisableEditMode() {}
  // Copy (or, with deleteSource, move) the item files of a button of that type from one page's folder to
  // another, where they take destButtonName. The pages may be the same.
  virtual void CopyButtonFiles(ButtonTypeEnum /*buttonType*/, std::u16string_view /*srcPageName*/,
                               std::u16string_view /*srcButtonName*/, std::u16string_view /*destPageName*/,
                               std::u16string_view /*destButtonName*/, bool /*deleteSource*/ = false) {}
  // Delete the item files of the button, asking the operator first unless noPrompt.
  virtual void DeleteButton(clsButton* /*button*/, bool /*noPrompt*/ = false) {}
  // Ask for a new name; the empty text means that nothing is to be renamed. controlIndex (from 1) is the
  // control that shows the button.
  virtual std::u16string RenameButton(clsButton* /*button*/, std::int32_t /*controlIndex*/) { return {}; }
  // A button's play state changed, whatever the source: start or stop its item and redraw it.
  virtual void ButtonStateChanged(clsButton* /*button*/, std::int16_t /*mouseButton*/, std::int16_t /*shift*/,
                                  float /*x*/, float /*y*/) {}
  // The button's Locked has changed: redraw its lock indication.
  virtual void LockStateChanged(clsButton* /*button*/) {}
  // Move fader `index` of that row on the screen to `value`.
  virtual void UpdateFaderUI(IFSSFaderTypeEnum /*faderType*/, std::int32_t /*index*/,
                             std::int32_t /*value*/) {}
  // The button's FaderMode has changed: redraw its mode indication.
  virtual void FaderModeChanged(clsButton* /*button*/) {}
  // Light (true) or darken the marker of bump fader bumpIndex, the buttonIndex of a button of group 9.
  virtual void HighlightBump(std::int32_t /*bumpIndex*/, bool /*state*/) {}
  // Not called by the library; for the host's own use.
  virtual void ReleaseButton(clsButton* /*button*/) {}
  // Fire the "go" of the button's item. The crossfade settings are those given to buttonGroupGo, in the
  // host's own units; 0, 0 and false when a group fader raised from 0 fired it.
  virtual void GoFromSubmaster(clsButton* /*button*/, std::int16_t /*crossFade*/, float /*overRideTime*/,
                               bool /*manualCrossfade*/) {}
  // Write the current positions of the eight group and eight bump faders into `values`.
  virtual void GetUIFaderValues(TUIFaderValues& /*values*/) {}
  // Apply the level `value` to what fader `index` drives. `button` is the button of a bump fader, none for a
  // group fader. caught is false only where the screen has regained focus and the physical fader stands
  // elsewhere.
  virtual void UpdateFaderModelValue(IFSSFaderTypeEnum /*faderType*/, std::int32_t /*index*/,
                                     std::int32_t /*value*/, bool /*caught*/,
                                     clsButton* /*button*/ = nullptr) {}
  // Close the start-up splash screen; repeated calls are harmless.
  virtual void HideSplashScreen() {}
  // Create the item files of the mark or fade button made from the button named originalName. The new button
  // has its name, type and place, but is not in its group yet.
  virtual void CreateMarkFadeButton(clsButton* /*button*/, std::u16string_view /*originalName*/,
                                    MarkFadeTypeEnum /*mfType*/) {}
  // Ask the operator the question promptText; true means overwrite.
  virtual bool PromptButtonOverwrite(std::u16string_view /*promptText*/) { return false; }
};

}  // namespace vestrel
