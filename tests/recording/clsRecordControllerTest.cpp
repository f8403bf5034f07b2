#include <gmock/gmock.h>

#include "recording/clsRecordController.h"
#include "tests/recording/RecordingFixture.h"

namespace vestrel {
namespace {

using test::ErrorOf;
using test::Journal;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class clsRecordControllerTest : public test::RecordingFixture {
 protected:
  clsRecordControllerTest() {
    clock.ticks = 5000;
    recorder->Init(bar.get());
  }

  // The host's timer ticks once, `milliseconds` after the last.
  void Tick(std::uint32_t milliseconds) {
    clock.ticks += milliseconds;
    recorder->TimerTick();
  }
  void Record(clsButton* button, PlayStateEnum state, PSEventSourceEnum source = PSEventSource_User) {
    button->setPlayState(state, source, 1, 2, 3, 4, true);
    recorder->ButtonPlaystateChanged(button, source, 1, 2, 3, 4);
  }
  void Add(std::int32_t time, std::u16string_view name) {
    recorder->EventList()->AddItem(Event(time, name).get());
  }
  std::string Events() { return Text(*recorder->EventList()); }

  Ref<test::JournalBar> bar = MakeRef<test::JournalBar>(journal);
  Ref<clsRecordController> recorder = MakeRef<clsRecordController>();
};

TEST_F(clsRecordControllerTest, InitLogsAndStartsStoppedAndEmpty) {
  TakeLog();
  recorder->Init(bar.get());
  EXPECT_EQ(TakeLog(), "[Spew] clsRecordController.Init\r\n");
  EXPECT_EQ(recorder->EventList()->Size(), 0);
  EXPECT_THAT(journal, IsEmpty());
  recorder->Stop_();
  EXPECT_THAT(journal, ElementsAre("state 0"));
}

TEST_F(clsRecordControllerTest, InitStartsOver) {
  recorder->Record();
  Tick(120);
  clock.ticks += 1000;
  recorder->Init(bar.get());
  TakeJournal();
  Tick(7);  // since Init, from 0
  EXPECT_THAT(TakeJournal(), ElementsAre("timecode 7"));
  Record(Button(u"a").get(), PlayState_On);
  recorder->Stop_();
  EXPECT_THAT(journal, ElementsAre("state 0"));
  EXPECT_EQ(recorder->EventList()->Size(), 0);
}

TEST_F(clsRecordControllerTest, BeforeInitNothingIsStoppedOrRecorded) {
  const Ref<clsRecordController> raw = MakeRef<clsRecordController>();
  raw->ChangePlaystate(Stopped);
  raw->ButtonPlaystateChanged(Button(u"a").get(), PSEventSource_User, 0, 0, 0, 0);
  EXPECT_EQ(ErrorOf([&] { raw->ChangePlaystate(Paused); }), Error_ObjectNotSet);
}

TEST_F(clsRecordControllerTest, FailsBeforeInitAndWithoutATransportBar) {
  const Ref<clsRecordController> raw = MakeRef<clsRecordController>();
  EXPECT_EQ(ErrorOf([&] { raw->EventList(); }), Error_ObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { raw->Play(); }), Error_ObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { raw->ClearEvents(); }), Error_ObjectNotSet);
  recorder->Init(nullptr);
  EXPECT_EQ(ErrorOf([&] { recorder->Play(); }), Error_ObjectNotSet);
}

// One operation from one state: what the transport bar is told.
struct Transition {
  const char* name;
  TransportStateEnum from;
  bool recording;
  void (clsRecordController::*operation)();
  Journal told;
};

class TransportTest : public clsRecordControllerTest, public testing::WithParamInterface<Transition> {};

TEST_P(TransportTest, TellsTheTransportBar) {
  const Transition& transition = GetParam();
  if (transition.recording) recorder->Record();
  recorder->ChangePlaystate(transition.from);
  TakeJournal();
  (recorder.get()->*transition.operation)();
  EXPECT_EQ(journal, transition.told);
}

constexpr auto kPlay = &clsRecordController::Play;
constexpr auto kRecord = &clsRecordController::Record;
constexpr auto kStop = &clsRecordController::Stop_;

INSTANTIATE_TEST_SUITE_P(
    Transport, TransportTest,
    testing::Values(
        Transition{"StoppedPlay", Stopped, false, kPlay, {"timer on", "state 1"}},
        Transition{"StoppedRecord", Stopped, false, kRecord, {"timer on", "state 1 recording"}},
        Transition{"StoppedStop", Stopped, false, kStop, {"state 0"}},
        Transition{"PlayingPlay", playing, false, kPlay, {"timer off", "state 2"}},
        Transition{"PlayingRecord", playing, false, kRecord, {"state 1 recording"}},
        Transition{"PlayingStop", playing, false, kStop, {"timecode 0", "timer off", "state 0"}},
        Transition{"PausedPlay", Paused, false, kPlay, {"timer on", "state 1"}},
        Transition{"PausedRecord", Paused, false, kRecord, {"timer on", "state 1 recording"}},
        Transition{"PausedStop", Paused, false, kStop, {"timecode 0", "timer off", "state 0"}},
        Transition{"StoppedInATakeRecord", Stopped, true, kRecord, {"state 0"}},
        Transition{"PlayingInATakePlay", playing, true, kPlay, {"timer off", "state 2 recording"}},
        Transition{"PlayingInATakeRecord", playing, true, kRecord, {"state 1"}},
        Transition{"PlayingInATakeStop", playing, true, kStop, {"timecode 0", "timer off", "state 0"}},
        Transition{"PausedInATakePlay", Paused, true, kPlay, {"timer on", "state 1 recording"}},
        Transition{"PausedInATakeRecord", Paused, true, kRecord, {"state 2"}},
        Transition{"PausedInATakeStop", Paused, true, kStop, {"timecode 0", "timer off", "state 0"}}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(clsRecordControllerTest, ChangingToTheSameStateDoesNothing) {
  recorder->ChangePlaystate(Stopped);
  EXPECT_THAT(journal, IsEmpty());
  recorder->ChangePlaystate(playing);
  recorder->ChangePlaystate(playing);
  EXPECT_THAT(journal, ElementsAre("timer on"));
}

TEST_F(clsRecordControllerTest, AnUnknownStateOnlyStopsTheTimer) {
  recorder->ChangePlaystate(playing);
  TakeJournal();
  recorder->ChangePlaystate(static_cast<TransportStateEnum>(9));
  EXPECT_THAT(journal, ElementsAre("timer off"));
  TakeJournal();
  recorder->Play();  // from there, nothing to toggle
  EXPECT_THAT(journal, ElementsAre("state 9"));
}

TEST_F(clsRecordControllerTest, TimeRunsBetweenTicksAndNotWhilePaused) {
  clock.ticks += 700;
  recorder->Play();
  Tick(40);
  Tick(1);
  recorder->Play();
  clock.ticks += 100000;
  recorder->Play();
  Tick(9);
  EXPECT_THAT(journal, ElementsAre("timer on", "state 1", "timecode 40", "timecode 41", "timer off",
                                   "state 2", "timer on", "state 1", "timecode 50"));
}

TEST_F(clsRecordControllerTest, StoppingRewinds) {
  recorder->Play();
  Tick(500);
  recorder->Stop_();
  recorder->Play();
  TakeJournal();
  Tick(3);
  EXPECT_THAT(journal, ElementsAre("timecode 3"));
}

TEST_F(clsRecordControllerTest, TheTickCountMayWrap) {
  clock.ticks = 0xFFFFFFF0U;
  recorder->Play();
  TakeJournal();
  Tick(0x20);
  EXPECT_THAT(journal, ElementsAre("timecode 32"));
  clock.ticks = 0x7FFFFFF0U;
  recorder->Play();
  recorder->Play();
  TakeJournal();
  Tick(0x20);
  EXPECT_THAT(journal, ElementsAre("timecode 64"));
}

TEST_F(clsRecordControllerTest, APositionBeyond32BitsFailsThatTick) {
  recorder->Play();
  Tick(0x7FFFFFFFU);
  EXPECT_THAT(journal, Contains("timecode 2147483647"));
  TakeJournal();
  EXPECT_EQ(ErrorOf([&] { Tick(5); }), Error_Overflow);
  EXPECT_THAT(journal, IsEmpty());
  Tick(0);  // the failed tick's time is gone, the position stays
  EXPECT_THAT(journal, ElementsAre("timecode 2147483647"));
}

TEST_F(clsRecordControllerTest, ATickFiresWhatIsDue) {
  Add(100, u"a");
  Add(150, u"b");
  recorder->Play();
  TakeJournal();
  Tick(99);
  EXPECT_THAT(journal, ElementsAre("timecode 99"));
  Tick(51);
  EXPECT_THAT(journal, ElementsAre("timecode 99", "timecode 150", "a on 2 0 0 0 0", "playing 100 #0",
                                   "b on 2 0 0 0 0", "playing 150 #1"));
}

TEST_F(clsRecordControllerTest, ATickDoesNotAskForTheState) {
  Tick(10);
  EXPECT_THAT(journal, ElementsAre("timecode 10"));
}

TEST_F(clsRecordControllerTest, RecordsChangesByTheUserAlone) {
  const Ref<clsButton> button = Button(u"a");
  recorder->Record();
  Tick(120);
  TakeJournal();
  Record(button.get(), PlayState_On, PSEventSource_RecPlayback);
  Record(button.get(), PlayState_Off, PSEventSource_AutoRelease);
  EXPECT_THAT(journal, IsEmpty());
  Record(button.get(), PlayState_On);
  EXPECT_THAT(journal, ElementsAre("recorded 120"));
  recorder->Stop_();
  EXPECT_EQ(Events(), "120 a");
}

TEST_F(clsRecordControllerTest, RecordsNothingOutsideATake) {
  const Ref<clsButton> button = Button(u"a");
  recorder->Play();
  Record(button.get(), PlayState_On);
  recorder->Record();
  recorder->Record();
  Record(button.get(), PlayState_Off);
  EXPECT_EQ(recorder->EventList()->Size(), 0);
  EXPECT_EQ(ErrorOf([&] { recorder->ButtonPlaystateChanged(nullptr, PSEventSource_User, 0, 0, 0, 0); }),
            Error_ObjectNotSet);
}

TEST_F(clsRecordControllerTest, AnEventHoldsTheClickAndTheStateOfTheButton) {
  const std::pair<PlayStateEnum, vxEventTypeEnum> table[] = {{PlayState_On, vxEvent_ButtonOn},
                                                             {PlayState_Off, vxEvent_ButtonOff},
                                                             {PlayState_Null, vxEvent_ButtonOn}};
  const Ref<clsButton> button = Button(u"a");
  recorder->Record();
  for (const auto& [state, type] : table) Record(button.get(), state);
  recorder->Record();
  ASSERT_EQ(recorder->EventList()->Size(), 3);
  for (std::int32_t i = 0; i < 3; ++i) {
    const auto& event = Cast<vxEvent>(recorder->EventList()->GetItem(i).get());
    EXPECT_EQ(event.eventType, table[i].second);
    EXPECT_EQ(event.button, button);
    EXPECT_EQ(event.mouseButton, 1);
    EXPECT_EQ(event.shift, 2);
    EXPECT_EQ(event.x, 3);
    EXPECT_EQ(event.y, 4);
  }
}

TEST_F(clsRecordControllerTest, EndingATakeKeepsPlaying) {
  recorder->Record();
  Tick(10);
  recorder->Record();
  TakeJournal();
  Tick(5);
  EXPECT_THAT(journal, ElementsAre("timecode 15"));
}

TEST_F(clsRecordControllerTest, StoppingEndsTheTakeBeforeItRewinds) {
  recorder->SetRecordMode(RecordMode_Overwrite);
  Add(100, u"old");
  Add(900, u"kept");
  const Ref<clsButton> button = Button(u"new");
  recorder->Record();
  Tick(50);
  Record(button.get(), PlayState_On);
  Tick(450);
  TakeLog();
  recorder->Stop_();
  EXPECT_EQ(Events(), "50 new, 900 kept");
  EXPECT_EQ(TakeLog(), "[Info] deleting events between 0 and 500\r\n[Info] post-seek playback index: 0\r\n");
}

TEST_F(clsRecordControllerTest, AfterStoppingAnEventAtTheStartCountsAsPlayed) {
  Add(0, u"first");
  Add(5, u"second");
  recorder->Play();
  Tick(1);
  recorder->Stop_();
  recorder->Play();
  TakeJournal();
  Tick(10);
  EXPECT_THAT(journal, ElementsAre("timecode 10", "second on 2 0 0 0 0", "playing 5 #1"));
}

TEST_F(clsRecordControllerTest, MergingWhilePlayingDoesNotDuplicate) {
  Add(100, u"a");
  recorder->Record();
  buttons->onChange = [&](clsButton* button) {
    recorder->ButtonPlaystateChanged(button, PSEventSource_RecPlayback, 0, 0, 0, 0);
  };
  Tick(200);
  recorder->Stop_();
  EXPECT_EQ(Events(), "100 a");
}

TEST_F(clsRecordControllerTest, ClearEventsEmptiesTheListItself) {
  Add(100, u"a");
  const Ref<clsObjectList> list = recorder->EventList();
  recorder->ClearEvents();
  EXPECT_EQ(list->Size(), 0);
  EXPECT_EQ(recorder->EventList(), list);
}

TEST_F(clsRecordControllerTest, SeeksOnlyWhenStopped) {
  Add(100, u"a");
  Add(250, u"b");
  recorder->SeekToEventIndex(1);
  EXPECT_THAT(TakeJournal(), ElementsAre("timecode 250"));
  recorder->Play();
  TakeJournal();
  recorder->SeekToEventIndex(0);
  EXPECT_THAT(journal, IsEmpty());
  Tick(1);
  EXPECT_THAT(TakeJournal(), ElementsAre("timecode 251", "b on 2 0 0 0 0", "playing 250 #1"));
  recorder->Play();
  TakeJournal();
  recorder->SeekToEventIndex(0);
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(clsRecordControllerTest, SeekingInAnEmptyRecordingFails) {
  EXPECT_EQ(ErrorOf([&] { recorder->SeekToEventIndex(0); }), Error_SubscriptOutOfRange);
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(clsRecordControllerTest, ChangingATimeRefreshesTheHostsList) {
  Add(100, u"a");
  Add(250, u"b");
  recorder->updateEventTime(0, 300);
  EXPECT_EQ(Events(), "250 b, 300 a");
  EXPECT_THAT(journal, ElementsAre("refresh"));
}

TEST_F(clsRecordControllerTest, ATimeThatCannotBeChangedRefreshesNothing) {
  EXPECT_EQ(ErrorOf([&] { recorder->updateEventTime(0, 300); }), Error_SubscriptOutOfRange);
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(clsRecordControllerTest, ConvertsTimecodes) {
  EXPECT_EQ(recorder->msToTimecode(3723004), u"01:02:03.004");
  std::int32_t result = -1;
  EXPECT_TRUE(recorder->timecodeToMS(u"00:59.999", result));
  EXPECT_EQ(result, 59999);
}

TEST_F(clsRecordControllerTest, IsNotKeptAliveByItsEventList) {
  const long before = Object::LiveCount();
  {
    const Ref<clsRecordController> other = MakeRef<clsRecordController>();
    other->Init(bar.get());
    other->EventList()->AddItem(Event(1, u"a").get());
  }
  EXPECT_EQ(Object::LiveCount(), before);
}

TEST_F(clsRecordControllerTest, AnswersForItsInterfaces) {
  EXPECT_NE(TryCast<IRecordController>(recorder.get()), nullptr);
  EXPECT_NE(TryCast<IVXEventListHandler>(recorder.get()), nullptr);
}

}  // namespace
}  // namespace vestrel
