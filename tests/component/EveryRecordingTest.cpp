#include <gmock/gmock.h>

#include "tests/component/EveryOperation.h"
#include "tests/support/RecordingForm.h"

namespace vestrel::test {
namespace {

using component::ByRef;
using testing::ElementsAre;

constexpr const char16_t* kFile = u"C:\\data\\events.txt";

Subject Button(const char16_t* name) {
  Subject button(u"clsButton");
  button.Call(u"InitWithValues", nullptr, 1, 1, name, ButtonType_Sequence, nullptr);
  return button;
}

Subject Event(std::int32_t time, const Subject& button, vxEventTypeEnum type = vxEvent_ButtonOn) {
  Subject event(u"vxEvent");
  event.Call(u"Init", time, button, type);
  return event;
}

EVERY_OPERATION_OF(vxEvent) {
  const Subject helper(u"VestrelStatic");
  const Subject button = Button(u"Intro");
  const Subject event = Event(1200, button, vxEvent_ButtonOff);
  event.Call(u"SetExtras", 2, 1, 88.5, 210);
  const std::int32_t out = helper.Number(u"OpenTextFileForOutput", kFile);
  event.Call(u"WriteToFile", out);
  EXPECT_EQ(Subject(u"vxEvent").Error(u"WriteToFile", out), 91);
  helper.Call(u"CloseTextFile", out);
  EXPECT_EQ(event.Error(u"WriteToFile", out), 52);
  EXPECT_EQ(files.Get(kFile), "1200,\"Intro\",1,2,1,88.5,210\r\n");
  const Subject map(u"clsDictionary");
  map.Call(u"Add", u"INTRO", button);
  const Subject read(u"vxEvent");
  const std::int32_t in = helper.Number(u"OpenTextFileForInput", kFile);
  EXPECT_TRUE(read.Truth(u"ReadFromFile", in, map));
  EXPECT_EQ(Subject(u"vxEvent").Error(u"ReadFromFile", in, map), 62);
  helper.Call(u"CloseTextFile", in);
  EXPECT_EQ(read.Get(u"time").AsLong(), 1200);
  EXPECT_EQ(Subject(read.Get(u"button").AsObject()), button);
  EXPECT_EQ(read.Get(u"eventType").AsLong(), vxEvent_ButtonOff);
  EXPECT_EQ(read.Get(u"mouseButton").AsLong(), 2);
  EXPECT_EQ(read.Get(u"shift").AsLong(), 1);
  EXPECT_EQ(read.Get(u"x").AsDouble(), 88.5);
  EXPECT_EQ(read.Get(u"y").AsDouble(), 210);
  read.Put(u"time", 7);
  read.Put(u"button", nullptr);
  read.Put(u"eventType", vxEvent_ButtonOn);
  read.Put(u"mouseButton", 1);
  read.Put(u"shift", 4);
  read.Put(u"x", 0.5);
  read.Put(u"y", -2);
  EXPECT_EQ(read.Number(u"time"), 7);
  EXPECT_FALSE(read.Item(u"button"));
  EXPECT_EQ(read.Number(u"eventType"), vxEvent_ButtonOn);
  EXPECT_EQ(read.Number(u"mouseButton"), 1);
  EXPECT_EQ(read.Number(u"shift"), 4);
  EXPECT_EQ(read.Fraction(u"x"), 0.5);
  EXPECT_EQ(read.Fraction(u"y"), -2);
}

EVERY_OPERATION_OF(vxEventList) {
  const Subject helper(u"VestrelStatic");
  const Subject button = Button(u"Intro");
  const Subject list(u"vxEventList");
  list.Call(u"Init", Subject(u"IVXEventListHandler"));
  EXPECT_EQ(list.Error(u"AddEvent", Event(1, button)), 91);
  list.Call(u"StartRecording");
  list.Call(u"AddEvent", Event(300, button, vxEvent_ButtonOff));
  list.Call(u"AddEvent", Event(100, button));
  list.Call(u"StopRecording");
  const Subject events(list.Get(u"events").AsObject());
  ASSERT_EQ(events.Number(u"Size"), 2);
  EXPECT_EQ(events.Item(u"GetItem", 0).Number(u"time"), 100);
  list.Call(u"UpdateTime", 100);
  EXPECT_EQ(button.Number(u"playState"), PlayState_On);
  EXPECT_EQ(list.Number(u"SeekToEventIndex", 1), 300);
  list.Call(u"UpdateTime", 300);
  EXPECT_EQ(button.Number(u"playState"), PlayState_Off);
  list.Call(u"SeekTime", 99);
  list.Call(u"UpdateTime", 100);
  EXPECT_EQ(button.Number(u"playState"), PlayState_On);
  list.Call(u"ChangeEventTime", 0, 400);
  EXPECT_EQ(events.Item(u"GetItem", 0).Number(u"time"), 300);
  EXPECT_EQ(list.Number(u"IObjectComparator_Compare", events.Item(u"GetItem", 0), events.Item(u"GetItem", 1)),
            -1);
  const std::int32_t out = helper.Number(u"OpenTextFileForOutput", kFile);
  list.Call(u"WriteToFile", out);
  helper.Call(u"CloseTextFile", out);
  EXPECT_EQ(files.Get(kFile), "2\r\n300,\"Intro\",1,0,0,0,0\r\n400,\"Intro\",0,0,0,0,0\r\n");
  const Subject map(u"clsDictionary");
  map.Call(u"Add", u"Intro", button);
  const Subject read(u"vxEventList");
  read.Call(u"Init", nullptr);
  const std::int32_t in = helper.Number(u"OpenTextFileForInput", kFile);
  read.Call(u"ReadFromFile", in, map);
  helper.Call(u"CloseTextFile", in);
  EXPECT_EQ(read.Item(u"events").Item(u"GetItem", 1).Number(u"time"), 400);
  read.Call(u"SetRecordMode", RecordMode_Overwrite);
  read.Call(u"SeekTime", 350);
  read.Call(u"StartRecording");
  read.Call(u"SeekTime", 500);
  read.Call(u"StopRecording");
  EXPECT_EQ(read.Item(u"events").Number(u"Size"), 1);
  read.Call(u"Clear");
  EXPECT_EQ(read.Item(u"events").Number(u"Size"), 0);
}

EVERY_OPERATION_OF(clsRecordController) {
  Transcript transcript;
  const Subject recorder(u"clsRecordController");
  recorder.Call(u"Init", Ref<Object>(MakeRef<RecordingTransport>(transcript)));
  recorder.Call(u"Play");
  EXPECT_THAT(transcript.Take(), ElementsAre("SetTimerEnabled(true)", "TransportStateChanged(1, false)"));
  recorder.Call(u"Record");
  clock.ticks += 250;
  recorder.Call(u"TimerTick");
  const Subject button = Button(u"Intro");
  button.Call(u"setPlayState", PlayState_On, PSEventSource_User, 1, 0, 0, 0);
  transcript.Take();
  recorder.Call(u"IRecordController_ButtonPlaystateChanged", button, PSEventSource_User, 1, 0, 2.5, 3);
  EXPECT_THAT(transcript.Take(), ElementsAre("NewEventRecorded(250 on Intro@1/1)"));
  recorder.Call(u"Stop_");
  EXPECT_THAT(transcript.Take(), ElementsAre("UpdateTimecodeDisplay(0)", "SetTimerEnabled(false)",
                                             "TransportStateChanged(0, false)"));
  const Subject events(recorder.Get(u"EventList").AsObject());
  ASSERT_EQ(events.Number(u"Size"), 1);
  EXPECT_EQ(events.Item(u"GetItem", 0).Fraction(u"x"), 2.5);
  recorder.Call(u"SaveEventsTo", kFile);
  EXPECT_EQ(files.Get(kFile), "1\r\n250,\"Intro\",0,1,0,2.5,3\r\n");
  recorder.Call(u"SeekToEventIndex", 0);
  EXPECT_THAT(transcript.Take(), ElementsAre("UpdateTimecodeDisplay(250)"));
  recorder.Call(u"updateEventTime", 0, 900);
  EXPECT_THAT(transcript.Take(), ElementsAre("RefreshList()"));
  recorder.Call(u"IVXEventListHandler_EventFired", events.Item(u"GetItem", 0), 4);
  EXPECT_THAT(transcript.Take(), ElementsAre("CurrentPlayingEvent(900 on Intro@1/1, 4)"));
  recorder.Call(u"ChangePlaystate", Paused);
  EXPECT_THAT(transcript.Take(), ElementsAre("SetTimerEnabled(false)"));
  recorder.Call(u"ClearEvents");
  EXPECT_EQ(events.Number(u"Size"), 0);
  const Subject map(u"clsDictionary");
  map.Call(u"Add", u"Intro", button);
  recorder.Call(u"LoadEventsFrom", kFile, map);
  EXPECT_EQ(recorder.Item(u"EventList").Item(u"GetItem", 0).Number(u"time"), 250);
  Variant time = u"untouched";
  EXPECT_FALSE(recorder.Truth(u"timecodeToMS", u"1:00.000", ByRef(time)));
  EXPECT_EQ(time.AsString(), u"untouched");
  EXPECT_TRUE(recorder.Truth(u"timecodeToMS", u"01:02:03.004", ByRef(time)));
  EXPECT_EQ(time.AsLong(), 3723004);
  EXPECT_EQ(recorder.Text(u"msToTimecode", 3723004), u"01:02:03.004");
  // In the overwriting mode a take without events leaves nothing of the time it went over.
  recorder.Call(u"SetRecordMode", RecordMode_Overwrite);
  recorder.Call(u"Stop_");
  recorder.Call(u"Record");
  clock.ticks += 300;
  recorder.Call(u"TimerTick");
  recorder.Call(u"Stop_");
  EXPECT_EQ(recorder.Item(u"EventList").Number(u"Size"), 0);
}

}  // namespace
}  // namespace vestrel::test
