// The event file through the event list and the transport: bytes, malformed files, failing disks.
#include <gmock/gmock.h>

#include "storage/TextFile.h"
#include "tests/recording/RecordingFixture.h"

namespace vestrel {
namespace {

using platform::FileStatus;
using test::ErrorOf;
using testing::HasSubstr;

constexpr std::u16string_view kPath = u"C:\\take.txt";

class EventFileTest : public test::RecordingFixture {
 protected:
  EventFileTest() {
    recorder->Init(bar.get());
    for (const char16_t* name : {u"a", u"b", u"Blue wash, slow", u"\u00dcber", u""}) {
      map->Add(name, Button(name).get());
    }
  }

  void Add(std::int32_t time, std::u16string_view name, vxEventTypeEnum type = vxEvent_ButtonOn,
           std::int16_t mouseButton = 0, std::int16_t shift = 0, float x = 0, float y = 0) {
    const Ref<vxEvent> event = Event(time, Button(name).get(), type);
    event->SetExtras(mouseButton, shift, x, y);
    recorder->EventList()->AddItem(event.get());
  }
  std::string Saved() {
    recorder->SaveEventsTo(kPath);
    return files.Get(kPath);
  }
  void Load(std::string_view bytes) {
    files.Put(kPath, bytes);
    recorder->LoadEventsFrom(kPath, map.get());
  }
  // Every field of every event, one line each.
  std::string Fields() {
    std::string text;
    const Ref<clsObjectList> list = recorder->EventList();
    for (std::int32_t i = 0; i < list->Size(); ++i) {
      const auto& event = Cast<vxEvent>(list->GetItem(i).get());
      text += std::to_string(event.time()) + " " + ToUtf8(event.button->name) + " " +
              std::to_string(event.eventType) + " " + std::to_string(event.mouseButton) + " " +
              std::to_string(event.shift) + " " + ToUtf8(SingleToText(event.x)) + " " +
              ToUtf8(SingleToText(event.y)) + "\n";
    }
    return text;
  }

  Ref<test::JournalBar> bar = MakeRef<test::JournalBar>(journal);
  Ref<clsRecordController> recorder = MakeRef<clsRecordController>();
  Ref<clsDictionary> map = MakeRef<clsDictionary>();
};

TEST_F(EventFileTest, AnEmptyRecordingIsTheLine0) {
  EXPECT_EQ(Saved(), "0\r\n");
  Add(1, u"a");
  Load("0\r\n");
  EXPECT_EQ(Fields(), "");
}

TEST_F(EventFileTest, IsWrittenByteForByte) {
  Add(0, u"a");
  Add(1200, u"Blue wash, slow", vxEvent_ButtonOff, 1, 4, 12, 340.5F);
  Add(1200, u"\u00dcber", vxEvent_ButtonOn, -1, -32768, -0.25F, 1e20F);
  Add(-5, u"");
  EXPECT_EQ(Saved(),
            "4\r\n"
            "0,\"a\",0,0,0,0,0\r\n"
            "1200,\"Blue wash, slow\",1,1,4,12,340.5\r\n"
            "1200,\"\u00dcber\",0,-1,-32768,-0.25,1E+20\r\n"
            "-5,\"\",0,0,0,0,0\r\n");
}

TEST_F(EventFileTest, ReadsBackWhatWasWrittenInTheFilesOrder) {
  Add(1200, u"Blue wash, slow", vxEvent_ButtonOff, 1, 4, 12, 340.5F);
  Add(1200, u"\u00dcber", vxEvent_ButtonOn, -1, -32768, -0.25F, 1e20F);
  Add(-5, u"", static_cast<vxEventTypeEnum>(77), 32767, 2, 0.1F, 1e-30F);
  const std::string before = Fields();
  const std::string bytes = Saved();
  recorder->LoadEventsFrom(kPath, map.get());
  EXPECT_EQ(Fields(), before);
  EXPECT_EQ(Saved(), bytes);
  EXPECT_EQ(Cast<vxEvent>(recorder->EventList()->GetItem(1).get()).button.get(),
            map->ValueOf(u"\u00dcber").get());
}

TEST_F(EventFileTest, DropsEventsOfUnknownButtons) {
  Load("3\r\n10,\"a\",0,0,0,0,0\r\n20,\"gone\",0,0,0,0,0\r\n30,\"b\",1,0,0,0,0\r\n");
  EXPECT_EQ(Fields(), "10 a 0 0 0 0 0\n30 b 1 0 0 0 0\n");
}

TEST_F(EventFileTest, FindsButtonsInAnyLetterCase) {
  Load("1\r\n10,\"A\",0,0,0,0,0\r\n");
  EXPECT_EQ(Fields(), "10 a 0 0 0 0 0\n");
}

TEST_F(EventFileTest, ReadsWhatPeopleMakeOfIt) {
  const char* const tables[] = {
      "2\n10,\"a\",0,1,2,3,4\n20,\"b\",1,0,0,0,0\n",
      "2\r\n10,\"a\",0,1,2,3,4\r\n20,\"b\",1,0,0,0,0",
      " 2 \r\n 10 , \"a\" , 0 , 1 , 2 , 3 , 4 \r\n\t20,\"b\",1,0,0,0,0\r\n",
      "2\r\n10,\"a\"\r\n0,1\r\n2,3,4\r\n20,\"b\",1,0,0,0,0\r\n",
      R"(2,10,"a",0,1,2,3,4,20,"b",1,0,0,0,0)",
      "2\r\n\r\n10,\"a\",0,1,2,3,4\r\n\r\n20,\"b\",1,0,0,0,0\r\n",
      "2\r\n10,a,0,1,2,3,4\r\n20,b,1,0,0,0,0\r\n",
      "2\r\n1e1,\"a\",#FALSE#,1.4,2,3.0,+4\r\n20,\"b\",1,0,0,-0,0\r\n",
      "2\r10,\"a\",0,1,2,3,4\r20,\"b\",1,0,0,0,0\r",
      "2\r\n10,\"a\",0,1,2,3,4\r\n20,\"b\",1,0,0,0,0\r\nanything else",
  };
  for (const char* bytes : tables) {
    Load(bytes);
    EXPECT_EQ(Fields(), "10 a 0 1 2 3 4\n20 b 1 0 0 0 0\n") << bytes;
  }
}

TEST_F(EventFileTest, ManyEventsMayLieOnOneLine) {
  std::string bytes = "20000";
  for (int i = 0; i < 20000; ++i) bytes += "," + std::to_string(i) + R"(,"b",1,2,3,4,5)";
  Load(bytes);
  ASSERT_EQ(recorder->EventList()->Size(), 20000);
  EXPECT_EQ(Cast<vxEvent>(recorder->EventList()->GetItem(-1).get()).time(), 19999);
}

TEST_F(EventFileTest, NamesOfEveryLengthAreToldApart) {
  std::string bytes = "600\r\n";
  for (int i = 0; i < 600; ++i) {
    const std::string name = std::string(static_cast<std::size_t>(i % 40), 'n') + std::to_string(i / 40);
    map->Add(FromUtf8(name), Button(FromUtf8(name)).get());
    bytes += std::to_string(i) + ",\"" + name + "\",0,0,0,0,0\r\n";
  }
  Load(bytes);
  ASSERT_EQ(recorder->EventList()->Size(), 600);
  EXPECT_EQ(Saved(), bytes);
}

TEST_F(EventFileTest, ACountBelowTheLinesEndsTheReading) {
  Load("1\r\n10,\"a\",0,0,0,0,0\r\n20,\"b\",0,0,0,0,0\r\n");
  EXPECT_EQ(Fields(), "10 a 0 0 0 0 0\n");
  Load("-3\r\n10,\"a\",0,0,0,0,0\r\n");
  EXPECT_EQ(Fields(), "");
}

TEST_F(EventFileTest, IsNotSortedAfterReading) {
  Load("3\r\n30,\"a\",0,0,0,0,0\r\n10,\"b\",0,0,0,0,0\r\n20,\"a\",1,0,0,0,0\r\n");
  EXPECT_EQ(Fields(), "30 a 0 0 0 0 0\n10 b 0 0 0 0 0\n20 a 1 0 0 0 0\n");
}

struct Malformed {
  const char* bytes;
  std::int32_t error;
  const char* place;
};

TEST_F(EventFileTest, AMalformedFileFailsAndKeepsWhatWasRead) {
  const Malformed table[] = {
      {"", Error_InputPastEnd, "line 1"},
      {"\r\n", Error_InputPastEnd, "line 2"},
      {"x\r\n", Error_TypeMismatch, "line 1"},
      {"99999999999\r\n", Error_Overflow, "line 1"},
      {"3\r\n10,\"a\",0,0,0,0,0\r\n", Error_InputPastEnd, "line 3"},
      {"2\r\n10,\"a\",0,0,0,0,0\r\n20,\"b\",0,0", Error_InputPastEnd, "line 3"},
      {"2\r\n10,\"a\",0,0,0,0,0\r\n20,\"b", Error_InputPastEnd, "line 3"},
      {"2\r\n10,\"a\",0,0,0,0,0\r\nx,\"b\",0,0,0,0,0\r\n", Error_TypeMismatch, "line 3"},
      {"2\r\n10,\"a\",0,0,0,0,0\r\n20,\"b\",on,0,0,0,0\r\n", Error_TypeMismatch, "line 3"},
      {"2\r\n10,\"a\",0,0,0,0,0\r\n20,\"b\",0,32768,0,0,0\r\n", Error_Overflow, "line 3"},
      {"2\r\n10,\"a\",0,0,0,0,0\r\n20,\"b\",0,0,-32769,0,0\r\n", Error_Overflow, "line 3"},
      {"2\r\n10,\"a\",0,0,0,0,0\r\n2147483648,\"b\",0,0,0,0,0\r\n", Error_Overflow, "line 3"},
      {"2\r\n10,\"a\",0,0,0,0,0\r\n20,\"b\",0,0,0,nan,0\r\n", Error_TypeMismatch, "line 3"},
      {"2\r\n10,\"a\",0,0,0,0,0\r\n20,\"b\",0,0,0,0,1e60\r\n", Error_Overflow, "line 3"},
      {"2\r\n10,\"a\",0,0,0,0,0\r\n20,\"say \"\"b\"\"\",0,0,0,0,0\r\n", Error_TypeMismatch, "line 3"},
  };
  for (const Malformed& malformed : table) {
    const Ref<clsObjectList> old = recorder->EventList();
    try {
      Load(malformed.bytes);
      ADD_FAILURE() << malformed.bytes;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), malformed.error) << malformed.bytes;
      EXPECT_THAT(ToUtf8(error.description()), HasSubstr(ToUtf8(kPath))) << malformed.bytes;
      EXPECT_THAT(ToUtf8(error.description()), HasSubstr(malformed.place)) << malformed.bytes;
    }
    EXPECT_EQ(files.OpenFiles(), 0);
    EXPECT_EQ(TextFile::FreeNumber(), 1);
    EXPECT_NE(recorder->EventList(), old);
    const bool readOne = std::string_view(malformed.bytes).find("\"a\"") != std::string_view::npos;
    EXPECT_EQ(Fields(), readOne ? "10 a 0 0 0 0 0\n" : "") << malformed.bytes;
  }
}

TEST_F(EventFileTest, LoadingDoesNotMoveThePosition) {
  Add(10, u"a");
  Add(20, u"a");
  clock.ticks = 0;
  recorder->Play();
  clock.ticks = 15;
  recorder->TimerTick();
  Load("2\r\n1,\"a\",1,0,0,0,0\r\n2,\"b\",0,0,0,0,0\r\n");
  TakeJournal();
  recorder->TimerTick();
  EXPECT_THAT(journal, testing::ElementsAre("timecode 15", "b on 2 0 0 0 0", "playing 2 #1"));
}

TEST_F(EventFileTest, AMissingFileLeavesTheRecording) {
  Add(10, u"a");
  EXPECT_EQ(ErrorOf([&] { recorder->LoadEventsFrom(u"C:\\none.txt", map.get()); }), Error_FileNotFound);
  EXPECT_EQ(ErrorOf([&] { recorder->LoadEventsFrom(u"C:\\no\\none.txt", map.get()); }), Error_PathNotFound);
  EXPECT_EQ(Fields(), "10 a 0 0 0 0 0\n");
}

TEST_F(EventFileTest, LoadingNeedsAMapOfButtons) {
  files.Put(kPath, "1\r\n10,\"a\",0,0,0,0,0\r\n");
  EXPECT_EQ(ErrorOf([&] { recorder->LoadEventsFrom(kPath, nullptr); }), Error_ObjectNotSet);
  map->Add(u"a", map.get());
  EXPECT_EQ(ErrorOf([&] { recorder->LoadEventsFrom(kPath, map.get()); }), Error_TypeMismatch);
  EXPECT_EQ(files.OpenFiles(), 0);
  map->Clear();
}

TEST_F(EventFileTest, WhateverFailsTheFileIsTheOldOneOrTheNewOne) {
  const std::string whole = "2\r\n10,\"a\",0,0,0,0,0\r\n20,\"b\",0,0,0,0,0\r\n";
  Add(10, u"a");
  const std::string old = Saved();
  Add(20, u"b");
  int kept = 0;
  for (int nth = 1;; ++nth) {
    files.Put(kPath, old);
    files.FailCall(nth, FileStatus::DiskFull);
    const bool failed = ErrorOf([&] { recorder->SaveEventsTo(kPath); }) != 0;
    files.FailNothing();
    EXPECT_EQ(files.OpenFiles(), 0);
    EXPECT_EQ(TextFile::FreeNumber(), 1);
    EXPECT_TRUE(files.Get(kPath) == old || files.Get(kPath) == whole) << nth << files.Get(kPath);
    if (!failed) break;
    if (files.Get(kPath) == old) ++kept;
    ASSERT_LT(nth, 100);
  }
  EXPECT_GT(kept, 5);
  EXPECT_EQ(files.Get(kPath), whole);
}

TEST_F(EventFileTest, AnEventWithoutAButtonFailsTheSave) {
  Add(10, u"a");
  const std::string old = Saved();
  recorder->EventList()->AddItem(Event(20, nullptr).get());
  EXPECT_EQ(ErrorOf([&] { recorder->SaveEventsTo(kPath); }), Error_ObjectNotSet);
  EXPECT_EQ(files.Get(kPath), old);
  EXPECT_EQ(files.OpenFiles(), 0);
}

TEST_F(EventFileTest, AReadOnlyFileOrAMissingFolderFailsTheSave) {
  Saved();
  files.SetReadOnly(kPath, true);
  EXPECT_EQ(ErrorOf([&] { recorder->SaveEventsTo(kPath); }), Error_PathFileAccess);
  EXPECT_EQ(ErrorOf([&] { recorder->SaveEventsTo(u"C:\\no\\take.txt"); }), Error_PathNotFound);
}

TEST_F(EventFileTest, AFailingDiskFailsTheLoad) {
  files.Put(kPath, "1\r\n10,\"a\",0,0,0,0,0\r\n");
  files.FailEvery("ReadAt", FileStatus::IoError);
  EXPECT_EQ(ErrorOf([&] { recorder->LoadEventsFrom(kPath, map.get()); }), Error_DeviceIO);
  EXPECT_EQ(files.OpenFiles(), 0);
}

TEST_F(EventFileTest, SingleEventsGoThroughAnOpenFile) {
  TextFile::Open(7, kPath, TextFile::Mode::Output);
  Event(5, Button(u"a").get(), vxEvent_ButtonOff)->WriteToFile(7);
  Event(6, u"gone")->WriteToFile(7);
  TextFile::Close(7);
  EXPECT_EQ(files.Get(kPath), "5,\"a\",1,0,0,0,0\r\n6,\"gone\",0,0,0,0,0\r\n");
  TextFile::Open(7, kPath, TextFile::Mode::Input);
  const Ref<vxEvent> event = MakeRef<vxEvent>();
  EXPECT_TRUE(event->ReadFromFile(7, map.get()));
  EXPECT_EQ(event->time(), 5);
  EXPECT_EQ(event->button.get(), map->ValueOf(u"a").get());
  EXPECT_FALSE(event->ReadFromFile(7, map.get()));  // and reading stays in step
  EXPECT_EQ(event->time(), 6);
  EXPECT_FALSE(event->button);
  EXPECT_EQ(ErrorOf([&] { event->ReadFromFile(7, map.get()); }), Error_InputPastEnd);
  TextFile::Close(7);
}

// Whatever form the line has: its fields are taken and the next line comes next.
TEST_F(EventFileTest, AMapThatFailsLeavesReadingInStep) {
  map->Add(u"broken", map.get());
  for (const char* line : {"5,\"broken\",1,2,3,4,5\r\n", " 5 ,\"broken\", 1,2,3,4,5\r\n"}) {
    files.Put(kPath, std::string(line) + "6,\"a\",0,0,0,0,0\r\n7,\"a\",0,0,0,0,0\r\n");
    TextFile::Open(7, kPath, TextFile::Mode::Input);
    const Ref<vxEvent> event = Event(1, u"other");
    EXPECT_EQ(ErrorOf([&] { event->ReadFromFile(7, map.get()); }), Error_TypeMismatch) << line;
    EXPECT_EQ(event->time(), 5) << line;
    EXPECT_FALSE(event->button) << line;
    EXPECT_EQ(event->eventType, vxEvent_ButtonOff) << line;
    EXPECT_EQ(event->y, 5) << line;
    EXPECT_EQ(ErrorOf([&] { event->ReadFromFile(7, nullptr); }), Error_ObjectNotSet) << line;
    EXPECT_EQ(event->time(), 6) << line;
    EXPECT_TRUE(event->ReadFromFile(7, map.get())) << line;
    EXPECT_EQ(event->time(), 7) << line;
    TextFile::Close(7);
  }
  map->Clear();
}

// An empty field is one that a comma ends; at a line's end, reading goes on in the next line.
TEST_F(EventFileTest, EmptyFieldsBeforeACommaAreZero) {
  Load("1\r\n,\"a\",,,,,6\r\n");
  EXPECT_EQ(Fields(), "0 a 0 0 0 0 6\n");
  EXPECT_EQ(ErrorOf([&] { Load("1\r\n10,\"a\",0,0,0,1,\r\n"); }), Error_InputPastEnd);
  Load("1\r\n10,\"a\",0,0,0,1,\r\n7\r\n");
  EXPECT_EQ(Fields(), "10 a 0 0 0 1 7\n");
}

// What a name with a double quote comes back as: never as itself.
TEST_F(EventFileTest, ANameWithADoubleQuoteIsNotReadBack) {
  for (const char16_t* name : {u"a\"", u"\"a", u"say \"b\"", u"a\",5"}) map->Add(name, Button(name).get());
  const std::pair<const char16_t*, std::int32_t> table[] = {{u"a\"", Error_InputPastEnd},
                                                            {u"\"a", Error_TypeMismatch},
                                                            {u"say \"b\"", Error_TypeMismatch},
                                                            {u"a\",5", Error_TypeMismatch}};
  for (const auto& [name, error] : table) {
    recorder->ClearEvents();
    Add(10, name);
    Saved();
    EXPECT_EQ(ErrorOf([&] { recorder->LoadEventsFrom(kPath, map.get()); }), error) << ToUtf8(name);
  }
  Load(
      "1\r\n"
      R"(10,"a",1,"2",0,0,0,0,0)"
      "\r\n");  // of a button named a",1,"2
  EXPECT_EQ(Fields(), "10 a 1 2 0 0 0\n");
}

TEST_F(EventFileTest, AFileNumberThatIsNotOpenFails) {
  const Ref<vxEvent> event = Event(5, u"a");
  const Ref<vxEventList> list = MakeRef<vxEventList>();
  list->Init(nullptr);
  EXPECT_EQ(ErrorOf([&] { event->WriteToFile(3); }), Error_BadFileNameOrNumber);
  EXPECT_EQ(ErrorOf([&] { event->ReadFromFile(3, map.get()); }), Error_BadFileNameOrNumber);
  EXPECT_EQ(ErrorOf([&] { list->WriteToFile(3); }), Error_BadFileNameOrNumber);
  EXPECT_EQ(ErrorOf([&] { list->ReadFromFile(3, map.get()); }), Error_BadFileNameOrNumber);
}

TEST_F(EventFileTest, AMillionEventsGoRoundInChunks) {
  constexpr std::int32_t kCount = 1000000;
  const Ref<clsButton> button = Button(u"Blue wash, slow");
  const Ref<clsObjectList> list = recorder->EventList();
  for (std::int32_t i = 0; i < kCount; ++i) {
    const Ref<vxEvent> event = Event(i * 3, button.get(), i % 2 == 0 ? vxEvent_ButtonOn : vxEvent_ButtonOff);
    event->SetExtras(1, 0, static_cast<float>(i % 1024), i % 100 == 0 ? 0.5F : 7.0F);
    list->AddItem(event.get());
  }
  const std::string bytes = Saved();
  EXPECT_GT(bytes.size(), 30U * kCount);
  recorder->LoadEventsFrom(kPath, map.get());
  EXPECT_EQ(recorder->EventList()->Size(), kCount);
  EXPECT_TRUE(Saved() == bytes);
}

}  // namespace
}  // namespace vestrel
