#include <gtest/gtest.h>

#include <fstream>

#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/Options.h"
#include "workbench/server/Journal.h"

namespace vestrel::workbench {
namespace {

class JournalTest : public Workbench {
 protected:
  JournalTest() {
    std::filesystem::create_directory(data());
    std::filesystem::create_directory(restored());
  }
  std::filesystem::path data() const { return folder() / "data"; }
  std::filesystem::path restored() const { return folder() / "restored"; }
  std::filesystem::path file() const { return folder() / "journal"; }
  static void Put(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string AllBytes() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return bytes;
  }
};

TEST_F(JournalTest, KeepsTheFilesThatTheHostBeganWith) {
  Put(data() / "Sequences/Gala/Page 1/All.ASQ", AllBytes());
  Put(data() / "Sequences/Gala/empty.ini", "");
  Put(data() / "vestrel.log", "not data");
  std::filesystem::create_directories(data() / "Sequences/Caf\xC3\xA9");
  JournalWriter(file()).Begin(data(), {1234, ClockStart::kEvening});
  JournalReader reader(file());
  EXPECT_EQ(reader.start().ticks, 1234U);
  EXPECT_EQ(reader.start().local, ClockStart::kEvening);
  reader.RestoreFiles(restored());
  EXPECT_EQ(FileBytes(restored() / "Sequences/Gala/Page 1/All.ASQ"), AllBytes());
  EXPECT_TRUE(std::filesystem::exists(restored() / "Sequences/Gala/empty.ini"));
  EXPECT_TRUE(std::filesystem::is_directory(restored() / "Sequences/Caf\xC3\xA9"));
  EXPECT_FALSE(std::filesystem::exists(restored() / "vestrel.log"));
  EXPECT_EQ(reader.filesLeftOut(), 0U);
  EXPECT_EQ(reader.Peek(), nullptr);
}

TEST_F(JournalTest, NamesFilesThatAreTooLarge) {
  Put(data() / "small", "12345");
  Put(data() / "large", std::string(2000, 'x'));
  JournalWriter(file(), {1000, 1000}).Begin(data(), {});
  JournalReader reader(file());
  reader.RestoreFiles(restored());
  EXPECT_EQ(reader.filesLeftOut(), 1U);
  EXPECT_TRUE(std::filesystem::exists(restored() / "small"));
  EXPECT_FALSE(std::filesystem::exists(restored() / "large"));
}

TEST_F(JournalTest, EveryLineIsInTheFileAtOnce) {
  JournalWriter writer(file());
  writer.Begin(data(), {});
  writer.CallBegan("persist", 5, 0);
  EXPECT_TRUE(FileBytes(file()).ends_with("{\"call\":\"persist\",\"ms\":5}\n"));
  writer.CallbackMade("Some(\"text\")");
  EXPECT_TRUE(FileBytes(file()).ends_with("{\"back\":\"Some(\\\"text\\\")\"}\n"));
}

TEST_F(JournalTest, APartIsFullAtItsSizeAndEndsAtTwiceThat) {
  JournalWriter writer(file(), {4000, 1000});
  writer.Begin(data(), {});
  EXPECT_FALSE(writer.IsFull());
  for (int i = 0; i < 1000; ++i) writer.CallbackMade("A callback that takes its place in the file()");
  EXPECT_TRUE(writer.IsFull());
  EXPECT_TRUE(FileBytes(file()).ends_with("{\"full\":true}\n"));
  EXPECT_LT(std::filesystem::file_size(file()), 8500U);
}

TEST_F(JournalTest, ANewPartKeepsTheOneBefore) {
  JournalWriter writer(file(), {4000, 1000});
  for (const char* call : {"first", "second", "third"}) {
    writer.Begin(data(), {});
    writer.CallBegan(call, 1, 0);
  }
  EXPECT_NE(FileBytes(file()).find("third"), std::string::npos);
  EXPECT_EQ(FileBytes(file()).find("second"), std::string::npos);
  EXPECT_NE(FileBytes(file().string() + ".1").find("second"), std::string::npos);
}

TEST_F(JournalTest, ATornLastLineIsNotRead) {
  JournalWriter(file()).Begin(data(), {});
  std::ofstream(file(), std::ios::app) << "{\"call\":\"whole\"}\n{\"call\":\"tor";
  JournalReader reader(file());
  reader.SkipFiles();
  ASSERT_NE(reader.Peek(), nullptr);
  EXPECT_EQ(reader.Peek()->value("call", ""), "whole");
  reader.Take();
  EXPECT_EQ(reader.Peek(), nullptr);
  EXPECT_EQ(reader.Peek(), nullptr);
}

TEST_F(JournalTest, AJournalFromElsewhereWritesNowhereElse) {
  for (const char* name : {"../outside", "/tmp/outside", "a/../../outside", "C:\\\\outside"}) {
    Put(file(), "{\"journal\":1}\n{\"file\":\"" + std::string(name) + "\",\"bytes\":\"x\"}\n");
    JournalReader reader(file());
    EXPECT_THROW(reader.RestoreFiles(restored()), BadUsage) << name;
  }
  EXPECT_FALSE(std::filesystem::exists(folder() / "outside"));
}

TEST_F(JournalTest, AFolderThatCannotBeWrittenIsToldAtOnce) {
  EXPECT_THROW(JournalWriter(folder() / "absent" / "journal").Begin(data(), {}), std::exception);
}

}  // namespace
}  // namespace vestrel::workbench
