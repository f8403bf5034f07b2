#include <gtest/gtest.h>

#include <vector>

#include "workbench/Options.h"

namespace vestrel::workbench {
namespace {

Options Read(std::vector<std::string_view> arguments) {
  return ReadOptions(arguments);
}

std::string ProblemOf(std::vector<std::string_view> arguments) {
  try {
    ReadOptions(arguments);
  } catch (const BadUsage& bad) {
    return bad.what();
  }
  return "none";
}

TEST(OptionsTest, WithoutArgumentsThePageIsServedToThisMachine) {
  const Options options = Read({});
  EXPECT_EQ(options.task, Task::ServePage);
  EXPECT_EQ(options.dataFolder, "");
  EXPECT_EQ(options.listen, "127.0.0.1");
  EXPECT_FALSE(options.port);
  EXPECT_TRUE(options.opensBrowser);
}

TEST(OptionsTest, ThePageMayHaveItsPort) {
  EXPECT_EQ(Read({"--port", "9000"}).port, 9000);
  EXPECT_FALSE(Read({"--no-browser"}).opensBrowser);
  for (const std::string_view bad : {"0", "65536", "80a", "-1"}) {
    EXPECT_EQ(ProblemOf({"--port", bad}), "\"" + std::string(bad) + "\" is no port");
  }
}

TEST(OptionsTest, AnotherAddressDemandsAToken) {
  const Options options = Read({"--listen", "0.0.0.0", "--token", "abcdefgh-1234_XY"});
  EXPECT_EQ(options.listen, "0.0.0.0");
  EXPECT_EQ(options.token, "abcdefgh-1234_XY");
  EXPECT_EQ(ProblemOf({"--listen", "0.0.0.0"}), "--listen demands a --token that visitors must know");
  for (const std::string_view bad : {"short", "blanks are not for addresses", "semicolon;semicolon"}) {
    EXPECT_EQ(ProblemOf({"--token", bad}), "a token has 16 or more letters, digits, - and _");
  }
}

TEST(OptionsTest, AJournalIsWrittenOrReplayed) {
  EXPECT_EQ(Read({"--journal", "file"}).journal, "file");
  EXPECT_EQ(Read({"--journal", "file"}).journalBytes, 256ULL * 1024 * 1024);
  EXPECT_EQ(Read({"--journal-size", "3"}).journalBytes, 3ULL * 1024 * 1024);
  EXPECT_EQ(ProblemOf({"--journal-size", "0"}), "\"0\" is no number of megabytes");
  EXPECT_EQ(Read({"--replay", "file"}).task, Task::Replay);
  EXPECT_EQ(Read({"--replay", "file"}).replay, "file");
  EXPECT_EQ(ProblemOf({"--replay", "a", "--headless", "b"}), "--headless and --replay exclude each other");
}

TEST(OptionsTest, HeadlessPlaysAFileInAnEmptyFolder) {
  const Options options = Read({"--data", "dir", "--headless", "-"});
  EXPECT_EQ(options.task, Task::PlayCommands);
  EXPECT_EQ(options.commands, "-");
  EXPECT_EQ(options.dataFolder, "dir");
  EXPECT_FALSE(options.withSample);
  EXPECT_FALSE(options.tellsStory);
}

TEST(OptionsTest, HeadlessMayTellAStory) {
  EXPECT_TRUE(Read({"--headless", "file", "--story"}).tellsStory);
}

TEST(OptionsTest, HeadlessMayBeginWithTheSample) {
  EXPECT_TRUE(Read({"--sample", "--headless", "file"}).withSample);
  EXPECT_TRUE(Read({"--headless", "file", "--sample"}).withSample);
}

TEST(OptionsTest, HelpAndTheListOfOperationsNeedNothingElse) {
  EXPECT_EQ(Read({"--headless", "file", "--help"}).task, Task::ShowHelp);
  EXPECT_EQ(Read({"-h"}).task, Task::ShowHelp);
  EXPECT_EQ(Read({"--operations"}).task, Task::ListOperations);
  for (const std::string_view option : {"--headless", "--data", "--port", "--listen", "--token", "--sample",
                                        "--story", "--journal", "--replay", "--examples", "--operations"}) {
    EXPECT_NE(HelpText().find(option), std::string_view::npos) << option;
  }
}

TEST(OptionsTest, TellsWhatIsWrong) {
  EXPECT_EQ(ProblemOf({"--headless"}), "--headless needs a value");
  EXPECT_EQ(ProblemOf({"--data", "--headless", "file"}), "--data needs a value");
  EXPECT_EQ(ProblemOf({"--data", ""}), "--data needs a value");
  EXPECT_EQ(ProblemOf({"--headless", "a", "--headless", "b"}), "--headless is given twice");
  EXPECT_EQ(ProblemOf({"--loud"}), "unknown argument \"--loud\"");
  EXPECT_EQ(ProblemOf({"file.txt"}), "unknown argument \"file.txt\"");
}

}  // namespace
}  // namespace vestrel::workbench
