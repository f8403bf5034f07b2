#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/Platform.h"
#include "tests/support/FakePlatform.h"

namespace vestrel::platform {
namespace {

TEST(PlatformTest, AnOverrideReplacesOnlyWhatItNamesAndUndoesItself) {
  Clock& systemClock = clock();
  Files& systemFiles = files();
  test::FakeClock fake;
  {
    const Override outer({&fake, nullptr, nullptr, nullptr});
    EXPECT_EQ(&clock(), &fake);
    EXPECT_EQ(&files(), &systemFiles);
    test::FakeClock inner;
    {
      const Override nested({&inner, nullptr, nullptr, nullptr});
      EXPECT_EQ(&clock(), &inner);
    }
    EXPECT_EQ(&clock(), &fake);
  }
  EXPECT_EQ(&clock(), &systemClock);
}

TEST(PlatformTest, MessageBoxesAreLoggedWhenTheEnvironmentAsks) {
  unsetenv("VESTREL_MESSAGE_BOX");
  EXPECT_FALSE(MessageBoxesAreLogged());
  setenv("VESTREL_MESSAGE_BOX", "log", 1);
  EXPECT_TRUE(MessageBoxesAreLogged());
  setenv("VESTREL_MESSAGE_BOX", "show", 1);
  EXPECT_FALSE(MessageBoxesAreLogged());
  unsetenv("VESTREL_MESSAGE_BOX");
}

TEST(PlatformTest, TheTickCountGoesOn) {
  const std::uint32_t before = clock().TickCount();
  EXPECT_LT(clock().TickCount() - before, 60'000U);
}

TEST(PlatformTest, TheDateTextHasTheGeneralForm) {
  const std::u16string text = clock().LocalDateTimeText();
  ASSERT_EQ(text.size(), 19U);
  EXPECT_EQ(text[2], u'/');
  EXPECT_EQ(text[10], u' ');
  EXPECT_EQ(text[13], u':');
}

}  // namespace
}  // namespace vestrel::platform
