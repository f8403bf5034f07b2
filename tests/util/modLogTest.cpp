#include <gmock/gmock.h>

#include <thread>

#include "core/Object.h"
#include "tests/support/Errors.h"
#include "tests/support/LogFixture.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

using testing::ElementsAre;

class modLogTest : public test::LogFixture {};

// Runs on a thread of its own, which has no logger yet.
template <class Body>
void OnFreshThread(Body body) {
  std::thread(body).join();
}

TEST_F(modLogTest, SharesOneLogger) {
  modLog::Log(u"one");
  modLog::GetLogger()->Log(u"two", LogLevel_1_SEVERE);
  EXPECT_THAT(LogLines(), ElementsAre("[Info] one", "[Severe] two"));
}

TEST_F(modLogTest, SetsTheLevelOfTheSharedLogger) {
  modLog::Log(u"hidden", LogLevel_4_SPEW);
  modLog::SetLogLevel(LogLevel_4_SPEW);
  modLog::Log(u"shown", LogLevel_4_SPEW);
  EXPECT_TRUE(modLog::Passes(LogLevel_4_SPEW));
  modLog::SetLogLevel(LogLevel_0_SYSTEM);
  modLog::Log(u"hidden");
  EXPECT_FALSE(modLog::Passes(LogLevel_1_SEVERE));
  EXPECT_THAT(LogLines(), ElementsAre("[Spew] shown"));
}

TEST_F(modLogTest, ASecondInitReplacesTheLogger) {
  const Ref<clsLogger> first = modLog::GetLogger();
  modLog::SetLogLevel(LogLevel_0_SYSTEM);
  modLog::Init(u"C:\\data\\second.txt");
  EXPECT_FALSE(modLog::GetLogger() == first);
  modLog::Log(u"here");
  EXPECT_TRUE(LogLines().empty());
  EXPECT_EQ(files.Get(u"C:\\data\\second.txt"),
            "[LogSystem] ========================================\r\n"
            "[LogSystem] logging started at 15/11/2026 07:31:41\r\n[Info] here\r\n");
}

TEST_F(modLogTest, FormatsWhatPasses) {
  modLog::LogFormat(LogLevel_2_WARNING, u"page [%s] of %d\\t.", u"Page 1", 3);
  modLog::LogFormat(LogLevel_3_INFO, u"plain");
  modLog::LogFormat(LogLevel_4_SPEW, u"hidden %s", u"x");
  EXPECT_THAT(LogLines(), ElementsAre("[Warning] page [Page 1] of 3\t.", "[Info] plain"));
}

TEST_F(modLogTest, DoesNotFormatWhatDoesNotPass) {
  const Variant none{Ref<Object>()};
  EXPECT_RAISES(91, modLog::LogFormat(LogLevel_3_INFO, u"%s", none));
  modLog::LogFormat(LogLevel_4_SPEW, u"%s", none);
  EXPECT_TRUE(LogLines().empty());
}

TEST_F(modLogTest, ALoggerWhoseHeaderCouldNotBeWrittenStaysShared) {
  EXPECT_RAISES(76, modLog::Init(u"C:\\none\\log.txt"));
  EXPECT_RAISES(76, modLog::Log(u"x"));
  modLog::Log(u"x", LogLevel_4_SPEW);
}

TEST_F(modLogTest, LoggingBeforeInitIsAMissingObject) {
  OnFreshThread([] {
    EXPECT_FALSE(modLog::GetLogger());
    EXPECT_RAISES(91, modLog::Log(u"x"));
    EXPECT_RAISES(91, modLog::Log(u"x", LogLevel_4_SPEW));
    EXPECT_RAISES(91, modLog::LogFormat(LogLevel_4_SPEW, u"x"));
    EXPECT_RAISES(91, modLog::SetLogLevel(LogLevel_0_SYSTEM));
    EXPECT_RAISES(91, modLog::Passes(LogLevel_0_SYSTEM));
  });
}

}  // namespace
}  // namespace vestrel
