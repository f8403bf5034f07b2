#include "workbench/host/HostForm.h"

#include "workbench/host/SimulatedHost.h"

namespace vestrel::workbench {

void HostForm::SetButtonGroupPageCaption(std::int32_t groupIndex, std::u16string_view caption) {
  host_.calls().Callback("SetButtonGroupPageCaption", groupIndex, caption);
  if (groupIndex >= 0 && groupIndex <= 9) captions_[groupIndex] = caption;
}

std::u16string HostForm::caption(std::int32_t groupIndex) const {
  const auto found = captions_.find(groupIndex);
  return found == captions_.end() ? std::u16string() : found->second;
}

void HostForm::RefreshPage(IFSSRefreshEnum refreshType, std::int32_t justGroupIndex, clsButton* justButton) {
  host_.calls().Callback("RefreshPage", refreshType, justGroupIndex, justButton);
  if (refreshType != IFSSRefresh_Control) host_.LayOut();
}

void HostForm::SetFlashing(bool state) {
  host_.calls().Callback("SetFlashing", state);
  flashing_ = state;
}

void HostForm::ShowEditPopup(clsButton* button) {
  host_.calls().Callback("ShowEditPopup", button);
  editPopup_ = button;
}

void HostForm::DisableEditMode() {
  host_.calls().Callback("DisableEditMode");
  editPopup_ = nullptr;
  host_.LeaveEditMode();
}

void HostForm::CopyButtonFiles(ButtonTypeEnum buttonType, std::u16string_view srcPageName,
                               std::u16string_view srcButtonName, std::u16string_view destPageName,
                               std::u16string_view destButtonName, bool deleteSource) {
  host_.calls().Callback("CopyButtonFiles", buttonType, srcPageName, srcButtonName, destPageName,
                         destButtonName, deleteSource);
  const ItemName from{std::u16string(srcPageName), std::u16string(srcButtonName)};
  const ItemName to{std::u16string(destPageName), std::u16string(destButtonName)};
  if (deleteSource) {
    host_.files().Move(buttonType, from, to);
  } else {
    host_.files().Copy(buttonType, from, to);
  }
}

void HostForm::DeleteButton(clsButton* button, bool noPrompt) {
  const bool deletes = noPrompt || host_.dialogs().ConfirmDelete(*button);
  host_.calls().CallbackWithNote("DeleteButton", noPrompt ? "" : " -> " + ValueText(deletes), button,
                                 noPrompt);
  if (deletes) host_.files().Delete(button->buttonType, {CurrentPageName(), button->name});
}

std::u16string HostForm::RenameButton(clsButton* button, std::int32_t controlIndex) {
  const std::u16string answer = host_.dialogs().AskName(*button);
  host_.calls().CallbackWithNote("RenameButton", " -> " + ValueText(answer), button, controlIndex);
  if (!answer.empty()) {
    const std::u16string page = CurrentPageName();
    host_.files().Move(button->buttonType, {page, button->name}, {page, answer});
  }
  return answer;
}

void HostForm::ButtonStateChanged(clsButton* button, std::int16_t mouseButton, std::int16_t shift, float x,
                                  float y) {
  host_.calls().Callback("ButtonStateChanged", button, mouseButton, shift, x, y);
  host_.stage().Follow(*button, host_.Now());
  if (button->playState() == PlayState_On && host_.releaseOnPlay()) host_.ReleaseOthers(*button);
}

void HostForm::LockStateChanged(clsButton* button) {
  host_.calls().Callback("LockStateChanged", button);
}

void HostForm::UpdateFaderUI(IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value) {
  host_.calls().Callback("UpdateFaderUI", faderType, index, value);
}

void HostForm::FaderModeChanged(clsButton* button) {
  host_.calls().Callback("FaderModeChanged", button);
}

void HostForm::HighlightBump(std::int32_t bumpIndex, bool state) {
  host_.calls().Callback("HighlightBump", bumpIndex, state);
  if (bumpIndex >= 1 && bumpIndex <= 8) bumpMarkers_.at(Position(bumpIndex)) = state;
}

void HostForm::ReleaseButton(clsButton* button) {
  host_.calls().Callback("ReleaseButton", button);
}

void HostForm::GoFromSubmaster(clsButton* button, std::int16_t crossFade, float overRideTime,
                               bool manualCrossfade) {
  host_.calls().Callback("GoFromSubmaster", button, crossFade, overRideTime, manualCrossfade);
  if (button->playState() == PlayState_On) {
    host_.stage().Go(*button);
  } else {
    host_.TurnOn(*button);
  }
}

void HostForm::GetUIFaderValues(TUIFaderValues& values) {
  values = host_.surface().positions();
  host_.calls().Callback("GetUIFaderValues", values);
}

void HostForm::UpdateFaderModelValue(IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value,
                                     bool caught, clsButton* button) {
  host_.calls().Callback("UpdateFaderModelValue", faderType, index, value, caught, button);
  if (button != nullptr) {
    host_.stage().SetLevel(*button, value);
  } else if (faderType == FaderType_Group) {
    host_.SetGroupLevel(index, value);
  }
}

void HostForm::HideSplashScreen() {
  host_.calls().Callback("HideSplashScreen");
  splashScreen_ = false;
}

void HostForm::CreateMarkFadeButton(clsButton* button, std::u16string_view originalName,
                                    MarkFadeTypeEnum mfType) {
  host_.calls().Callback("CreateMarkFadeButton", button, originalName, mfType);
  const std::u16string page = CurrentPageName();
  host_.files().Copy(button->buttonType, {page, std::u16string(originalName)}, {page, button->name});
}

bool HostForm::PromptButtonOverwrite(std::u16string_view promptText) {
  const bool answer = host_.dialogs().ConfirmOverwrite(promptText);
  host_.calls().CallbackWithNote("PromptButtonOverwrite", " -> " + ValueText(answer), promptText);
  return answer;
}

std::u16string HostForm::CurrentPageName() const {
  return host_.controller().PageManager()->CurrentPageName();
}

}  // namespace vestrel::workbench
