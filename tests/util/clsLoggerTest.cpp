#include <gtest/gtest.h>

#include <string>

#include "core/Ref.h"
#include "tests/support/Errors.h"
#include "tests/support/FakePlatform.h"
#include "util/clsLogger.h"

namespace vestrel {
namespace {

constexpr const char16_t* kFile = u"C:\\data\\log.txt";
const std::string kHeader =
    "[LogSystem] ========================================\r\n[LogSystem] logging started at 15/11/2026 "
    "07:31:41\r\n";

class clsLoggerTest : public test::TestPlatform {
 protected:
  clsLoggerTest() { files.PutFolder(u"C:\\data"); }

  Ref<clsLogger> Started() {
    Ref<clsLogger> logger = MakeRef<clsLogger>();
    logger->Init(kFile);
    return logger;
  }
};

TEST_F(clsLoggerTest, WritesItsHeader) {
  Started();
  EXPECT_EQ(files.Get(kFile), kHeader);
}

TEST_F(clsLoggerTest, WritesEachLevelsName) {
  const Ref<clsLogger> logger = Started();
  logger->SetLevel(LogLevel_4_SPEW);
  logger->Log(u"a", LogLevel_0_SYSTEM);
  logger->Log(u"b", LogLevel_1_SEVERE);
  logger->Log(u"c", LogLevel_2_WARNING);
  logger->Log(u"d", LogLevel_3_INFO);
  logger->Log(u"e", LogLevel_4_SPEW);
  logger->Log(u"f");
  EXPECT_EQ(files.Get(kFile),
            kHeader + "[LogSystem] a\r\n[Severe] b\r\n[Warning] c\r\n[Info] d\r\n[Spew] e\r\n[Info] f\r\n");
}

TEST_F(clsLoggerTest, WritesWhatTheLevelLetsPass) {
  for (std::int32_t threshold = -1; threshold <= 4; ++threshold) {
    for (std::int32_t level = -2; level <= 4; ++level) {
      const Ref<clsLogger> logger = Started();
      logger->SetLevel(static_cast<LogLevel_Enum>(threshold));
      const std::string before = files.Get(kFile);
      logger->Log(u"x", static_cast<LogLevel_Enum>(level));
      const bool written = files.Get(kFile) != before;
      EXPECT_EQ(written, level >= 0 && level <= threshold) << threshold << " " << level;
      EXPECT_EQ(logger->Passes(static_cast<LogLevel_Enum>(level)), written);
    }
  }
}

TEST_F(clsLoggerTest, StartsAtInfo) {
  const Ref<clsLogger> logger = Started();
  EXPECT_TRUE(logger->Passes(LogLevel_3_INFO));
  EXPECT_FALSE(logger->Passes(LogLevel_4_SPEW));
  logger->SetLevel(LogLevel_0_SYSTEM);
  logger->Init(kFile);
  EXPECT_TRUE(logger->Passes(LogLevel_3_INFO));
}

TEST_F(clsLoggerTest, ALevelWithoutANameIsOutOfRangeOnceItPasses) {
  const Ref<clsLogger> logger = Started();
  logger->Log(u"x", static_cast<LogLevel_Enum>(5));
  logger->SetLevel(static_cast<LogLevel_Enum>(7));
  EXPECT_RAISES(9, logger->Log(u"x", static_cast<LogLevel_Enum>(5)));
  EXPECT_EQ(files.Get(kFile), kHeader);
}

TEST_F(clsLoggerTest, WritesNothingBeforeInit) {
  const Ref<clsLogger> logger = MakeRef<clsLogger>();
  logger->Log(u"x", LogLevel_0_SYSTEM);
  EXPECT_EQ(files.Calls(), 0);
}

TEST_F(clsLoggerTest, AppendsToWhatIsThere) {
  files.Put(kFile, "earlier\r\n");
  Started();
  Started();
  EXPECT_EQ(files.Get(kFile), "earlier\r\n" + kHeader + kHeader);
}

TEST_F(clsLoggerTest, DoesNotJoinTheTornLastLineOfAKilledRun) {
  files.Put(kFile, "[Info] to");
  Started();
  EXPECT_EQ(files.Get(kFile), "[Info] to\r\n" + kHeader);
  files.Put(kFile, "");
  Started();
  EXPECT_EQ(files.Get(kFile), kHeader);
}

TEST_F(clsLoggerTest, OpensWritesAndClosesTheFileForEachLine) {
  const Ref<clsLogger> logger = Started();
  files.ForgetCalls();
  logger->Log(u"x");
  EXPECT_EQ(files.Calls("Open"), 1);
  EXPECT_EQ(files.Calls("WriteAt"), 1);
  EXPECT_EQ(files.Calls(), 3);
  EXPECT_EQ(files.OpenFiles(), 0);
}

TEST_F(clsLoggerTest, WritesTheNarrowPage) {
  Started()->Log(u"caf\u00E9 \U0001F4A1");
  EXPECT_EQ(files.Get(kFile), kHeader + "[Info] caf\xC3\xA9 \xF0\x9F\x92\xA1\r\n");
}

TEST_F(clsLoggerTest, WritesLineBreaksAsTheyAre) {
  Started()->Log(u"two\r\nlines");
  EXPECT_EQ(files.Get(kFile), kHeader + "[Info] two\r\nlines\r\n");
}

TEST_F(clsLoggerTest, GoesOnAfterAShortWrite) {
  const Ref<clsLogger> logger = Started();
  files.LimitWrites(3);
  logger->Log(u"a line in pieces");
  EXPECT_EQ(files.Get(kFile), kHeader + "[Info] a line in pieces\r\n");
}

TEST_F(clsLoggerTest, AFileThatCannotBeOpenedFailsTheCaller) {
  using platform::FileStatus;
  const struct {
    FileStatus status;
    std::int32_t number;
  } rows[] = {{FileStatus::PathNotFound, 76},
              {FileStatus::AccessDenied, 75},
              {FileStatus::Busy, 70},
              {FileStatus::BadName, 52},
              {FileStatus::IoError, 57}};
  const Ref<clsLogger> logger = Started();
  for (const auto& row : rows) {
    files.FailEvery("Open", row.status);
    EXPECT_RAISES(row.number, logger->Log(u"x"));
    files.FailNothing();
  }
  EXPECT_EQ(files.Get(kFile), kHeader);
  logger->Log(u"works again");
  EXPECT_EQ(files.Get(kFile), kHeader + "[Info] works again\r\n");
}

TEST_F(clsLoggerTest, AMissingFolderIsPathNotFoundAndNamesTheFile) {
  try {
    MakeRef<clsLogger>()->Init(u"C:\\none\\log.txt");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 76);
    EXPECT_EQ(error.description(), u"Path not found: C:\\none\\log.txt");
  }
}

TEST_F(clsLoggerTest, AReadOnlyFileIsAnAccessError) {
  files.Put(kFile, "");
  files.SetReadOnly(kFile, true);
  EXPECT_RAISES(75, Started());
}

TEST_F(clsLoggerTest, EveryFailingCallIsReportedAndLeaksNoHandle) {
  const Ref<clsLogger> logger = Started();
  for (int nth = 1; nth <= 3; ++nth) {
    logger->Log(u"sound");
    files.FailCall(nth, platform::FileStatus::DiskFull);
    EXPECT_RAISES(61, logger->Log(u"x")) << nth;
    files.FailNothing();
    EXPECT_EQ(files.OpenFiles(), 0) << nth;
  }
}

TEST_F(clsLoggerTest, ALineAfterAFailedWriteStartsOnALineOfItsOwn) {
  const Ref<clsLogger> logger = Started();
  files.LimitWrites(4);
  files.FailCall(3, platform::FileStatus::DiskFull, true);
  EXPECT_RAISES(61, logger->Log(u"lost"));
  files.FailNothing();
  files.LimitWrites(1000);
  ASSERT_EQ(files.Get(kFile), kHeader + "[Inf");
  logger->Log(u"next");
  EXPECT_EQ(files.Get(kFile), kHeader + "[Inf\r\n[Info] next\r\n");
}

TEST_F(clsLoggerTest, AFileThatTakesNothingIsAFullDisk) {
  const Ref<clsLogger> logger = Started();
  files.LimitWrites(0);
  EXPECT_RAISES(61, logger->Log(u"lost"));
  files.LimitWrites(1000);
  logger->Log(u"next");
  EXPECT_EQ(files.Get(kFile), kHeader + "[Info] next\r\n");
}

TEST_F(clsLoggerTest, ACallThatIsInterruptedWithoutEndFails) {
  const Ref<clsLogger> logger = Started();
  for (const char* const call : {"Open", "WriteAt", "Close"}) {
    files.FailEvery(call, platform::FileStatus::Interrupted);
    EXPECT_RAISES(Error_DeviceIO, logger->Log(u"x")) << call;
    files.FailNothing();
  }
}

TEST_F(clsLoggerTest, AnyInterruptedCallIsMadeAgain) {
  const Ref<clsLogger> logger = Started();
  for (int nth = 1; nth <= 3; ++nth) {
    files.FailCall(nth, platform::FileStatus::Interrupted);
    logger->Log(u"x");
  }
  EXPECT_EQ(files.Get(kFile), kHeader + "[Info] x\r\n[Info] x\r\n[Info] x\r\n");
}

TEST_F(clsLoggerTest, AnInterruptedWriteIsTriedAgain) {
  const Ref<clsLogger> logger = Started();
  files.FailCall(2, platform::FileStatus::Interrupted);
  logger->Log(u"x");
  EXPECT_EQ(files.Get(kFile), kHeader + "[Info] x\r\n");
}

}  // namespace
}  // namespace vestrel
