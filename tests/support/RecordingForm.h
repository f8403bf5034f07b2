// A host for tests of the controller: form, lamp output, transport bar and assignment callback that write
// down every call in the order in which they come, give the answers a test has set, and run what a test hangs
// into a call.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "controller/interfaces/IAssignmentCallback.h"
#include "controller/interfaces/IFormSequenceShortcuts.h"
#include "controller/interfaces/ILEDSetter.h"
#include "controller/interfaces/IRecordController.h"
#include "controller/interfaces/IRecordEventHandler.h"
#include "core/Convert.h"
#include "model/clsButton.h"
#include "recording/vxEvent.h"
#include "tests/support/Allocations.h"

namespace vestrel::test {

// What all parts of one host write to.
class Transcript {
 public:
  std::vector<std::string> calls;
  // Called inside every call, after it was written down.
  std::function<void(const std::string& call)> onCall;

  template <class... Args>
  void Note(std::string_view name, const Args&... args) {
    const Allocations::Spared spared;
    std::string call(name);
    call += '(';
    std::string_view separator;
    ((call.append(separator).append(Text(args)), separator = ", "), ...);
    call += ')';
    calls.push_back(call);
    if (!onCall) return;
    const auto action = onCall;
    action(call);
  }

  // The calls so far, which are forgotten.
  std::vector<std::string> Take() { return std::exchange(calls, {}); }
  // Those of one name, all others forgotten as well.
  std::vector<std::string> Take(std::string_view name) {
    std::vector<std::string> result;
    for (std::string& call : Take()) {
      if (call.starts_with(name) && call[name.size()] == '(') result.push_back(std::move(call));
    }
    return result;
  }

  static std::string Text(clsButton* button) {
    if (button == nullptr) return "-";
    return ToUtf8(button->name) + "@" + std::to_string(button->groupIndex) + "/" +
           std::to_string(button->buttonIndex);
  }

 private:
  static std::string Text(bool value) { return value ? "true" : "false"; }
  static std::string Text(float value) { return ToUtf8(SingleToText(value)); }
  static std::string Text(std::u16string_view value) { return ToUtf8(value); }
  static std::string Text(vxEvent* event) {
    return std::to_string(event->time()) + (event->eventType == vxEvent_ButtonOn ? " on " : " off ") +
           Text(event->button.get());
  }
  template <class T, class = std::enable_if_t<std::is_integral_v<T> || std::is_enum_v<T>>>
  static std::string Text(T value) {
    return std::to_string(static_cast<std::int32_t>(value));
  }
};

class RecordingForm : public virtual IFormSequenceShortcuts {
 public:
  explicit RecordingForm(Transcript& transcript) : transcript_(transcript) {}

  // Answers.
  bool overwrite = false;
  std::u16string newName;
  TUIFaderValues positions;

  void SetButtonGroupPageCaption(std::int32_t groupIndex, std::u16string_view caption) override {
    transcript_.Note("SetButtonGroupPageCaption", groupIndex, caption);
  }
  void RefreshPage(IFSSRefreshEnum refreshType, std::int32_t justGroupIndex, clsButton* justButton) override {
    transcript_.Note("RefreshPage", refreshType, justGroupIndex, justButton);
  }
  void SetFlashing(bool state) override { transcript_.Note("SetFlashing", state); }
  void ShowEditPopup(clsButton* button) override { transcript_.Note("ShowEditPopup", button); }
  void DisableEditMode() override { transcript_.Note("DisableEditMode"); }
  void CopyButtonFiles(ButtonTypeEnum buttonType, std::u16string_view srcPageName,
                       std::u16string_view srcButtonName, std::u16string_view destPageName,
                       std::u16string_view destButtonName, bool deleteSource) override {
    transcript_.Note("CopyButtonFiles", buttonType, srcPageName, srcButtonName, destPageName, destButtonName,
                     deleteSource);
  }
  void DeleteButton(clsButton* button, bool noPrompt) override {
    transcript_.Note("DeleteButton", button, noPrompt);
  }
  std::u16string RenameButton(clsButton* button, std::int32_t controlIndex) override {
    transcript_.Note("RenameButton", button, controlIndex);
    return newName;
  }
  void ButtonStateChanged(clsButton* button, std::int16_t mouseButton, std::int16_t shift, float x,
                          float y) override {
    transcript_.Note("ButtonStateChanged", button, mouseButton, shift, x, y);
  }
  void LockStateChanged(clsButton* button) override { transcript_.Note("LockStateChanged", button); }
  void UpdateFaderUI(IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value) override {
    transcript_.Note("UpdateFaderUI", faderType, index, value);
  }
  void FaderModeChanged(clsButton* button) override { transcript_.Note("FaderModeChanged", button); }
  void HighlightBump(std::int32_t bumpIndex, bool state) override {
    transcript_.Note("HighlightBump", bumpIndex, state);
  }
  void ReleaseButton(clsButton* button) override { transcript_.Note("ReleaseButton", button); }
  void GoFromSubmaster(clsButton* button, std::int16_t crossFade, float overRideTime,
                       bool manualCrossfade) override {
    transcript_.Note("GoFromSubmaster", button, crossFade, overRideTime, manualCrossfade);
  }
  void GetUIFaderValues(TUIFaderValues& values) override {
    values = positions;
    transcript_.Note("GetUIFaderValues");
  }
  void UpdateFaderModelValue(IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value, bool caught,
                             clsButton* button) override {
    transcript_.Note("UpdateFaderModelValue", faderType, index, value, caught, button);
  }
  void HideSplashScreen() override { transcript_.Note("HideSplashScreen"); }
  void CreateMarkFadeButton(clsButton* button, std::u16string_view originalName,
                            MarkFadeTypeEnum mfType) override {
    transcript_.Note("CreateMarkFadeButton", button, originalName, mfType);
  }
  bool PromptButtonOverwrite(std::u16string_view promptText) override {
    transcript_.Note("PromptButtonOverwrite", promptText);
    return overwrite;
  }

 private:
  Transcript& transcript_;
};

class RecordingLamps : public virtual ILEDSetter {
 public:
  explicit RecordingLamps(Transcript& transcript) : transcript_(transcript) {}

  void setLED(std::uint8_t ledGroupCode, std::int16_t bits, bool state) override {
    transcript_.Note("setLED", ledGroupCode, bits, state);
  }
  void StartLEDTimer() override { transcript_.Note("StartLEDTimer"); }
  void EndLEDTimer() override { transcript_.Note("EndLEDTimer"); }

 private:
  Transcript& transcript_;
};

class RecordingTransport : public virtual IRecordEventHandler {
 public:
  explicit RecordingTransport(Transcript& transcript) : transcript_(transcript) {}

  void UpdateTimecodeDisplay(std::int32_t value) override {
    transcript_.Note("UpdateTimecodeDisplay", value);
  }
  void SetTimerEnabled(bool value) override { transcript_.Note("SetTimerEnabled", value); }
  void TransportStateChanged(TransportStateEnum transportState, bool recording) override {
    transcript_.Note("TransportStateChanged", transportState, recording);
  }
  void NewEventRecorded(vxEvent* ev) override { transcript_.Note("NewEventRecorded", ev); }
  void CurrentPlayingEvent(vxEvent* ev, std::int32_t eventIndex) override {
    transcript_.Note("CurrentPlayingEvent", ev, eventIndex);
  }
  void RefreshList() override { transcript_.Note("RefreshList"); }

 private:
  Transcript& transcript_;
};

class RecordingAssignment : public virtual IAssignmentCallback {
 public:
  explicit RecordingAssignment(Transcript& transcript) : transcript_(transcript) {}

  void CompleteAssignment(bool forceOverwrite) override {
    transcript_.Note("CompleteAssignment", forceOverwrite);
  }

 private:
  Transcript& transcript_;
};

// A record controller that only writes down what it is told.
class RecordingRecorder final : public virtual IRecordController {
 public:
  explicit RecordingRecorder(Transcript& transcript) : transcript_(transcript) {}

  void ButtonPlaystateChanged(clsButton* button, PSEventSourceEnum eventSource, std::int16_t mouseButton,
                              std::int16_t shift, float x, float y) override {
    transcript_.Note("ButtonPlaystateChanged", button, eventSource, mouseButton, shift, x, y);
  }

 private:
  Transcript& transcript_;
};

}  // namespace vestrel::test
