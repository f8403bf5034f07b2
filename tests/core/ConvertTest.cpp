#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "core/Convert.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"
#include "core/clsString.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

TEST(ConvertTest, ReadsNumbersInText) {
  const struct {
    std::u16string_view text;
    double value;
  } rows[] = {
      {u"0", 0},
      {u"12", 12},
      {u"-12", -12},
      {u"+12", 12},
      {u"  12\t ", 12},
      {u"1.5", 1.5},
      {u".5", 0.5},
      {u"5.", 5},
      {u"-.25", -0.25},
      {u"1e3", 1000},
      {u"1E+3", 1000},
      {u"25e-1", 2.5},
      {u"007", 7},
      {u"1e-400", 0},
      {u"0e999999999999", 0},
      {u"0.0", 0},
      {u"1.7976931348623157e308", 1.7976931348623157e308},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(TextToDouble(row.text), row.value) << ToUtf8(row.text);
    EXPECT_TRUE(IsNumericText(row.text)) << ToUtf8(row.text);
  }
}

TEST(ConvertTest, TextThatIsNoNumberIsATypeMismatch) {
  for (const std::u16string_view text :
       {u"",    u" ",  u"abc", u"1 2",  u"1,5", u"1e",  u"1e+",      u"1e1.5", u".",   u"-",     u"+-1",
        u"--1", u"1x", u"e5",  u"0x10", u"inf", u"nan", u"infinity", u"1.2.3", u"- 1", u"\u0661"}) {
    EXPECT_RAISES(13, TextToDouble(text)) << ToUtf8(text);
    EXPECT_RAISES(13, TextToSingle(text)) << ToUtf8(text);
    EXPECT_RAISES(13, TextToLong(text)) << ToUtf8(text);
    EXPECT_RAISES(13, TextToShort(text)) << ToUtf8(text);
    EXPECT_RAISES(13, TextToBoolean(text)) << ToUtf8(text);
    EXPECT_FALSE(IsNumericText(text)) << ToUtf8(text);
  }
}

TEST(ConvertTest, ANumberThatDoesNotFitOverflows) {
  EXPECT_RAISES(6, TextToDouble(u"1e400"));
  EXPECT_RAISES(6, TextToDouble(std::u16string(400, u'9')));
  EXPECT_RAISES(6, TextToSingle(u"1e39"));
  EXPECT_RAISES(6, TextToLong(u"2147483648"));
  EXPECT_RAISES(6, TextToLong(u"-2147483648.6"));
  EXPECT_RAISES(6, TextToShort(u"32768"));
  EXPECT_RAISES(6, TextToShort(u"1e99"));
  EXPECT_FALSE(IsNumericText(u"1e400"));
}

TEST(ConvertTest, ASingleHasItsOwnLimits) {
  EXPECT_EQ(TextToSingle(u"1e-60"), 0.0F);
  EXPECT_EQ(TextToSingle(u"1e38"), 1e38F);
  EXPECT_RAISES(6, TextToSingle(u"1e39"));
  EXPECT_RAISES(13, TextToSingle(u"one"));
}

TEST(ConvertTest, TheLimitsStillFit) {
  EXPECT_EQ(TextToLong(u"2147483647"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(TextToLong(u"-2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(TextToLong(u"2147483647.4"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(TextToShort(u"-32768"), std::numeric_limits<std::int16_t>::min());
  EXPECT_EQ(TextToShort(u"32767"), std::numeric_limits<std::int16_t>::max());
}

TEST(ConvertTest, HalvesRoundToTheEvenNeighbour) {
  const struct {
    double value;
    std::int32_t rounded;
  } rows[] = {{0.5, 0},
              {1.5, 2},
              {2.5, 2},
              {3.5, 4},
              {-0.5, 0},
              {-1.5, -2},
              {-2.5, -2},
              {2.49, 2},
              {2.51, 3},
              {-2.51, -3},
              {0.49999999999999994, 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(ToLong(Variant(row.value)), row.rounded) << row.value;
    EXPECT_EQ(ToShort(Variant(row.value)), row.rounded) << row.value;
  }
}

TEST(ConvertTest, BooleansAreReadInAnyLetterCaseAndAsNumbers) {
  EXPECT_TRUE(TextToBoolean(u"True"));
  EXPECT_TRUE(TextToBoolean(u"tRUE"));
  EXPECT_FALSE(TextToBoolean(u"FALSE"));
  EXPECT_TRUE(TextToBoolean(u"-1"));
  EXPECT_TRUE(TextToBoolean(u"0.1"));
  EXPECT_FALSE(TextToBoolean(u" 0 "));
  EXPECT_TRUE(TextToBoolean(u" True "));
  EXPECT_EQ(TextToLong(u" true"), -1);
  EXPECT_EQ(TextToLong(u"True"), -1);
  EXPECT_EQ(TextToLong(u"false"), 0);
  EXPECT_EQ(TextToShort(u"TRUE"), -1);
  EXPECT_EQ(TextToShort(u"False"), 0);
}

TEST(ConvertTest, WritesNumbersAsShortAsTheyReadBack) {
  const struct {
    double value;
    std::u16string_view text;
  } rows[] = {{0, u"0"},
              {-0.0, u"0"},
              {1, u"1"},
              {-1, u"-1"},
              {100000, u"100000"},
              {0.5, u"0.5"},
              {-0.25, u"-0.25"},
              {0.1, u"0.1"},
              {12.345, u"12.345"},
              {0.00001, u"0.00001"},
              {0.000001, u"1E-06"},
              {123456789012345, u"123456789012345"},
              {1e15, u"1E+15"},
              {1.5e300, u"1.5E+300"},
              {1e100, u"1E+100"}};
  for (const auto& row : rows) EXPECT_EQ(ToUtf8(DoubleToText(row.value)), ToUtf8(row.text));
  EXPECT_EQ(SingleToText(0.1F), u"0.1");
  EXPECT_EQ(SingleToText(16777216.0F), u"16777216");
  EXPECT_EQ(SingleToText(-1.5F), u"-1.5");
  EXPECT_EQ(DoubleToText(std::numeric_limits<double>::infinity()), u"inf");
  EXPECT_EQ(SingleToText(-std::numeric_limits<float>::infinity()), u"-inf");
  EXPECT_EQ(LongToText(std::numeric_limits<std::int32_t>::min()), u"-2147483648");
  EXPECT_EQ(BooleanToText(true), u"True");
  EXPECT_EQ(BooleanToText(false), u"False");
}

TEST(ConvertTest, EveryNumberReadsBackAsItWas) {
  std::mt19937_64 random(7);  // NOLINT: the same numbers in every run
  for (int i = 0; i < 20000; ++i) {
    const auto bits = random();
    const double wide = std::ldexp(static_cast<double>(bits >> 11U), static_cast<int>(bits % 1900U) - 1000);
    EXPECT_EQ(TextToDouble(DoubleToText(wide)), wide);
    const float narrow = std::ldexp(static_cast<float>(bits >> 40U), static_cast<int>(bits % 200U) - 120);
    EXPECT_EQ(TextToSingle(SingleToText(narrow)), narrow);
  }
}

TEST(ConvertTest, TurnsDynamicValuesIntoText) {
  EXPECT_EQ(ToText(Variant()), u"");
  EXPECT_EQ(ToText(true), u"True");
  EXPECT_EQ(ToText(false), u"False");
  EXPECT_EQ(ToText(-7), u"-7");
  EXPECT_EQ(ToText(2.5), u"2.5");
  EXPECT_EQ(ToText(u"x"), u"x");
  EXPECT_EQ(ToText(BoxLong(4)), u"4");
  EXPECT_EQ(ToText(BoxString(u"boxed")), u"boxed");
}

TEST(ConvertTest, TurnsDynamicValuesIntoNumbers) {
  EXPECT_EQ(ToDouble(Variant()), 0);
  EXPECT_EQ(ToDouble(true), -1);
  EXPECT_EQ(ToDouble(u"1.5"), 1.5);
  EXPECT_EQ(ToDouble(BoxString(u"1.5")), 1.5);
  EXPECT_EQ(ToLong(Variant()), 0);
  EXPECT_EQ(ToLong(true), -1);
  EXPECT_EQ(ToLong(u"2.5"), 2);
  EXPECT_EQ(ToLong(BoxLong(9)), 9);
  EXPECT_EQ(ToShort(false), 0);
  EXPECT_EQ(ToShort(u"12"), 12);
  EXPECT_EQ(ToShort(BoxLong(12)), 12);
  EXPECT_TRUE(ToBoolean(5));
  EXPECT_FALSE(ToBoolean(Variant()));
  EXPECT_TRUE(ToBoolean(u"true"));
  EXPECT_TRUE(ToBoolean(BoxLong(1)));
  EXPECT_TRUE(ToBoolean(true));
}

TEST(ConvertTest, AnObjectWithoutAValueIsATypeMismatchAndNoneIsNone) {
  const Variant list(MakeRef<clsObjectList>());
  const Variant none{Ref<Object>()};
  EXPECT_RAISES(13, ToText(list));
  EXPECT_RAISES(13, ToLong(list));
  EXPECT_RAISES(13, ToShort(list));
  EXPECT_RAISES(13, ToDouble(list));
  EXPECT_RAISES(13, ToBoolean(list));
  EXPECT_RAISES(91, ToText(none));
  EXPECT_RAISES(6, ToShort(40000));
  EXPECT_RAISES(6, ToLong(std::numeric_limits<double>::quiet_NaN()));
}

TEST(ConvertTest, TellsNumericValuesFromOthers) {
  EXPECT_TRUE(IsNumeric(1));
  EXPECT_TRUE(IsNumeric(1.5));
  EXPECT_TRUE(IsNumeric(true));
  EXPECT_TRUE(IsNumeric(u" 12 "));
  EXPECT_FALSE(IsNumeric(u"12a"));
  EXPECT_FALSE(IsNumeric(Variant()));
  EXPECT_FALSE(IsNumeric(Variant(Ref<Object>())));
}

TEST(ConvertTest, FoldsLettersOfTheBasicAlphabetOnly) {
  EXPECT_TRUE(EqualIgnoringCase(u"Page 1", u"pAGE 1"));
  EXPECT_FALSE(EqualIgnoringCase(u"Page", u"Pages"));
  EXPECT_FALSE(EqualIgnoringCase(u"[", u"{"));
  EXPECT_EQ(LowerCase(u"AbC\u00C4Z["), u"abc\u00C4z[");
}

TEST(ConvertTest, WritesAndReadsUtf8) {
  const struct {
    std::u16string_view wide;
    std::string_view bytes;
  } rows[] = {{u"plain", "plain"},
              {u"\u00E4", "\xC3\xA4"},
              {u"\u20AC", "\xE2\x82\xAC"},
              {u"\U0001F4A1", "\xF0\x9F\x92\xA1"},
              {u"\uFFFD", "\xEF\xBF\xBD"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ToUtf8(row.wide), row.bytes);
    EXPECT_EQ(FromUtf8(row.bytes), row.wide);
  }
}

TEST(ConvertTest, WhatIsNoTextBecomesTheReplacementCharacter) {
  EXPECT_EQ(ToUtf8(u"a\xD800z"), "a\xEF\xBF\xBDz");
  EXPECT_EQ(ToUtf8(u"\xDC00"), "\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(std::u16string(1, u'\xD83D')), "\xEF\xBF\xBD");
  EXPECT_EQ(FromUtf8("a\x80z"), u"a\uFFFDz");
  EXPECT_EQ(FromUtf8("\xC3"), u"\uFFFD");
  EXPECT_EQ(FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");
  EXPECT_EQ(FromUtf8("\xE2\x82z"), u"\uFFFD\uFFFDz");
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(FromUtf8("\xF5\x80"), u"\uFFFD\uFFFD");
  EXPECT_EQ(FromUtf8("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

}  // namespace
}  // namespace vestrel
