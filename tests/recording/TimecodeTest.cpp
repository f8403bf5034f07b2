#include <gtest/gtest.h>

#include <limits>

#include "core/Convert.h"
#include "recording/Timecode.h"

namespace vestrel {
namespace {

TEST(TimecodeTest, WritesHoursMinutesSecondsAndMilliseconds) {
  const std::pair<std::int32_t, const char16_t*> table[] = {
      {0, u"00:00:00.000"},
      {1, u"00:00:00.001"},
      {999, u"00:00:00.999"},
      {1000, u"00:00:01.000"},
      {59999, u"00:00:59.999"},
      {60000, u"00:01:00.000"},
      {3599999, u"00:59:59.999"},
      {3600000, u"01:00:00.000"},
      {3723004, u"01:02:03.004"},
      {359999999, u"99:59:59.999"},
      {360000000, u"100:00:00.000"},
      {std::numeric_limits<std::int32_t>::max(), u"596:31:23.647"},
      {-1, u"00:00:00.-001"},
      {-61002, u"00:-01:-01.-002"},
      {std::numeric_limits<std::int32_t>::min(), u"-596:-31:-23.-648"},
  };
  for (const auto& [milliseconds, text] : table) {
    EXPECT_EQ(ToUtf8(MillisecondsToTimecode(milliseconds)), ToUtf8(text));
  }
}

TEST(TimecodeTest, ReadsThreeForms) {
  const std::pair<const char16_t*, std::int32_t> table[] = {
      {u"00.000", 0},
      {u"12.345", 12345},
      {u"99.999", 99999},
      {u"00:59.999", 59999},
      {u"00:99.000", 99000},
      {u"99:99.999", 99 * 60000 + 99999},
      {u"01:00:00.000", 3600000},
      {u"01:02:03.004", 3723004},
      {u"99:99:99.999", 362439999},
  };
  for (const auto& [text, expected] : table) {
    std::int32_t result = -1;
    EXPECT_TRUE(TimecodeToMilliseconds(text, result)) << ToUtf8(text);
    EXPECT_EQ(result, expected) << ToUtf8(text);
  }
}

TEST(TimecodeTest, RefusesEverythingElse) {
  for (const char16_t* text :
       {u"", u"1:00.000", u"1:02.000", u"0.000", u"00,000", u"00.00", u"00.0000", u"000.000", u"-0.000",
        u" 0.000", u"+1.000", u"0a.000", u"00:00:00:00.000", u"100:00:00.000", u"01-02:03.004",
        u"01:02:03.00\u0664", u"##.###", u"00:00:00.000 "}) {
    std::int32_t result = -7;
    EXPECT_FALSE(TimecodeToMilliseconds(text, result)) << ToUtf8(text);
    EXPECT_EQ(result, -7) << ToUtf8(text);
  }
}

TEST(TimecodeTest, ReadsBackWhatItWritesBelow100Hours) {
  for (std::int32_t milliseconds = 0; milliseconds < 360000000; milliseconds += 1234567) {
    std::int32_t result = -1;
    EXPECT_TRUE(TimecodeToMilliseconds(MillisecondsToTimecode(milliseconds), result));
    EXPECT_EQ(result, milliseconds);
  }
  std::int32_t result = -1;
  EXPECT_FALSE(TimecodeToMilliseconds(MillisecondsToTimecode(360000000), result));
}

}  // namespace
}  // namespace vestrel
