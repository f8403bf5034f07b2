// A controller with a recording host on files in memory: application path "C:\app", log "C:\log.txt", four
// buttons a group. NewShow sets up the show "Gala" with the page "Act 1".
#pragma once

#include <gmock/gmock.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controller/clsButtonGroupController.h"
#include "core/Cast.h"
#include "core/Error.h"
#include "core/clsString.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/RecordingForm.h"
#include "util/modLog.h"

namespace vestrel::test {

using Calls = std::vector<std::string>;

class ControllerFixture : public TestPlatform {
 protected:
  static constexpr std::u16string_view kApp = u"C:\\app";
  static constexpr std::u16string_view kLog = u"C:\\log.txt";
  static constexpr std::u16string_view kShowFile = u"C:\\app\\Sequences\\Gala\\pageSetting.ini";
  static constexpr std::u16string_view kOtherFile = u"C:\\app\\Sequences\\Encore\\Act 9\\pageSetting.ini";
  static constexpr std::u16string_view kPageFile = u"C:\\app\\Sequences\\Gala\\Act 1\\pageSetting.ini";

  ControllerFixture() {
    files.PutFolder(kApp);
    modLog::Init(kLog);
    Start();
  }

  void Start() {
    controller = MakeRef<clsButtonGroupController>();
    controller->Init(form.get(), kApp, lamps.get(), recorder.get());
    controller->setButtonGroupPageSize(4);
    Forget();
  }
  void NewShow() {
    controller->CreateNewShow(u"Gala");
    controller->AddPage(u"Act 1");
    Forget();
  }
  // Calls and log lines so far are not looked at.
  void Forget() {
    transcript.Take();
    TakeLog();
  }

  // A button at an index of a group whose first run is shown.
  Ref<clsButton> Assign(std::int32_t group, std::int32_t index, std::u16string_view name,
                        ButtonTypeEnum type = ButtonType_Sequence) {
    controller->assignButton(group, index, name, type);
    Ref<clsButton> result = controller->buttonWithIndex(group, index);
    Forget();
    return result;
  }
  // Picks the button for editing, as the operator does.
  void Pick(clsButton& button) {
    controller->setModeEditing(true);
    if (button.groupIndex != 0) controller->goToPageWithButtonIndex(button.groupIndex, button.buttonIndex);
    controller->controlClicked(ControlOf(button), 1, 0, 0, 0);
    Forget();
  }
  static std::int32_t ControlOf(const clsButton& button) {
    if (button.groupIndex == 0) return button.buttonIndex;
    return 33 + (button.groupIndex - 1) * 4 + (button.buttonIndex - 1) % 4;
  }
  void Click(std::int32_t control) { controller->controlClicked(control, 1, 0, 0, 0); }
  void TurnOn(clsButton& button) {
    button.setPlayState(PlayState_On, PSEventSource_User, 1, 0, 0, 0);
    Forget();
  }

  Ref<clsPage> Page() const { return controller->PageManager()->CurrentPage(); }
  Ref<clsButtonGroup> Group(std::int32_t g) const { return Page()->ButtonGroups(g); }
  // "Intro@2/5 Chase@2/6".
  static std::string Text(const clsObjectList& list) {
    std::string result;
    for (Object* item : list.Snapshot()) {
      if (!result.empty()) result += ' ';
      result += Transcript::Text(&Cast<clsButton>(item));
    }
    return result;
  }
  static std::string Text(const Ref<clsButton>& button) { return Transcript::Text(button.get()); }
  std::string Buttons(std::int32_t g) const { return Text(*Group(g)->buttons); }
  std::string Playing(std::int32_t g) const { return Text(*Group(g)->nowPlayingList); }
  static std::string Names(const Ref<clsObjectList>& names) {
    std::string result;
    for (Object* item : names->Snapshot()) {
      if (!result.empty()) result += '|';
      result += ToUtf8(Cast<clsString>(item).value());
    }
    return result;
  }

  // The log lines since the last call.
  std::vector<std::string> TakeLog() {
    const std::string bytes = files.Get(kLog);
    std::vector<std::string> result;
    for (std::size_t end = 0; (end = bytes.find("\r\n", logRead_)) != std::string::npos; logRead_ = end + 2) {
      result.push_back(bytes.substr(logRead_, end - logRead_));
    }
    return result;
  }
  std::string PageBytes() const { return files.Get(kPageFile); }
  // The host does that inside the first callback that begins so.
  void InFirst(std::string_view callback, std::function<void()> action) {
    transcript.onCall = [this, callback, action = std::move(action)](const std::string& call) {
      if (!call.starts_with(callback)) return;
      transcript.onCall = nullptr;
      action();
    };
  }
  // A show of one empty page, in place of the one that NewShow sets up.
  void ReplaceShow() {
    controller->CreateNewShow(u"Encore");
    controller->AddPage(u"Act 9");
  }
  // Takes the place of form, lamps and recorder failing: error `number` from inside the callback named.
  void FailIn(std::string_view callback, std::int32_t number) {
    transcript.onCall = [callback, number](const std::string& call) {
      if (call.starts_with(callback)) throw Error(number, u"host", u"host failed");
    };
  }

  Transcript transcript;
  Ref<RecordingForm> form = MakeRef<RecordingForm>(transcript);
  Ref<RecordingLamps> lamps = MakeRef<RecordingLamps>(transcript);
  Ref<RecordingRecorder> recorder = MakeRef<RecordingRecorder>(transcript);
  Ref<RecordingAssignment> assignment = MakeRef<RecordingAssignment>(transcript);
  Ref<clsButtonGroupController> controller;

 private:
  std::size_t logRead_ = 0;
};

}  // namespace vestrel::test
