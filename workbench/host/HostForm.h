// The form with the shortcut screen, as far as a host without a screen has one: reports every callback, lays
// the controls out, plays items on the stage, keeps their files and gives the operator's answers. Owned by
// the simulated host and held by the controller.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "controller/interfaces/IFormSequenceShortcuts.h"
#include "core/Ref.h"
#include "model/clsButton.h"

namespace vestrel::workbench {

class SimulatedHost;

class HostForm : public virtual IFormSequenceShortcuts {
 public:
  VESTREL_OBJECT(HostForm, IFormSequenceShortcuts)

  // `host` outlives every call that the library makes.
  explicit HostForm(SimulatedHost& host) noexcept : host_(host) {}

  void SetButtonGroupPageCaption(std::int32_t groupIndex, std::u16string_view caption) override;
  void RefreshPage(IFSSRefreshEnum refreshType, std::int32_t justGroupIndex = 0,
                   clsButton* justButton = nullptr) override;
  void SetFlashing(bool state) override;
  void ShowEditPopup(clsButton* button) override;
  // Answers by leaving the edit mode in the controller as well.
  void DisableEditMode() override;
  void CopyButtonFiles(ButtonTypeEnum buttonType, std::u16string_view srcPageName,
                       std::u16string_view srcButtonName, std::u16string_view destPageName,
                       std::u16string_view destButtonName, bool deleteSource = false) override;
  void DeleteButton(clsButton* button, bool noPrompt = false) override;
  std::u16string RenameButton(clsButton* button, std::int32_t controlIndex) override;
  void ButtonStateChanged(clsButton* button, std::int16_t mouseButton, std::int16_t shift, float x,
                          float y) override;
  void LockStateChanged(clsButton* button) override;
  void UpdateFaderUI(IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value) override;
  void FaderModeChanged(clsButton* button) override;
  void HighlightBump(std::int32_t bumpIndex, bool state) override;
  void ReleaseButton(clsButton* button) override;
  // Turns the button on; an item that plays already goes on to its next step.
  void GoFromSubmaster(clsButton* button, std::int16_t crossFade, float overRideTime,
                       bool manualCrossfade) override;
  void GetUIFaderValues(TUIFaderValues& values) override;
  void UpdateFaderModelValue(IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value, bool caught,
                             clsButton* button = nullptr) override;
  void HideSplashScreen() override;
  void CreateMarkFadeButton(clsButton* button, std::u16string_view originalName,
                            MarkFadeTypeEnum mfType) override;
  bool PromptButtonOverwrite(std::u16string_view promptText) override;

  // Whether the edit indication flashes, and the button whose edit pop-up is open (or none).
  bool flashing() const noexcept { return flashing_; }
  Ref<clsButton> editPopup() const noexcept { return editPopup_; }
  bool splashScreen() const noexcept { return splashScreen_; }
  // What the library called the run that group 0 to 9 shows; empty when it did not, or for another group.
  std::u16string caption(std::int32_t groupIndex) const;
  // Whether the marker of bump fader 1 to 8 is lit.
  bool bumpMarker(std::int32_t bumpIndex) const { return bumpMarkers_.at(Position(bumpIndex)); }

 private:
  static std::size_t Position(std::int32_t index) { return static_cast<std::size_t>(index - 1); }
  std::u16string CurrentPageName() const;

  SimulatedHost& host_;
  bool flashing_ = false;
  bool splashScreen_ = true;
  Ref<clsButton> editPopup_;
  std::map<std::int32_t, std::u16string> captions_;
  std::array<bool, 8> bumpMarkers_{};
};

}  // namespace vestrel::workbench
