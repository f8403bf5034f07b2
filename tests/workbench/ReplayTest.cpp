#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include "tests/workbench/RandomOperator.h"
#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/Options.h"
#include "workbench/server/Journal.h"
#include "workbench/server/Replay.h"
#include "workbench/server/ReplayRun.h"

namespace vestrel::workbench {
namespace {

constexpr std::uint64_t kOperations = 10'500;

class ReplayTest : public Workbench {
 protected:
  ReplayTest() { std::filesystem::create_directory(data()); }

  std::filesystem::path data() const { return folder() / "data"; }
  std::filesystem::path journal() const { return folder() / "journal"; }
  std::filesystem::path copy(const std::string& name) const {
    std::filesystem::create_directory(folder() / name);
    return folder() / name;
  }

  // What `work` does is recorded from its first command on.
  void Record(const std::function<void(WorkSession&)>& work) {
    CopyShows(Examples() / "shows", data());
    WorkSession session(data(), ClockStart{});
    JournalWriter writer(journal());
    writer.Begin(data(), session.start());
    session.AddObserver(&writer);
    work(session);
    session.SetDoor(nullptr);
    session.RemoveObserver(&writer);
  }

  ReplayReport ReplayIn(const std::filesystem::path& where) {
    JournalReader reader(journal());
    reader.RestoreFiles(where);
    WorkSession session(where, reader.start());
    return Replay(reader, session).Run();
  }

  void EditJournal(const std::function<void(std::string&)>& edit) {
    std::string text = FileBytes(journal());
    edit(text);
    std::ofstream(journal(), std::ios::binary) << text;
  }
};

// Answers every dialog with yes and does nothing meanwhile.
class Yes : public DialogDoor {
 public:
  DialogAnswer Ask(const Dialog&) override { return {true, "Renamed"}; }
  void Turn(std::uint64_t) override {}
};

void PlayALittle(WorkSession& session) {
  Yes yes;
  session.SetDoor(&yes);
  const char* const commands[] = {"setButtonGroupPageSize 8",
                                  "LoadShow \"Harbour Lights\"",
                                  "controlClicked 33 1 0 0 0",
                                  "setModeEditing true",
                                  "controlClicked 34 1 0 0 0",
                                  "RenameButton",
                                  "record.Record",
                                  "controlClicked 35 1 0 0 0",
                                  "record.TimerTick",
                                  "record.Stop_",
                                  "record.SaveEventsTo take.evt"};
  std::uint64_t now = session.start().ticks;
  for (const char* command : commands) EXPECT_TRUE(session.Perform(command, now += 250).ok) << command;
}

TEST_F(ReplayTest, ARandomEveningGivesTheSameCallbacksTwice) {
  std::uint64_t calls = 0;
  Record([&](WorkSession& session) {
    RandomOperator someone(session, 20261115);
    someone.Work(kOperations);
    calls = someone.done();
    // Otherwise it would show nothing.
    EXPECT_GT(someone.dialogs(), 20U);
    EXPECT_GT(someone.nested(), 20U);
    EXPECT_LT(someone.refused(), calls / 2);
  });
  for (const char* where : {"first", "second"}) {
    const ReplayReport report = ReplayIn(copy(where));
    EXPECT_TRUE(report.same) << report.line << ": " << report.expected << "\ninstead: " << report.happened;
    EXPECT_EQ(report.calls, calls);
    EXPECT_GT(report.callbacks, calls / 2);
  }
}

TEST_F(ReplayTest, TheFirstDifferenceIsToldWithItsLine) {
  Record(PlayALittle);
  EditJournal([](std::string& text) {
    const std::size_t at = text.find("ButtonStateChanged(Amber Front@1/1, 1,");
    ASSERT_NE(at, std::string::npos);
    text.replace(at, 18, "ButtonStateGuessed");
  });
  const ReplayReport report = ReplayIn(copy("again"));
  EXPECT_FALSE(report.same);
  EXPECT_NE(report.expected.find("ButtonStateGuessed"), std::string::npos);
  EXPECT_NE(report.happened.find("ButtonStateChanged"), std::string::npos);
  std::istringstream lines(FileBytes(journal()));
  std::string line;
  for (std::uint64_t i = 0; i < report.line; ++i) std::getline(lines, line);
  EXPECT_NE(line.find("ButtonStateGuessed"), std::string::npos);
}

TEST_F(ReplayTest, ACallbackThatIsMissingIsADifference) {
  Record(PlayALittle);
  EditJournal([](std::string& text) {
    const std::size_t at = text.find("{\"back\":\"NewEventRecorded");
    ASSERT_NE(at, std::string::npos);
    text.erase(at, text.find('\n', at) + 1 - at);
  });
  EXPECT_FALSE(ReplayIn(copy("again")).same);
}

TEST_F(ReplayTest, OtherTimesAreADifference) {
  Record(PlayALittle);
  EditJournal([](std::string& text) {
    const std::size_t at = text.find("\"ms\":", text.find("{\"call\":\"record.TimerTick"));
    ASSERT_NE(at, std::string::npos);
    text.insert(text.find_first_of("},", at), "9");
  });
  EXPECT_FALSE(ReplayIn(copy("again")).same);
}

TEST_F(ReplayTest, AJournalThatBreaksOffIsReplayedAsFarAsItGoes) {
  Record(PlayALittle);
  const std::string whole = FileBytes(journal());
  const std::size_t begin = whole.find("{\"begin\"");
  for (std::size_t length = begin + 20; length < whole.size(); length += 97) {
    std::ofstream(journal(), std::ios::binary) << whole.substr(0, length);
    const ReplayReport report = ReplayIn(copy("cut " + std::to_string(length)));
    EXPECT_TRUE(report.same) << length << " " << report.expected << " " << report.happened;
  }
}

TEST_F(ReplayTest, TheProgramReplaysOnACopyAndReports) {
  Record(PlayALittle);
  std::ostringstream out;
  EXPECT_TRUE(ReplayJournal(journal(), {}, out));
  EXPECT_NE(out.str().find("Replayed 11 calls"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("the same"), std::string::npos);
}

TEST_F(ReplayTest, TheProgramTakesAnotherFolderAndLeavesItAsItIs) {
  Record(PlayALittle);
  // The evening left its traces there: what was renamed then is renamed already.
  const std::string before = FileBytes(data() / "Sequences/Harbour Lights/Overture/pageSetting.ini");
  std::ostringstream out;
  EXPECT_FALSE(ReplayJournal(journal(), data(), out));
  EXPECT_EQ(FileBytes(data() / "Sequences/Harbour Lights/Overture/pageSetting.ini"), before);
}

TEST_F(ReplayTest, AnotherFileIsNoJournal) {
  std::ostringstream out;
  EXPECT_THROW(ReplayJournal(folder() / "absent", {}, out), BadUsage);
  EXPECT_THROW(ReplayJournal(folder(), {}, out), BadUsage);
  std::ofstream(journal()) << "{\"some\":\"thing\"}\n";
  EXPECT_THROW(ReplayJournal(journal(), {}, out), BadUsage);
}

}  // namespace
}  // namespace vestrel::workbench
