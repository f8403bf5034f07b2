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

TEST(OptionsTest, WithoutArgumentsTheEveningIsPlayedWithTheSample) {
  const Options options = Read({});
  EXPECT_EQ(options.task, Task::PlayEvening);
  EXPECT_TRUE(options.withSample);
  EXPECT_EQ(options.dataFolder, "");
}

TEST(OptionsTest, HeadlessPlaysAFileInAnEmptyFolder) {
  const Options options = Read({"--data", "dir", "--headless", "-"});
  EXPECT_EQ(options.task, Task::PlayCommands);
  EXPECT_EQ(options.commands, "-");
  EXPECT_EQ(options.dataFolder, "dir");
  EXPECT_FALSE(options.withSample);
}

TEST(OptionsTest, HeadlessMayBeginWithTheSample) {
  EXPECT_TRUE(Read({"--sample", "--headless", "file"}).withSample);
  EXPECT_TRUE(Read({"--headless", "file", "--sample"}).withSample);
}

TEST(OptionsTest, HelpAndTheListOfOperationsNeedNothingElse) {
  EXPECT_EQ(Read({"--headless", "file", "--help"}).task, Task::ShowHelp);
  EXPECT_EQ(Read({"-h"}).task, Task::ShowHelp);
  EXPECT_EQ(Read({"--operations"}).task, Task::ListOperations);
  for (const std::string_view option : {"--headless", "--data", "--sample", "--examples", "--operations"}) {
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
