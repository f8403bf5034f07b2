// What the recording tests share: a log in memory at its most detailed level, buttons and a transport bar
// that write down what they are told, and short ways to make events and look at lists.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/clsDictionary.h"
#include "recording/clsRecordController.h"
#include "tests/support/FakePlatform.h"
#include "util/modLog.h"

namespace vestrel::test {

// Everything that was reported, in order.
using Journal = std::vector<std::string>;

class JournalButtons : public IButtonEventHandler {
 public:
  VESTREL_OBJECT(JournalButtons, IButtonEventHandler)
  explicit JournalButtons(Journal& journal) : journal_(journal) {}

  void PlayStateChanged(clsButton* button, PSEventSourceEnum eventSource, std::int16_t mouseButton,
                        std::int16_t shift, float x, float y, bool suppressSave) override {
    journal_.push_back(ToUtf8(button->name) + (button->playState() == PlayState_On ? " on " : " off ") +
                       std::to_string(eventSource) + " " + std::to_string(mouseButton) + " " +
                       std::to_string(shift) + " " + std::to_string(static_cast<int>(x)) + " " +
                       std::to_string(static_cast<int>(y)) + (suppressSave ? " unsaved" : ""));
    if (const auto work = onChange) work(button);
  }

  std::function<void(clsButton*)> onChange;

 private:
  Journal& journal_;
};

class JournalList : public IVXEventListHandler {
 public:
  VESTREL_OBJECT(JournalList, IVXEventListHandler)
  explicit JournalList(Journal& journal) : journal_(journal) {}

  void EventFired(vxEvent* ev, std::int32_t eventIndex) override {
    journal_.push_back("fired " + std::to_string(ev->time()) + " #" + std::to_string(eventIndex));
    if (onFired) onFired();
  }

  std::function<void()> onFired;

 private:
  Journal& journal_;
};

class JournalBar : public IRecordEventHandler {
 public:
  VESTREL_OBJECT(JournalBar, IRecordEventHandler)
  explicit JournalBar(Journal& journal) : journal_(journal) {}

  void UpdateTimecodeDisplay(std::int32_t value) override { Note("timecode " + std::to_string(value)); }
  void SetTimerEnabled(bool value) override { Note(value ? "timer on" : "timer off"); }
  void TransportStateChanged(TransportStateEnum state, bool recording) override {
    Note("state " + std::to_string(state) + (recording ? " recording" : ""));
  }
  void NewEventRecorded(vxEvent* ev) override { Note("recorded " + std::to_string(ev->time())); }
  void CurrentPlayingEvent(vxEvent* ev, std::int32_t eventIndex) override {
    Note("playing " + std::to_string(ev->time()) + " #" + std::to_string(eventIndex));
  }
  void RefreshList() override { Note("refresh"); }

  std::function<void(const std::string&)> onNote;

 private:
  void Note(const std::string& text) {
    journal_.push_back(text);
    // A copy, because what it does may replace it.
    if (const auto work = onNote) work(text);
  }

  Journal& journal_;
};

class RecordingFixture : public TestPlatform {
 protected:
  RecordingFixture() {
    files.PutFolder(u"C:");
    modLog::Init(u"C:\\log.txt");
    modLog::SetLogLevel(LogLevel_4_SPEW);
  }

  Ref<clsButton> Button(std::u16string_view name) {
    Ref<clsButton> button = MakeRef<clsButton>();
    button->InitWithValues(nullptr, 1, 1, std::u16string(name), ButtonType_Sequence, buttons.get());
    return button;
  }
  Ref<vxEvent> Event(std::int32_t time, clsButton* button, vxEventTypeEnum type = vxEvent_ButtonOn) {
    Ref<vxEvent> event = MakeRef<vxEvent>();
    event->Init(time, button, type);
    return event;
  }
  // An event of a button of its own, named after the text.
  Ref<vxEvent> Event(std::int32_t time, std::u16string_view name) { return Event(time, Button(name).get()); }

  // "100 a, 200 b": times and button names in the list's order.
  static std::string Text(clsObjectList& list) {
    std::string text;
    for (std::int32_t i = 0; i < list.Size(); ++i) {
      const auto& event = Cast<vxEvent>(list.GetItem(i).get());
      text += (i == 0 ? "" : ", ") + std::to_string(event.time()) + " " + ToUtf8(event.button->name);
    }
    return text;
  }
  Journal TakeJournal() { return std::exchange(journal, {}); }
  // The lines written to the log since the last call.
  std::string TakeLog() {
    const std::string all = files.Get(u"C:\\log.txt");
    return all.substr(std::exchange(logRead_, all.size()));
  }

  Journal journal;
  Ref<JournalButtons> buttons = MakeRef<JournalButtons>(journal);

 private:
  std::size_t logRead_ = 0;
};

// The number of the error that the work raises, 0 when it raises none.
template <class Work>
std::int32_t ErrorOf(Work work) {
  try {
    work();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

}  // namespace vestrel::test
