// A small host in C++ that links the library itself: makes a show, puts buttons on its page, clicks and
// presses them, and prints every callback. The same host is written in three other ways in the folders beside
// this one; all four print examples/transcript.txt.
//
//   native_host FOLDER    an empty folder for the show and the log
#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>

#include "controller/clsButtonGroupController.h"
#include "core/Convert.h"
#include "core/Error.h"
#include "core/Ref.h"
#include "model/clsButton.h"
#include "recording/clsRecordController.h"
#include "util/VestrelStatic.h"

namespace {

using vestrel::clsButton;
using vestrel::clsButtonGroupController;
using vestrel::MakeRef;
using vestrel::Ref;

void Step(std::string_view text) {
  std::cout << "> " << text << "\n";
}

// How arguments are printed: numbers in decimal, True or False, a button by its name.
std::string Shown(bool value) {
  return value ? "True" : "False";
}
std::string Shown(std::string_view value) {
  return std::string(value);
}
std::string Shown(clsButton* button) {
  return button == nullptr ? "none" : vestrel::ToUtf8(button->name);
}
template <class T>
std::string Shown(T number) {
  return std::to_string(static_cast<int>(number));
}

template <class... A>
void Called(const char* name, const A&... arguments) {
  std::cout << "  " << name << "(";
  [[maybe_unused]] const char* separator = "";
  ((std::cout << separator << Shown(arguments), separator = ", "), ...);
  std::cout << ")\n";
}

// The lamps that a call concerns, four hexadecimal digits, lamp 1 the last bit.
std::string Mask(std::int16_t bits) {
  char text[5];
  std::snprintf(text, sizeof text, "%04X", static_cast<unsigned>(static_cast<std::uint16_t>(bits)));
  return text;
}

class Form final : public vestrel::IFormSequenceShortcuts {
 public:
  VESTREL_OBJECT(Form)

  // Borrowed: the controller keeps the form alive, so a counted reference back would keep both for ever.
  clsButtonGroupController* controller = nullptr;

  void RefreshPage(vestrel::IFSSRefreshEnum refreshType, std::int32_t justGroupIndex,
                   clsButton* justButton) override {
    Called("RefreshPage", refreshType, justGroupIndex, justButton);
  }
  void SetFlashing(bool state) override { Called("SetFlashing", state); }
  void ShowEditPopup(clsButton* button) override { Called("ShowEditPopup", button); }
  void DisableEditMode() override {
    Called("DisableEditMode");
    controller->setModeEditing(false);
  }
  void ButtonStateChanged(clsButton* button, std::int16_t mouseButton, std::int16_t shift, float x,
                          float y) override {
    Called("ButtonStateChanged", button, button->playState() == vestrel::PlayState_On, mouseButton, shift, x,
           y);
    // This host's policy: a button of groups 1 to 8 that goes on releases the others of its group.
    Ref<clsButton> spared(button);
    if (button->playState() == vestrel::PlayState_On)
      controller->releaseButtonsOnPage(button->groupIndex, vestrel::ButtonType_None, &spared);
  }
  void UpdateFaderUI(vestrel::IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value) override {
    Called("UpdateFaderUI", faderType, index, value);
  }
  void HighlightBump(std::int32_t bumpIndex, bool state) override {
    Called("HighlightBump", bumpIndex, state);
  }
  void GetUIFaderValues(vestrel::TUIFaderValues& values) override {
    Called("GetUIFaderValues");
    values.GroupFaders[2] = 75;  // the others stand at 0
  }
  void UpdateFaderModelValue(vestrel::IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value,
                             bool caught, clsButton* button) override {
    Called("UpdateFaderModelValue", faderType, index, value, caught, button);
  }
};

class Lamps final : public vestrel::ILEDSetter {
 public:
  VESTREL_OBJECT(Lamps)

  void setLED(std::uint8_t ledGroupCode, std::int16_t bits, bool state) override {
    Called("setLED", ledGroupCode, std::string_view(Mask(bits)), state);
  }
  void StartLEDTimer() override { Called("StartLEDTimer"); }
  void EndLEDTimer() override { Called("EndLEDTimer"); }
};

class Assignment final : public vestrel::IAssignmentCallback {
 public:
  VESTREL_OBJECT(Assignment)

  void CompleteAssignment(bool forceOverwrite) override { Called("CompleteAssignment", forceOverwrite); }
};

void SetUp(clsButtonGroupController& controller, Form& form, const std::u16string& folder) {
  Step("Init");
  MakeRef<vestrel::VestrelStatic>()->Init(folder + u"\\host.log");
  // This host has no transport bar: the empty one that the library offers does.
  const auto recorder = MakeRef<vestrel::clsRecordController>();
  recorder->Init(MakeRef<vestrel::IRecordEventHandler>().get());
  form.controller = &controller;
  controller.Init(&form, folder, MakeRef<Lamps>().get(), recorder.get());
  controller.setButtonGroupPageSize(4);
  Step("CreateNewShow");
  controller.CreateNewShow(u"Gala");
  Step("SetPage");
  controller.SetPage(u"Overture");
}

void PutButtons(clsButtonGroupController& controller) {
  Step("setModeAssign: the operator picks the place of Harbour");
  controller.setModeAssign(u"Harbour", vestrel::ButtonType_Sequence, MakeRef<Assignment>().get());
  Step("controlClicked 33");
  controller.controlClicked(33, 1, 0, 120, 40);
  controller.setModeEditing(false);  // the mode outlives the placement
  Step("assignButton: Lighthouse, Blackout and Strobe are put in place");
  controller.assignButton(1, 2, u"Lighthouse", vestrel::ButtonType_Multi);
  controller.assignButton(0, 17, u"Blackout", vestrel::ButtonType_Auto);
  controller.assignButton(9, 1, u"Strobe", vestrel::ButtonType_Sequence);
}

void Play(clsButtonGroupController& controller) {
  Step("controlClicked 33");
  controller.controlClicked(33, 1, 0, 120, 40);
  Step("controlClicked 34");
  controller.controlClicked(34, 1, 0, 130, 40);
  Step("TimerTick: one blink");
  controller.mLEDManager->TimerTick();
  Step("ToggleBumpMode of the button at control 17");
  controller.setModeEditing(true);
  controller.controlClicked(17, 1, 0, 0, 0);
  controller.ToggleBumpMode();
  Step("controlPressed 17");
  controller.controlPressed(17);
  Step("controlReleased 17");
  controller.controlReleased(17);
  Step("controlPressed 65, the button of bump fader 1");
  controller.controlPressed(65);
  Step("controlReleased 65");
  controller.controlReleased(65);
  Step("groupFaderChanged 1 50");
  controller.groupFaderChanged(1, 50);
}

void Refuse(clsButtonGroupController& controller) {
  Step("assignButton at slot 41 of four times ten");
  try {
    controller.assignButton(2, 41, u"Nowhere", vestrel::ButtonType_Sequence);
  } catch (const vestrel::Error& error) {
    std::cout << "  error " << error.number() << ": " << vestrel::ToUtf8(error.description()) << "\n";
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: native_host FOLDER\n";
    return 2;
  }
  try {
    const auto form = MakeRef<Form>();
    const auto controller = MakeRef<clsButtonGroupController>();
    SetUp(*controller, *form, vestrel::FromUtf8(arguments[1]));
    PutButtons(*controller);
    Play(*controller);
    Refuse(*controller);
    Step("formShutdown");
    controller->formShutdown();
    Step("done");
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
  return 0;
}
