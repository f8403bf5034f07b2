// Hosts that call back into the recorder from within its callbacks: whatever they do, nothing is lost that
// they still hold, nothing is touched that is gone, and the recorder works on afterwards.
#include <gmock/gmock.h>

#include "core/Error.h"
#include "storage/TextFile.h"
#include "tests/recording/RecordingFixture.h"
#include "tests/support/AtNextItem.h"
#include "tests/support/Ending.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

using test::ErrorOf;
using testing::ElementsAre;

class ReentrancyTest : public test::RecordingFixture {
 protected:
  ReentrancyTest() {
    clock.ticks = 0;
    recorder->Init(bar.get());
    map->Add(u"a", Button(u"a").get());
    files.Put(u"C:\\take.txt", "1\r\n15,\"a\",0,0,0,0,0\r\n");
  }

  void Fill() {
    const char16_t* const names[] = {u"a", u"b", u"c", u"d"};
    for (std::int32_t i = 0; i < 4; ++i) {
      recorder->EventList()->AddItem(Event(10 * (i + 1), names[i]).get());
    }
  }
  void Tick(std::uint32_t milliseconds) {
    clock.ticks += milliseconds;
    recorder->TimerTick();
  }
  // Does `work` at the first report that is `text`.
  void At(const std::string& text, std::function<void()> work) {
    bar->onNote = [this, text, work = std::move(work)](const std::string& note) {
      if (note != text) return;
      bar->onNote = nullptr;
      work();
    };
  }

  Ref<test::JournalBar> bar = MakeRef<test::JournalBar>(journal);
  Ref<clsRecordController> recorder = MakeRef<clsRecordController>();
  Ref<clsDictionary> map = MakeRef<clsDictionary>();
};

TEST_F(ReentrancyTest, ClearingWhileAnEventFiresEndsTheTick) {
  Fill();
  recorder->Play();
  At("playing 20 #1", [&] { recorder->ClearEvents(); });
  TakeJournal();
  Tick(100);
  EXPECT_THAT(journal, ElementsAre("timecode 100", "a on 2 0 0 0 0", "playing 10 #0", "b on 2 0 0 0 0",
                                   "playing 20 #1"));
}

TEST_F(ReentrancyTest, LoadingWhileAnEventFiresGoesOnInTheNewList) {
  Fill();
  recorder->Play();
  At("playing 10 #0", [&] {
    files.Put(u"C:\\take.txt", "2\r\n1,\"a\",0,0,0,0,0\r\n2,\"a\",1,0,0,0,0\r\n");
    recorder->LoadEventsFrom(u"C:\\take.txt", map.get());
  });
  TakeJournal();
  Tick(12);
  EXPECT_THAT(journal, ElementsAre("timecode 12", "a on 2 0 0 0 0", "playing 10 #0", "playing 2 #1"));
}

TEST_F(ReentrancyTest, RemovingAndAddingWhileAnEventFiresIsSeenAtOnce) {
  Fill();
  recorder->Play();
  At("playing 10 #0", [&] {
    recorder->EventList()->Remove(1);
    recorder->EventList()->AddItem(Event(50, u"e").get());
  });
  TakeJournal();
  Tick(60);
  EXPECT_THAT(journal,
              ElementsAre("timecode 60", "a on 2 0 0 0 0", "playing 10 #0", "c on 2 0 0 0 0", "playing 30 #1",
                          "d on 2 0 0 0 0", "playing 40 #2", "e on 2 0 0 0 0", "playing 50 #3"));
}

TEST_F(ReentrancyTest, TheEventThatFiresMayLoseItsButton) {
  Fill();
  recorder->Play();
  buttons->onChange = [&](clsButton*) {
    const Ref<clsObjectList> list = recorder->EventList();
    for (std::int32_t i = 0; i < list->Size(); ++i) Cast<vxEvent>(list->GetItem(i).get()).button = nullptr;
    list->Clear();
    while (list->Size() < 4) list->AddItem(Event(99, nullptr).get());  // lets go of the vacated slots
  };
  Tick(10);
  EXPECT_EQ(recorder->EventList()->Size(), 4);
}

// A list on its own with the event "10 a", whose handler nobody else keeps.
class ListReentrancyTest : public ReentrancyTest {
 protected:
  ListReentrancyTest() {
    list->Init(first);
    handlerOfTest = nullptr;
    list->events()->AddItem(Event(10, u"a").get());
  }

  Ref<test::JournalList> handlerOfTest = MakeRef<test::JournalList>(journal);
  test::JournalList* const first = handlerOfTest.get();
  Ref<test::JournalList> second = MakeRef<test::JournalList>(journal);
  Ref<vxEventList> list = MakeRef<vxEventList>();
};

TEST_F(ListReentrancyTest, AHandlerThatAButtonReplacedIsGoneAndTheNewOneIsTold) {
  const long alive = Object::LiveCount();
  buttons->onChange = [&](clsButton*) {
    list->Init(second.get());
    // The handler, the list of events and its event are gone, but for the event that fires; a list is new.
    EXPECT_EQ(Object::LiveCount(), alive - 1);
  };
  list->UpdateTime(10);
  EXPECT_THAT(journal, ElementsAre("a on 2 0 0 0 0", "fired 10 #0"));
}

TEST_F(ListReentrancyTest, AHandlerThatReplacesItselfLivesUntilItReturns) {
  first->onFired = [this, mark = std::make_shared<int>(7)] {
    const std::weak_ptr<int> own = mark;
    list->Init(second.get());
    EXPECT_FALSE(own.expired());
    journal.push_back("still " + std::to_string(*own.lock()));
  };
  list->UpdateTime(10);
  list->events()->AddItem(Event(20, u"b").get());
  list->SeekToEventIndex(0);
  list->UpdateTime(20);
  EXPECT_THAT(journal,
              ElementsAre("a on 2 0 0 0 0", "fired 10 #0", "still 7", "b on 2 0 0 0 0", "fired 20 #0"));
}

TEST_F(ListReentrancyTest, TheListMayBeReleasedByItsHandler) {
  vxEventList* const borrowed = list.get();
  first->onFired = [&] { list = nullptr; };
  borrowed->UpdateTime(10);
  EXPECT_FALSE(list);
  EXPECT_THAT(journal, ElementsAre("a on 2 0 0 0 0", "fired 10 #0"));
}

TEST_F(ListReentrancyTest, TheLogLevelAfterTheCallsOutDecidesOnTheLine) {
  modLog::SetLogLevel(LogLevel_3_INFO);
  TakeLog();
  first->onFired = [&] {
    Cast<vxEvent>(list->events()->GetItem(0).get()).button = nullptr;
    modLog::SetLogLevel(LogLevel_4_SPEW);
  };
  list->UpdateTime(10);
  EXPECT_EQ(TakeLog(), "[Spew] Playing button a @ time 10\r\n");
  list->events()->AddItem(Event(20, u"b").get());
  first->onFired = [] { modLog::SetLogLevel(LogLevel_3_INFO); };
  list->UpdateTime(20);
  EXPECT_EQ(TakeLog(), "");
}

// The library holds the button, the button its handler alone: with an event the handler goes.
TEST_F(ReentrancyTest, TheEndOfAHandlerMayCloseTheFileThatIsRead) {
  const auto close = [] { TextFile::Close(1); };
  const auto goingEvent = [&] {
    const Ref<clsButton> button = MakeRef<clsButton>();
    button->Init(MakeRef<test::Ending<IButtonEventHandler>>(close).get(), nullptr);
    const Ref<vxEvent> event = MakeRef<vxEvent>();
    event->button = button;
    return event;
  };
  for (const std::string_view line : {"15,\"a\",1,0,0,0,0\r\n", "15 ,\"a\",1,0,0,0,0\r\n"}) {
    files.Put(u"C:\\one.txt", line);
    const Ref<vxEvent> event = goingEvent();
    TextFile::Open(1, u"C:\\one.txt", TextFile::Mode::Input);
    event->ReadFromFile(1, map.get());
    EXPECT_EQ(event->time(), 15);
    EXPECT_EQ(event->button, map->ValueOf(u"a"));
    EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Input(1));
  }

  const Ref<vxEventList> list = MakeRef<vxEventList>();
  list->Init(nullptr);
  list->events()->AddItem(goingEvent().get());
  TextFile::Open(1, u"C:\\take.txt", TextFile::Mode::Input);
  list->ReadFromFile(1, map.get());
  EXPECT_EQ(list->events()->Size(), 1);
  EXPECT_RAISES(Error_BadFileNameOrNumber, TextFile::Input(1));
}

TEST_F(ReentrancyTest, TheEndOfAnObserverMayStartTheListAnewWhileATakeIsMerged) {
  Ref<vxEventList> list = MakeRef<vxEventList>();
  for (const bool letGo : {false, true}) {
    list->Init(nullptr);
    const auto restart = [&list, letGo] {
      if (list) list->Init(nullptr);
      if (letGo) list = nullptr;
    };
    list->events()->SetEventHandler(MakeRef<test::Ending<IObjListEventHandler>>(restart).get(), nullptr);
    list->SetRecordMode(RecordMode_Overwrite);
    list->StartRecording();
    list->AddEvent(Event(5, u"a").get());
    vxEventList& borrowed = *list;
    borrowed.StopRecording();
    EXPECT_EQ(list ? list->events()->Size() : -1, letGo ? -1 : 0);
  }
}

TEST_F(ReentrancyTest, TheEndOfWhatATakeOrInitReplacesMayBeginATake) {
  const Ref<vxEventList> list = MakeRef<vxEventList>();
  // In the take under way.
  const auto endingTake = [&](std::function<void()> atEnd) {
    list->StartRecording();
    const Ref<clsButton> button = MakeRef<clsButton>();
    button->Init(MakeRef<test::Ending<IButtonEventHandler>>(std::move(atEnd)).get(), nullptr);
    const Ref<vxEvent> event = MakeRef<vxEvent>();
    event->Init(1, button.get(), vxEvent_ButtonOn);
    list->AddEvent(event.get());
  };
  list->Init(nullptr);
  endingTake([&] {
    list->StopRecording();
    list->StartRecording();
    list->AddEvent(Event(2, u"new").get());
  });
  list->StartRecording();
  list->StopRecording();
  EXPECT_EQ(Text(*list->events()), "2 new");

  endingTake([&] {
    list->StartRecording();
    list->AddEvent(Event(3, u"newer").get());
  });
  list->Init(nullptr);
  list->StopRecording();
  EXPECT_EQ(Text(*list->events()), "3 newer");
}

TEST_F(ReentrancyTest, TheEndOfWhatInitReplacesMayRecordAndPlay) {
  const auto begin = [&] {
    recorder->Record();
    recorder->ButtonPlaystateChanged(Button(u"new").get(), PSEventSource_User, 0, 0, 0, 0);
  };
  recorder->EventList()->SetEventHandler(MakeRef<test::Ending<IObjListEventHandler>>(begin).get(), nullptr);
  recorder->Init(bar.get());
  recorder->Record();
  EXPECT_EQ(Text(*recorder->EventList()), "0 new");
}

TEST_F(ReentrancyTest, StoppingWhileAnEventFiresRewindsTheNextTick) {
  Fill();
  recorder->Play();
  At("playing 20 #1", [&] { recorder->Stop_(); });
  TakeJournal();
  Tick(25);
  EXPECT_THAT(journal, ElementsAre("timecode 25", "a on 2 0 0 0 0", "playing 10 #0", "b on 2 0 0 0 0",
                                   "playing 20 #1", "timecode 0", "timer off", "state 0", "playing 20 #1"));
}

TEST_F(ReentrancyTest, APauseIsInForceWhenTheTimerIsSwitchedOff) {
  recorder->Play();
  At("timer off", [&] { recorder->Play(); });
  TakeJournal();
  recorder->Play();
  EXPECT_EQ(journal.at(0), "timer off");
  EXPECT_EQ(journal.at(1), "timer on");
}

TEST_F(ReentrancyTest, EndingAnOverwriteTakeWhileItRecordsReplacesTheList) {
  Fill();
  recorder->SetRecordMode(RecordMode_Overwrite);
  recorder->Record();
  const Ref<clsButton> button = Button(u"new");
  Tick(15);
  At("recorded 15", [&] { recorder->Record(); });
  recorder->ButtonPlaystateChanged(button.get(), PSEventSource_User, 0, 0, 0, 0);
  EXPECT_EQ(Text(*recorder->EventList()), "15 new, 20 b, 30 c, 40 d");
}

TEST_F(ReentrancyTest, BeginningATakeWhileOneIsMergedKeepsTheNewOne) {
  const Ref<test::AtNextItem> restart = MakeRef<test::AtNextItem>();
  recorder->EventList()->SetEventHandler(restart.get(), nullptr);
  const Ref<clsButton> button = Button(u"x");
  recorder->Record();
  recorder->ButtonPlaystateChanged(button.get(), PSEventSource_User, 0, 0, 0, 0);
  const Ref<vxEventList> list = MakeRef<vxEventList>();
  list->Init(nullptr);
  list->events()->SetEventHandler(restart.get(), nullptr);
  list->StartRecording();
  list->AddEvent(Event(1, u"first").get());
  restart->work = [&] { list->StartRecording(); };
  list->StopRecording();
  list->AddEvent(Event(2, u"second").get());
  list->StopRecording();
  EXPECT_EQ(Text(*list->events()), "1 first, 2 second");
}

TEST_F(ReentrancyTest, TheRecorderMayBeReleasedByAnyCallback) {
  const std::vector<std::pair<std::string, std::function<void(clsRecordController*)>>> cases = {
      {"timecode 40", [](clsRecordController* r) { r->TimerTick(); }},
      {"playing 10 #0", [](clsRecordController* r) { r->TimerTick(); }},
      {"timer off", [](clsRecordController* r) { r->Stop_(); }},
      {"timecode 0", [](clsRecordController* r) { r->Stop_(); }},
      {"state 2", [](clsRecordController* r) { r->Play(); }},
      {"state 1 recording", [](clsRecordController* r) { r->Record(); }},
      {"refresh", [](clsRecordController* r) { r->updateEventTime(0, 5); }},
  };
  for (const auto& [report, operation] : cases) {
    recorder = MakeRef<clsRecordController>();
    clock.ticks = 0;
    recorder->Init(bar.get());
    Fill();
    recorder->Play();
    clock.ticks = 40;
    At(report, [&] { recorder = nullptr; });
    operation(recorder.get());
    EXPECT_FALSE(recorder) << report;
  }
}

// Every operation from within every callback.
TEST_F(ReentrancyTest, EveryOperationMayBeCalledFromEveryCallback) {
  const std::vector<std::function<void(clsRecordController&)>> operations = {
      [](clsRecordController& r) { r.EventList(); },
      [&](clsRecordController& r) { r.Init(bar.get()); },
      [](clsRecordController& r) { r.ChangePlaystate(Stopped); },
      [](clsRecordController& r) { r.ChangePlaystate(playing); },
      [](clsRecordController& r) { r.ChangePlaystate(Paused); },
      [](clsRecordController& r) { r.Play(); },
      [](clsRecordController& r) { r.Record(); },
      [](clsRecordController& r) { r.Stop_(); },
      [](clsRecordController& r) { r.ClearEvents(); },
      [](clsRecordController& r) { r.SetRecordMode(RecordMode_Overwrite); },
      [](clsRecordController& r) { r.SetRecordMode(RecordMode_Merge); },
      [](clsRecordController& r) { r.SaveEventsTo(u"C:\\saved.txt"); },
      [&](clsRecordController& r) { r.LoadEventsFrom(u"C:\\take.txt", map.get()); },
      [](clsRecordController& r) { r.TimerTick(); },
      [](clsRecordController& r) { r.SeekToEventIndex(0); },
      [](clsRecordController& r) { r.updateEventTime(0, 33); },
  };
  const std::string callbacks[] = {"timecode", "timer", "state", "recorded", "playing", "refresh", "button"};
  for (const std::string& callback : callbacks) {
    for (const auto& operation : operations) {
      clock.ticks = 0;
      recorder->Init(bar.get());
      Fill();
      int depth = 0;
      const auto nested = [&] {
        if (++depth == 1) ErrorOf([&] { operation(*recorder); });
        --depth;
      };
      bar->onNote = [&](const std::string& note) {
        if (note.rfind(callback, 0) == 0) nested();
      };
      buttons->onChange = [&](clsButton*) {
        if (callback == "button") nested();
      };
      const Ref<clsButton> button = Button(u"user");
      for (int round = 0; round < 3; ++round) {
        ErrorOf([&] { recorder->Record(); });
        ErrorOf([&] { Tick(15); });
        ErrorOf([&] { recorder->ButtonPlaystateChanged(button.get(), PSEventSource_User, 0, 0, 0, 0); });
        ErrorOf([&] { Tick(15); });
        ErrorOf([&] { recorder->Play(); });
        ErrorOf([&] { recorder->updateEventTime(0, 12); });
        ErrorOf([&] { recorder->Stop_(); });
      }
      bar->onNote = nullptr;
      buttons->onChange = nullptr;
      recorder->Stop_();
      recorder->Play();
      recorder->Stop_();
      TakeJournal();
      recorder->Play();
      Tick(1);
      EXPECT_THAT(journal, testing::Contains("timecode 1")) << callback;
    }
  }
}

}  // namespace
}  // namespace vestrel
