// A controller for tests of the model: writes down every call it gets, answers fader positions, and runs what
// a test hangs into a call.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "controller/interfaces/IPageController.h"
#include "core/Cast.h"
#include "core/Convert.h"
#include "model/clsButton.h"
#include "model/clsButtonGroup.h"
#include "model/clsPage.h"

namespace vestrel::test {

class RecordingController : public virtual IPageController {
 public:
  VESTREL_OBJECT(RecordingController, IPageController, IButtonEventHandler, IObjListEventHandler)
  VESTREL_HELD_WEAKLY()

  std::vector<std::string> calls;
  TUIFaderValues positions;
  // Called inside every call, after it was written down, until it is emptied.
  std::function<void()> onCall;

  std::vector<std::string> Take() { return std::exchange(calls, {}); }

  void PlayStateChanged(clsButton* button, PSEventSourceEnum eventSource, std::int16_t mouseButton,
                        std::int16_t shift, float x, float y, bool suppressSave) override {
    Note("PlayStateChanged " + Name(button) + (button->playState() == PlayState_On ? " on" : " off") +
         " source " + std::to_string(eventSource) + " mouse " + std::to_string(mouseButton) + " shift " +
         std::to_string(shift) + " at " + ToUtf8(SingleToText(x)) + "," + ToUtf8(SingleToText(y)) +
         (suppressSave ? " unsaved" : ""));
  }
  void LockStateChanged(clsButton* button) override {
    Note("LockStateChanged " + Name(button) + (button->Locked() ? " locked" : " unlocked"));
  }
  void FaderModeChanged(clsButton* button) override {
    Note("FaderModeChanged " + Name(button) + " " + std::to_string(button->FaderMode()));
  }
  void FaderValueChanged(clsButton* button, bool updateUI) override {
    Note("FaderValueChanged " + Name(button) + " " + std::to_string(button->faderValue()) +
         (updateUI ? " update" : ""));
  }
  void DeferPlaystateFor(clsPage* page, clsButton* button, PlayStateEnum playState,
                         std::int32_t faderValue) override {
    Note("DeferPlaystateFor " + (page == nullptr ? "no page" : ToUtf8(page->pageName())) + " " +
         Name(button) + " " + std::to_string(playState) + " " + std::to_string(faderValue));
  }
  void ItemAdded(clsObjectList* /*list*/, Object* item, std::int32_t atIndex, Object* userData) override {
    Note("ItemAdded " + Name(&Cast<clsButton>(item)) + " at " + std::to_string(atIndex) + " group " +
         std::to_string(Cast<clsButtonGroup>(userData).groupIndex()));
  }
  void ItemRemoved(clsObjectList* /*list*/, Object* item, std::int32_t fromIndex, Object* userData) override {
    Note("ItemRemoved " + Name(&Cast<clsButton>(item)) + " from " + std::to_string(fromIndex) + " group " +
         std::to_string(Cast<clsButtonGroup>(userData).groupIndex()));
  }
  void GetUIFaderValues(TUIFaderValues& values) override {
    values = positions;
    Note("GetUIFaderValues");
  }
  void UpdateFaderModelValue(IFSSFaderTypeEnum faderType, std::int32_t index, std::int32_t value, bool caught,
                             clsButton* button) override {
    Note("UpdateFaderModelValue " + std::to_string(faderType) + " " + std::to_string(index) + " " +
         std::to_string(value) + (caught ? " caught" : "") + (button == nullptr ? "" : " " + Name(button)));
  }

 private:
  static std::string Name(clsButton* button) {
    return ToUtf8(button->name) + "@" + std::to_string(button->groupIndex) + "/" +
           std::to_string(button->buttonIndex);
  }
  void Note(std::string call) {
    calls.push_back(std::move(call));
    if (onCall) {
      const auto action = onCall;
      action();
    }
  }

  WeakSource weakSource_;
};

}  // namespace vestrel::test
