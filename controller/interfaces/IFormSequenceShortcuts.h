// The host's form with the shortcut screen. Implemented by the host and called only by the controller, always
// on the user-interface thread; every call is synchronous and may call back into the controller. The empty
// bodies do nothing, so a host overrides what it needs. A form is kept alive by its controller.
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

  // Not called by the library; for the host's own use. groupIndex 1 to 8.
  virtual void SetButtonGroupPageCaption(std::int32_t /*groupIndex*/, std::u16string_view /*caption*/) {}
  // Redraw the whole page, the group justGroupIndex or the control of justButton, by refreshType.
  // IFSSRefresh_EntirePageNonGUI re-reads the page's state without repainting.
  virtual void RefreshPage(IFSSRefreshEnum /*refreshType*/, std::int32_t /*justGroupIndex*/ = 0,
                           clsButton* /*justButton*/ = nullptr) {}
  // Start or stop flashing the indication that an edit waits for its target.
  virtual void SetFlashing(bool /*state*/) {}
  // Open the editing pop-up for the button.
  virtual void ShowEditPopup(clsButton* /*button*/) {}
  // Leave the edit state (menus, captions).
  virtual void DisableEditMode() {}
  // Copy (or, with deleteSource, move) the item files of a button from one page's folder to another.
  virtual void CopyButtonFiles(ButtonTypeEnum /*buttonType*/, std::u16string_view /*srcPageName*/,
                               std::u16string_view /*srcButtonName*/, std::u16string_view /*destPageName*/,
                               std::u16string_view /*destButtonName*/, bool /*deleteSource*/ = false) {}
  // Delete the item files of the button, asking the operator first unless noPrompt.
  virtual void DeleteButton(clsButton* /*button*/, bool /*noPrompt*/ = false) {}
  // Ask for a new name; the empty text means that nothing is to be renamed. controlIndex is the control that
  // shows the button.
  virtual std::u16string RenameButton(clsButton* /*button*/, std::int32_t /*controlIndex*/) { return {}; }
  // A button's play state changed, whatever the source: start or stop its item and redraw it.
  virtual void ButtonStateChanged(clsButton* /*button*/, std::int16_t /*mouseButton*/, std::int16_t /*shift*/,
                                  float /*x*/, float /*y*/) {}
  virtual void LockStateChanged(clsButton* /*button*/) {}
  // Move fader `index` (1 to 8) on the screen to `value` (0 to 100).
  virtual void UpdateFaderUI(IFSSFaderTypeEnum /*faderType*/, std::int32_t /*index*/,
                             std::int32_t /*value*/) {}
  virtual void FaderModeChanged(clsButton* /*button*/) {}
  // Light or darken the marker of bump fader bumpIndex (1 to 8).
  virtual void HighlightBump(std::int32_t /*bumpIndex*/, bool /*state*/) {}
  // Not called by the library; for the host's own use.
  virtual void ReleaseButton(clsButton* /*button*/) {}
  // Fire the "go" of the button's item with the crossfade settings given.
  virtual void GoFromSubmaster(clsButton* /*button*/, std::int16_t /*crossFade*/, float /*overRideTime*/,
                               bool /*manualCrossfade*/) {}
  // Write the current fader positions into `values`.
  virtual void GetUIFaderValues(TUIFaderValues& /*values*/) {}
  // Apply the level `value` (0 to 100) to what fader `index` (1 to 8) drives; `button` is the bump button or
  // none; caught says whether the physical fader has taken the value over.
  virtual void UpdateFaderModelValue(IFSSFaderTypeEnum /*faderType*/, std::int32_t /*index*/,
                                     std::int32_t /*value*/, bool /*caught*/,
                                     clsButton* /*button*/ = nullptr) {}
  // Close the start-up splash screen; repeated calls are harmless.
  virtual void HideSplashScreen() {}
  // Create the item files of a mark or fade button made from the button named originalName.
  virtual void CreateMarkFadeButton(clsButton* /*button*/, std::u16string_view /*originalName*/,
                                    MarkFadeTypeEnum /*mfType*/) {}
  // Ask the operator; true means overwrite.
  virtual bool PromptButtonOverwrite(std::u16string_view /*promptText*/) { return false; }
};

}  // namespace vestrel
