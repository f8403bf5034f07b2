#include <gmock/gmock.h>

#include "recording/vxEventList.h"
#include "tests/recording/RecordingFixture.h"

namespace vestrel {
namespace {

using test::ErrorOf;
using test::Journal;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class vxEventListTest : public test::RecordingFixture {
 protected:
  vxEventListTest() { list->Init(handler.get()); }

  void Add(std::int32_t time, std::u16string_view name) { list->events()->AddItem(Event(time, name).get()); }
  void AddToTake(std::int32_t time, std::u16string_view name) { list->AddEvent(Event(time, name).get()); }
  // Records the events as one take that lasts from `start` to `end`.
  void Take(std::int32_t start, std::int32_t end,
            std::initializer_list<std::pair<std::int32_t, const char16_t*>> events) {
    list->SeekTime(start);
    list->StartRecording();
    for (const auto& [time, name] : events) AddToTake(time, name);
    list->UpdateTime(end);
    list->StopRecording();
  }
  std::string Events() { return Text(*list->events()); }

  Ref<test::JournalList> handler = MakeRef<test::JournalList>(journal);
  Ref<vxEventList> list = MakeRef<vxEventList>();
};

TEST_F(vxEventListTest, IsEmptyAndMergesAfterInit) {
  EXPECT_EQ(list->events()->Size(), 0);
  Add(1500, u"old");
  Take(1000, 3000, {{1500, u"new"}});
  EXPECT_EQ(Events(), "1500 old, 1500 new");
}

TEST_F(vxEventListTest, FailsBeforeInit) {
  const Ref<vxEventList> raw = MakeRef<vxEventList>();
  EXPECT_FALSE(raw->events());
  EXPECT_EQ(ErrorOf([&] { raw->Clear(); }), Error_ObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { raw->UpdateTime(1); }), Error_ObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { raw->SeekTime(1); }), Error_ObjectNotSet);
}

TEST_F(vxEventListTest, InitStartsOver) {
  Add(100, u"a");
  list->UpdateTime(200);
  list->StartRecording();
  list->SetRecordMode(RecordMode_Overwrite);
  list->Init(handler.get());
  EXPECT_EQ(list->events()->Size(), 0);
  EXPECT_EQ(ErrorOf([&] { AddToTake(1, u"x"); }), Error_ObjectNotSet);
  Add(50, u"b");
  TakeJournal();
  list->UpdateTime(60);
  EXPECT_THAT(journal, ElementsAre("b on 2 0 0 0 0", "fired 50 #0"));
}

TEST_F(vxEventListTest, InitEndsTheTake) {
  list->SetRecordMode(RecordMode_Overwrite);
  list->StartRecording();
  list->Init(handler.get());
  EXPECT_EQ(ErrorOf([&] { list->StopRecording(); }), 0);
  list->SetRecordMode(RecordMode_Overwrite);
  Add(50, u"a");
  list->UpdateTime(60);
  EXPECT_THAT(TakeJournal(), ElementsAre("a on 2 0 0 0 0", "fired 50 #0"));
}

TEST_F(vxEventListTest, InitMergesAgainAndRewinds) {
  list->SetRecordMode(RecordMode_Overwrite);
  list->UpdateTime(200);
  list->Init(handler.get());
  Add(50, u"early");
  Add(150, u"old");
  list->StartRecording();  // at 0: a merged take replaces nothing, whatever it covers
  list->UpdateTime(300);
  list->StopRecording();
  EXPECT_EQ(Events(), "50 early, 150 old");
  list->Init(handler.get());
  Add(50, u"early");
  list->SetRecordMode(RecordMode_Overwrite);
  list->StartRecording();  // from 0, where Init left the position
  list->UpdateTime(100);
  list->StopRecording();
  EXPECT_EQ(Events(), "");
}

TEST_F(vxEventListTest, FiresWhatIsDueInOrder) {
  for (const auto& [time, name] : {std::pair{100, u"a"}, {200, u"b"}, {300, u"c"}}) Add(time, name);
  list->SeekTime(0);
  list->UpdateTime(250);
  EXPECT_THAT(journal, ElementsAre("a on 2 0 0 0 0", "fired 100 #0", "b on 2 0 0 0 0", "fired 200 #1"));
  TakeJournal();
  list->UpdateTime(299);
  EXPECT_THAT(journal, IsEmpty());
  list->UpdateTime(300);
  EXPECT_THAT(journal, ElementsAre("c on 2 0 0 0 0", "fired 300 #2"));
}

TEST_F(vxEventListTest, PassesOnTheClickThatWasRecorded) {
  const Ref<clsButton> button = Button(u"a");
  const Ref<vxEvent> on = Event(10, button.get());
  on->SetExtras(1, 2, 3, 4);
  const Ref<vxEvent> off = Event(20, button.get(), vxEvent_ButtonOff);
  off->SetExtras(-5, 6, 7, 8);
  list->events()->AddItem(on.get());
  list->events()->AddItem(off.get());
  list->UpdateTime(20);
  EXPECT_THAT(journal, ElementsAre("a on 2 1 2 3 4", "fired 10 #0", "a off 2 -5 6 7 8", "fired 20 #1"));
}

TEST_F(vxEventListTest, AnUnknownEventTypeSwitchesOff) {
  const Ref<clsButton> button = Button(u"a");
  button->setPlayState(PlayState_On, PSEventSource_User, 0, 0, 0, 0);
  TakeJournal();
  list->events()->AddItem(Event(10, button.get(), static_cast<vxEventTypeEnum>(7)).get());
  list->UpdateTime(20);
  EXPECT_THAT(journal, ElementsAre("a off 2 0 0 0 0", "fired 10 #0"));
}

TEST_F(vxEventListTest, LogsWhatItFires) {
  Add(100, u"Intro");
  TakeLog();
  list->UpdateTime(100);
  EXPECT_EQ(TakeLog(), "[Spew] Playing button Intro @ time 100\r\n");
}

TEST_F(vxEventListTest, WorksWithoutAHandler) {
  list->Init(nullptr);
  Add(100, u"a");
  list->UpdateTime(100);
  EXPECT_THAT(journal, ElementsAre("a on 2 0 0 0 0"));
}

TEST_F(vxEventListTest, UpdateFiresAnEventAtExactlyItsTimeAndSeekSkipsIt) {
  for (const auto& [time, name] : {std::pair{100, u"a"}, {200, u"b"}, {300, u"c"}}) Add(time, name);
  list->SeekTime(200);
  list->UpdateTime(200);
  EXPECT_THAT(journal, IsEmpty());
  list->UpdateTime(300);
  EXPECT_THAT(journal, ElementsAre("c on 2 0 0 0 0", "fired 300 #2"));
  list->SeekTime(100);
  TakeJournal();
  list->UpdateTime(200);
  EXPECT_THAT(journal, ElementsAre("b on 2 0 0 0 0", "fired 200 #1"));
}

TEST_F(vxEventListTest, SeekLogsThePlaybackIndex) {
  Add(100, u"a");
  Add(200, u"b");
  TakeLog();
  list->SeekTime(100);
  EXPECT_EQ(TakeLog(), "[Info] post-seek playback index: 1\r\n");
  list->SeekTime(99);
  EXPECT_EQ(TakeLog(), "[Info] post-seek playback index: 0\r\n");
  list->SeekTime(5000);
  EXPECT_EQ(TakeLog(), "[Info] post-seek playback index: 2\r\n");
}

TEST_F(vxEventListTest, SeekMovesTheStartOfTheNextTake) {
  list->SetRecordMode(RecordMode_Overwrite);
  for (const auto& [time, name] : {std::pair{100, u"a"}, {200, u"b"}, {300, u"c"}}) Add(time, name);
  TakeLog();
  Take(150, 250, {});
  EXPECT_EQ(Events(), "100 a, 300 c");
  EXPECT_THAT(TakeLog(), HasSubstr("[Info] deleting events between 150 and 250\r\n"));
}

TEST_F(vxEventListTest, SeekToAnEventAnswersItsTimeAndPlaysItNext) {
  for (const auto& [time, name] : {std::pair{100, u"a"}, {200, u"b"}, {300, u"c"}}) Add(time, name);
  EXPECT_EQ(list->SeekToEventIndex(1), 200);
  list->UpdateTime(200);
  EXPECT_THAT(journal, ElementsAre("b on 2 0 0 0 0", "fired 200 #1"));
  EXPECT_EQ(list->SeekToEventIndex(99), 300);
  EXPECT_EQ(list->SeekToEventIndex(-3), 100);
}

TEST_F(vxEventListTest, SeekPastTheEndLeavesNothingToFire) {
  for (const auto& [time, name] : {std::pair{100, u"a"}, {200, u"b"}}) Add(time, name);
  list->SeekToEventIndex(2);
  list->UpdateTime(1000);
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(vxEventListTest, SeekToANegativeIndexFiresThatItemBeforeTheFirst) {
  for (const auto& [time, name] : {std::pair{100, u"a"}, {200, u"b"}}) Add(time, name);
  EXPECT_EQ(list->SeekToEventIndex(-1), 200);
  list->UpdateTime(200);
  EXPECT_THAT(journal, ElementsAre("b on 2 0 0 0 0", "fired 200 #-1", "a on 2 0 0 0 0", "fired 100 #0",
                                   "fired 200 #1"));
}

TEST_F(vxEventListTest, SeekToAnEventOfAnEmptyRecordingFails) {
  EXPECT_EQ(ErrorOf([&] { list->SeekToEventIndex(0); }), Error_SubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { list->SeekToEventIndex(-1); }), Error_ObjectNotSet);
  Add(100, u"a");
  list->Clear();
  EXPECT_EQ(list->SeekToEventIndex(-1), 100);  // what the vacated slot holds
}

TEST_F(vxEventListTest, SeekToAnEventMovesTheStartOfTheNextTake) {
  list->SetRecordMode(RecordMode_Overwrite);
  for (const auto& [time, name] : {std::pair{100, u"a"}, {200, u"b"}, {300, u"c"}}) Add(time, name);
  list->SeekToEventIndex(1);
  list->StartRecording();
  list->UpdateTime(300);
  list->StopRecording();
  EXPECT_EQ(Events(), "100 a, 300 c");
}

TEST_F(vxEventListTest, MergeKeepsAndPlaysOldEvents) {
  Add(1500, u"old");
  list->SeekTime(1000);
  list->StartRecording();
  AddToTake(1200, u"new");
  AddToTake(2800, u"later");
  list->UpdateTime(3000);
  EXPECT_THAT(journal, ElementsAre("old on 2 0 0 0 0", "fired 1500 #0"));
  const Ref<clsObjectList> before = list->events();
  list->StopRecording();
  EXPECT_EQ(Events(), "1200 new, 1500 old, 2800 later");
  EXPECT_EQ(list->events(), before);
}

TEST_F(vxEventListTest, OverwriteSilencesAndDropsWhatTheTakeCovers) {
  list->SetRecordMode(RecordMode_Overwrite);
  for (const auto& [time, name] :
       {std::pair{999, u"before"}, {1000, u"start"}, {1500, u"old"}, {3000, u"end"}}) {
    Add(time, name);
  }
  list->SeekTime(999);
  list->StartRecording();
  AddToTake(1200, u"new");
  TakeLog();
  list->SeekTime(1000);
  list->StartRecording();
  AddToTake(1200, u"new");
  list->UpdateTime(2999);
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_THAT(TakeLog(), HasSubstr("[Spew] Overwrite-mode-skipping playback of old @ time 1500\r\n"));
  list->UpdateTime(3000);
  const Ref<clsObjectList> before = list->events();
  list->StopRecording();
  EXPECT_EQ(Events(), "999 before, 1200 new, 3000 end");
  EXPECT_NE(list->events(), before);
}

TEST_F(vxEventListTest, TheRecordModeCountsAtOnce) {
  Add(1500, u"old");
  list->SeekTime(1000);
  list->StartRecording();
  list->SetRecordMode(RecordMode_Overwrite);
  list->UpdateTime(2000);
  EXPECT_THAT(journal, IsEmpty());
  list->SetRecordMode(RecordMode_Merge);
  list->StopRecording();
  EXPECT_EQ(Events(), "1500 old");
}

TEST_F(vxEventListTest, EventsOfEqualTimeKeepTheOrderOfTheirArrival) {
  Add(100, u"a");
  Add(200, u"b");
  Take(0, 300, {{200, u"c"}, {100, u"d"}, {200, u"e"}, {100, u"f"}, {200, u"g"}});
  EXPECT_EQ(Events(), "100 a, 100 d, 100 f, 200 b, 200 c, 200 e, 200 g");
}

TEST_F(vxEventListTest, LateArrivalsOfEqualTimeKeepTheirOrderWithinATake) {
  Take(0, 300, {{100, u"a"}, {200, u"b"}, {150, u"c"}, {150, u"d"}});
  EXPECT_EQ(Events(), "100 a, 150 c, 150 d, 200 b");
}

TEST_F(vxEventListTest, AManyFoldTieStaysInOrderOverSeveralTakes) {
  std::string expected;
  for (int take = 0; take < 5; ++take) {
    list->SeekTime(0);
    list->StartRecording();
    for (int i = 0; i < 40; ++i) {
      const std::string name = std::to_string(take * 40 + i);
      AddToTake(7, FromUtf8(name));
      expected += (expected.empty() ? "7 " : ", 7 ") + name;
    }
    list->StopRecording();
  }
  EXPECT_EQ(Events(), expected);
}

TEST_F(vxEventListTest, ATakeEndsInOrderAlsoWhenAHostChangedItsTimes) {
  list->StartRecording();
  const Ref<vxEvent> first = Event(10, u"first");
  list->AddEvent(first.get());
  AddToTake(20, u"second");
  first->SetTime(30);
  AddToTake(25, u"third");
  list->StopRecording();
  EXPECT_EQ(Events(), "20 second, 25 third, 30 first");
}

TEST_F(vxEventListTest, ASecondStartDiscardsTheTakeAndMovesItsStart) {
  list->SetRecordMode(RecordMode_Overwrite);
  Add(100, u"a");
  Add(200, u"b");
  list->SeekTime(100);
  list->StartRecording();
  AddToTake(120, u"lost");
  list->UpdateTime(150);
  list->StartRecording();
  AddToTake(160, u"kept");
  list->UpdateTime(250);
  list->StopRecording();
  EXPECT_EQ(Events(), "100 a, 160 kept");
}

TEST_F(vxEventListTest, StoppingWhileIdleDoesNothing) {
  list->SetRecordMode(RecordMode_Overwrite);
  Add(100, u"a");
  const Ref<clsObjectList> before = list->events();
  list->StopRecording();
  EXPECT_EQ(list->events(), before);
  EXPECT_EQ(Events(), "100 a");
}

TEST_F(vxEventListTest, AddingOutsideATakeFails) {
  EXPECT_EQ(ErrorOf([&] { AddToTake(1, u"a"); }), Error_ObjectNotSet);
  Take(0, 10, {{5, u"b"}});
  EXPECT_EQ(ErrorOf([&] { AddToTake(1, u"a"); }), Error_ObjectNotSet);
  list->StartRecording();
  EXPECT_EQ(ErrorOf([&] { list->AddEvent(nullptr); }), Error_ObjectNotSet);
}

TEST_F(vxEventListTest, ClearKeepsPositionAndTake) {
  Add(100, u"a");
  Add(200, u"b");
  list->UpdateTime(150);
  list->StartRecording();
  AddToTake(160, u"c");
  const Ref<clsObjectList> before = list->events();
  list->Clear();
  EXPECT_EQ(list->events(), before);
  EXPECT_EQ(before->Size(), 0);
  list->StopRecording();
  EXPECT_EQ(Events(), "160 c");
  TakeJournal();
  list->UpdateTime(500);  // one event, and the next to play is still the second
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(vxEventListTest, APositionBehindARecordingThatATakeEmptiedFiresNothing) {
  for (const auto& [time, name] : {std::pair{100, u"a"}, {200, u"b"}}) Add(time, name);
  list->SetRecordMode(RecordMode_Overwrite);
  Take(0, 300, {});
  EXPECT_EQ(Events(), "");
  TakeJournal();
  list->UpdateTime(400);
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(vxEventListTest, ChangingATimeSortsAnewAndLeavesThePosition) {
  for (const auto& [time, name] : {std::pair{100, u"a"}, {200, u"b"}, {300, u"c"}}) Add(time, name);
  list->UpdateTime(100);
  list->ChangeEventTime(0, 300);
  EXPECT_EQ(Events(), "200 b, 300 a, 300 c");
  list->ChangeEventTime(-1, 200);
  EXPECT_EQ(Events(), "200 b, 200 c, 300 a");
  TakeJournal();
  list->UpdateTime(250);
  EXPECT_THAT(journal, ElementsAre("c on 2 0 0 0 0", "fired 200 #1"));
}

TEST_F(vxEventListTest, ChangingATimeInAnEmptyRecordingFails) {
  EXPECT_EQ(ErrorOf([&] { list->ChangeEventTime(0, 1); }), Error_SubscriptOutOfRange);
}

TEST_F(vxEventListTest, ComparesByTimeAlone) {
  const Ref<vxEvent> early = Event(-5, u"x");
  const Ref<vxEvent> late = Event(5, u"a");
  EXPECT_EQ(list->Compare(early.get(), late.get()), -1);
  EXPECT_EQ(list->Compare(late.get(), early.get()), 1);
  EXPECT_EQ(list->Compare(late.get(), Event(5, u"b").get()), 0);
  EXPECT_EQ(ErrorOf([&] { list->Compare(late.get(), list.get()); }), Error_TypeMismatch);
  EXPECT_EQ(ErrorOf([&] { list->Compare(nullptr, late.get()); }), Error_ObjectNotSet);
}

TEST_F(vxEventListTest, AnEventWithoutAButtonFailsAndIsNextAgain) {
  list->events()->AddItem(Event(100, nullptr).get());
  Add(110, u"b");
  EXPECT_EQ(ErrorOf([&] { list->UpdateTime(120); }), Error_ObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { list->UpdateTime(120); }), Error_ObjectNotSet);
  Cast<vxEvent>(list->events()->GetItem(0).get()).button = Button(u"a");
  list->UpdateTime(120);
  EXPECT_THAT(journal, ElementsAre("a on 2 0 0 0 0", "fired 100 #0", "b on 2 0 0 0 0", "fired 110 #1"));
}

TEST_F(vxEventListTest, AnEventWithoutAButtonFailsAlsoWhereATakeSilencesIt) {
  list->events()->AddItem(Event(100, nullptr).get());
  list->SetRecordMode(RecordMode_Overwrite);
  list->StartRecording();
  EXPECT_EQ(ErrorOf([&] { list->UpdateTime(120); }), Error_ObjectNotSet);
}

TEST_F(vxEventListTest, AForeignItemFails) {
  list->events()->AddItem(handler.get());
  EXPECT_EQ(ErrorOf([&] { list->UpdateTime(1); }), Error_TypeMismatch);
  EXPECT_EQ(ErrorOf([&] { list->SeekTime(1); }), Error_TypeMismatch);
}

}  // namespace
}  // namespace vestrel
