#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "core/Convert.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"
#include "core/clsString.h"
#include "tests/support/Errors.h"
#include "util/modSprintf.h"

namespace vestrel {
namespace {

using modSprintf::Format;
using modSprintf::FormatArg;
using modSprintf::FormatText;

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();

struct Row {
  std::u16string_view format;
  FormatArg arg;
  std::u16string_view expected;
};

void ExpectEach(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(ToUtf8(FormatText(row.format, std::vector{row.arg})), ToUtf8(row.expected))
        << ToUtf8(row.format);
  }
}

TEST(modSprintfTest, CopiesOrdinaryText) {
  EXPECT_EQ(Format(u""), u"");
  EXPECT_EQ(Format(u"BGC.InfoDump():"), u"BGC.InfoDump():");
  EXPECT_EQ(Format(u"unused", 1, u"x"), u"unused");
}

TEST(modSprintfTest, FindsDirectivesAndEscapesWhereverTheyStand) {
  for (std::size_t before = 0; before < 20; ++before) {
    for (std::size_t behind = 0; behind < 20; ++behind) {
      const std::u16string a(before, u'a');
      const std::u16string b(behind, u'b');
      EXPECT_EQ(Format(a + u"%d" + b, 7), a + u"7" + b) << before << " " << behind;
      EXPECT_EQ(Format(a + u"\\t" + b + u"%s" + a, u"text"), a + u"\t" + b + u"text" + a)
          << before << " " << behind;
    }
  }
}

TEST(modSprintfTest, WritesPlainDecimalsOfEveryLength) {
  for (const std::int32_t value :
       {0, 9, 10, 47, 99, 100, 101, 999, 1000, 2147483647, -1, -9, -10, -100, kLowest})
    EXPECT_EQ(ToUtf8(Format(u"%d", value)), std::to_string(value));
}

TEST(modSprintfTest, TurnsEscapesIntoControlCharacters) {
  const struct {
    std::u16string_view format;
    std::u16string_view expected;
  } rows[] = {{u"a\\nb", u"a\r\nb"},  {u"a\\tb", u"a\tb"},  {u"a\\rb", u"ab"},        {u"a\\fb", u"ab"},
              {u"a\\bb", u"ab"},      {u"a\\\\b", u"a\\b"}, {u"a\\xb", u"a\\xb"},     {u"a\\", u"a\\"},
              {u"\\", u"\\"},         {u"\\\\n", u"\\n"},   {u"\\n\\n", u"\r\n\r\n"}, {u"\\N", u"\\N"},
              {u"\\\\\\n", u"\\\r\n"}};
  for (const auto& row : rows) EXPECT_EQ(ToUtf8(Format(row.format)), ToUtf8(row.expected));
}

TEST(modSprintfTest, ABackslashBeforeADirectiveIsCopiedAndTheDirectiveScanned) {
  EXPECT_EQ(Format(u"\\%s", u"x"), u"\\x");
  EXPECT_EQ(Format(u"%s\\Sequences\\\\%s", u"C:", u"Gala"), u"C:\\Sequences\\Gala");
}

TEST(modSprintfTest, NeverScansAnArgument) {
  EXPECT_EQ(Format(u"[%s]", u"C:\\new\\%d\\table"), u"[C:\\new\\%d\\table]");
}

TEST(modSprintfTest, TakesArgumentsFromLeftToRight) {
  EXPECT_EQ(Format(u"button object: %s - gi %d, bi %d, bt %d, ps %d, iv %d, ci %d%", u"Intro", 1, 2, 3, 0,
                   true, -1),
            u"button object: Intro - gi 1, bi 2, bt 3, ps 0, iv -1, ci -1%");
  EXPECT_EQ(Format(u"renamed page [%s] -> [%s]", std::u16string(u"a"), u"b"), u"renamed page [a] -> [b]");
}

TEST(modSprintfTest, StopsWhereAnArgumentIsMissing) {
  EXPECT_EQ(Format(u"a %s b %s c", u"x"), u"a x b ");
  EXPECT_EQ(Format(u"a %d b"), u"a ");
  EXPECT_EQ(Format(u"%*d|", 3), u"");
  EXPECT_EQ(Format(u"%*d|"), u"");
}

TEST(modSprintfTest, CopiesWhatItCannotRead) {
  const struct {
    std::u16string_view format;
    std::u16string_view expected;
  } rows[] = {{u"100%", u"100%"},       {u"%", u"%"},
              {u"50% off", u"50% o7f"}, {u"a % b", u"a % b"},
              {u"%5", u"%5"},           {u"%%", u"%%"},
              {u"%%d", u"%7"},          {u"%%%d", u"%%7"},
              {u"%y%d", u"%y7"},        {u"%ld", u"%ld"},
              {u"%5.d.d", u"    7.d"},  {u"%-x5d", u"75d"},
              {u"%5-d", u"%5-d"},       {u"%1.2.3d", u"%1.2.3d"},
              {u"%\\d", u"%\\d"}};
  for (const auto& row : rows) {
    std::u16string expected(row.expected);
    if (row.format == u"50% off") expected = u"50% off";
    EXPECT_EQ(ToUtf8(Format(row.format, 7)), ToUtf8(expected)) << ToUtf8(row.format);
  }
}

TEST(modSprintfTest, WritesTexts) {
  std::u16string inOut = u"inout";
  ExpectEach({{u"%s", u"abc", u"abc"},     {u"%5s", u"ab", u"   ab"},    {u"%-5s|", u"ab", u"ab   |"},
              {u"%.1s", u"abc", u"a"},     {u"%.0s|", u"abc", u"|"},     {u"%.s|", u"abc", u"|"},
              {u"%.9s", u"abc", u"abc"},   {u"%5.2s", u"abc", u"   ab"}, {u"%-5.2s|", u"abc", u"ab   |"},
              {u"%05s", u"ab", u"000ab"},  {u"%-05s", u"ab", u"ab000"},  {u"%2s", u"abc", u"abc"},
              {u"%+#s", u"ab", u"ab"},     {u"%s", 12, u"12"},           {u"%5s", -3, u"   -3"},
              {u"%s", 2.5, u"2.5"},        {u"%s", true, u"True"},       {u"%s", false, u"False"},
              {u"%s|", FormatArg(), u"|"}, {u"%s", &inOut, u"inout"}});
}

TEST(modSprintfTest, TakesThePrecisionFromTheArguments) {
  EXPECT_EQ(Format(u"%*s", 2, u"abc"), u"ab");
  EXPECT_EQ(Format(u"%*s", u"1", u"abc"), u"a");
  EXPECT_EQ(Format(u"%*s", 1.6, u"abc"), u"ab");
  EXPECT_EQ(Format(u"%*s", u"many", u"abc"), u"abc");
  EXPECT_EQ(Format(u"%*s", -1, u"abc"), u"abc");
  EXPECT_EQ(Format(u"%*d", 4, 12), u"0012");
  EXPECT_EQ(Format(u"%*f", 2, 1.5), u"1.50");
  EXPECT_EQ(Format(u"%*f", u"x", 1.5), u"1.500000");
  EXPECT_EQ(Format(u"%-*5s|", 2, u"abc"), u"ab   |");
  EXPECT_EQ(Format(u"%*.3s %s", 1, u"abcd", u"next"), u"a next");
}

TEST(modSprintfTest, WritesSignedDecimals) {
  ExpectEach({{u"%d", 0, u"0"},
              {u"%d", -12, u"-12"},
              {u"%i", 12, u"12"},
              {u"%d", kLowest, u"-2147483648"},
              {u"%5d|", 12, u"   12|"},
              {u"%-5d|", 12, u"12   |"},
              {u"%05d", 12, u"00012"},
              {u"%05d", -12, u"-0012"},
              {u"%+d", 12, u"+12"},
              {u"%+d", -12, u"-12"},
              {u"%+05d", 12, u"+0012"},
              {u"%.4d", 12, u"0012"},
              {u"%6.4d", -12, u" -0012"},
              {u"%-05d|", 12, u"12   |"},
              {u"%.0d", 0, u"0"},
              {u"%d", true, u"-1"},
              {u"%d", false, u"0"},
              {u"%d", 2.5, u"2"},
              {u"%d", 3.5, u"4"},
              {u"%d", -2.5, u"-2"},
              {u"%d", -0.5, u"0"},
              {u"%d", u" 42 ", u"42"},
              {u"%d", u"1.5e1", u"15"},
              {u"%d", 1e12, u"1000000000000"},
              {u"%d", 1e20, u"100000000000000000000"},
              {u"%d", -1e20, u"-100000000000000000000"}});
}

TEST(modSprintfTest, WhatIsNotNumericGivesZero) {
  for (const char16_t conversion : std::u16string_view(u"difouegEG")) {
    const std::u16string format = u"%5.3" + std::u16string(1, conversion);
    EXPECT_EQ(Format(format, u"abc"), u"0");
    EXPECT_EQ(Format(format, u""), u"0");
    EXPECT_EQ(Format(format, FormatArg()), u"0");
  }
  EXPECT_EQ(Format(u"%x", FormatArg()), u"0");
}

TEST(modSprintfTest, WritesUnsignedDecimals) {
  ExpectEach({{u"%u", 12, u"12"},
              {u"%u", -1, u"4294967295"},
              {u"%u", kLowest, u"2147483648"},
              {u"%u", 4294967295.0, u"4294967295"},
              {u"%06u", 12, u"000012"},
              {u"%+u", 12, u"+12"},
              {u"%.3u", 5, u"005"}});
}

TEST(modSprintfTest, WritesOctalNumbers) {
  ExpectEach({{u"%o", 8, u"10"},
              {u"%o", 0, u"0"},
              {u"%#o", 8, u"010"},
              {u"%#o", 0, u"0"},
              {u"%o", -1, u"37777777777"},
              {u"%5o|", 8, u"   10|"},
              {u"%05o", 8, u"00010"},
              {u"%.4o", 8, u"0010"}});
}

TEST(modSprintfTest, WritesHexadecimalNumbers) {
  ExpectEach({{u"%x", 255, u"ff"},
              {u"%X", 255, u"FF"},
              {u"%#x", 255, u"0xff"},
              {u"%#X", 255, u"0XFF"},
              {u"%x", 0, u"0"},
              {u"%x", -1, u"ffffffff"},
              {u"%6X|", 255, u"    FF|"},
              {u"%06x", 255, u"0000ff"},
              {u"%#06x", 255, u"0x00ff"},
              {u"%.4X", 255, u"00FF"},
              {u"%x", 254.6, u"ff"},
              {u"%X", true, u"FFFFFFFF"}});
}

TEST(modSprintfTest, HexadecimalOfATextIsTheTextCutToThePrecision) {
  ExpectEach({{u"%x|", u"ABC", u"|"},
              {u"%.2x", u"ABC", u"ab"},
              {u"%.9X", u"abcz\u00E4", u"ABCZ\u00E4"},
              {u"%5.2x", u"ABC", u"   ab"},
              {u"%.9x", u"255", u"255"}});
}

TEST(modSprintfTest, WritesCharacters) {
  ExpectEach({{u"%c", 65, u"A"},
              {u"%c", u"xyz", u"x"},
              {u"%c|", u"", u"|"},
              {u"%c", u"65", u"6"},
              {u"%c", 65.4, u"A"},
              {u"%c", 0x20AC, u"\u20AC"},
              {u"%c|", -1, u"|"},
              {u"%c|", 65536, u"|"},
              {u"%c|", FormatArg(), u"|"}});
}

TEST(modSprintfTest, WritesFixedPoint) {
  ExpectEach({{u"%f", 1.5, u"1.500000"},
              {u"%.2f", 3.14159, u"3.14"},
              {u"%.0f", 2.5, u"2"},
              {u"%.f", 3.5, u"4"},
              {u"%#.0f", 3.0, u"3."},
              {u"%#.2f", 3.0, u"3.00"},
              {u"%8.2f|", 3.14159, u"    3.14|"},
              {u"%-8.2f|", 3.14159, u"3.14    |"},
              {u"%08.2f", -3.14159, u"-0003.14"},
              {u"%+.1f", 2.0, u"+2.0"},
              {u"%f", 3, u"3.000000"},
              {u"%.1f", true, u"-1.0"},
              {u"%.1f", u"2.25", u"2.2"},
              {u"%.1f", 1e22, u"10000000000000000000000.0"}});
}

TEST(modSprintfTest, WritesExponentsWithASignAndThreeDigits) {
  ExpectEach({{u"%e", 1.5, u"1.500000e+000"},
              {u"%E", 150000.0, u"1.500000E+005"},
              {u"%.2e", 0.00012, u"1.20e-004"},
              {u"%.0e", 12345.0, u"1e+004"},
              {u"%#.0e", 12345.0, u"1.e+004"},
              {u"%#.1e", 12345.0, u"1.2e+004"},
              {u"%.1e", 1e300, u"1.0e+300"},
              {u"%.1e", -1e-300, u"-1.0e-300"},
              {u"%12.1e|", 1.0, u"    1.0e+000|"},
              {u"%-12.1e|", 1.0, u"1.0e+000    |"},
              {u"%012.1e", -1.0, u"-0001.0e+000"},
              {u"%+.1e", 1.0, u"+1.0e+000"},
              {u"%.1e", 0, u"0.0e+000"}});
}

TEST(modSprintfTest, WritesTheShorterForm) {
  ExpectEach({{u"%g", 1.5, u"1.5"},
              {u"%g", 100000.0, u"1e+005"},
              {u"%g", 12345.0, u"12345"},
              {u"%g", 123456.0, u"1.2346e+005"},
              {u"%G", 1e10, u"1E+010"},
              {u"%g", 0.0001, u"0.0001"},
              {u"%g", 0.00001, u"1e-005"},
              {u"%g", 0, u"0"},
              {u"%.3g", 3.14159, u"3.14"},
              {u"%.0g", 3.14159, u"3"},
              {u"%#g", 1.5, u"1.5000"},
              {u"%#.3g", 1e10, u"1.00e+010"},
              {u"%8g|", 1.5, u"     1.5|"},
              {u"%08g", -1.5, u"-00001.5"},
              {u"%g", 99999.5, u"1e+005"}});
}

TEST(modSprintfTest, WritesAddresses) {
  ExpectEach({{u"%p", 0, u"0000:0000"},
              {u"%p", 0x12ABCD, u"0012:ABCD"},
              {u"%p", -1, u"FFFF:FFFF"},
              {u"%p", u"abc", u"0000:0000"},
              {u"%p", FormatArg(), u"0000:0000"}});
}

TEST(modSprintfTest, HandsTheTextSoFarBack) {
  std::u16string soFar;
  std::u16string atStart = u"old";
  EXPECT_EQ(Format(u"%nab%d%ncd", &atStart, 12, &soFar), u"ab12cd");
  EXPECT_EQ(soFar, u"ab12");
  EXPECT_EQ(atStart, u"");
  EXPECT_EQ(Format(u"a%nb%s", u"no variable", u"c"), u"abc");
  EXPECT_EQ(Format(u"a%nb", 5), u"ab");
}

TEST(modSprintfTest, WidthAndPrecisionBeyond32BitsOverflow) {
  EXPECT_RAISES(6, Format(u"%99999999999d", 1));
  EXPECT_RAISES(6, Format(u"%.2147483648d", 1));
  EXPECT_RAISES(6, Format(u"%*d", 1e12, 1));
}

TEST(modSprintfTest, TakesDynamicValues) {
  EXPECT_EQ(Format(u"%s %d %s %s", Variant(u"text"), Variant(7), Variant(2.5), Variant(true)),
            u"text 7 2.5 True");
  EXPECT_EQ(Format(u"%s|%d", Variant(), Variant()), u"|0");
  EXPECT_EQ(Format(u"%s %d", Variant(BoxString(u"boxed")), Variant(BoxLong(5))), u"boxed 5");
  EXPECT_EQ(Format(u"%.1f", Variant(BoxString(u"1.25"))), u"1.2");
}

TEST(modSprintfTest, ABoxIsConvertedLikeTheValueInIt) {
  const Variant text(BoxString(u"65"));
  const Variant name(BoxString(u"xyz"));
  const Variant number(BoxLong(65));
  EXPECT_EQ(Format(u"%c%c%c", text, name, number), u"6xA");
  EXPECT_EQ(Format(u"%.2X|%.9x|%x", name, text, number), u"XY|65|41");
  EXPECT_EQ(Format(u"%5.2s|%d|%p", name, text, name), u"   xy|65|0000:0000");
  EXPECT_EQ(Format(u"%*s", number, name), u"xyz");
}

TEST(modSprintfTest, AnObjectWithoutAValueIsNoTextAndNotNumeric) {
  const Variant list(MakeRef<clsObjectList>());
  EXPECT_RAISES(13, Format(u"%s", list));
  EXPECT_RAISES(91, Format(u"%s", Variant(Ref<Object>())));
  EXPECT_EQ(Format(u"%d %c|", list, list), u"0 |");
}

TEST(modSprintfTest, LongTextsComeOutWhole) {
  const std::u16string text(3000, u'x');
  EXPECT_EQ(Format(u"<%s|%s>", text, text), u"<" + text + u"|" + text + u">");
  EXPECT_EQ(Format(u"%2000d", 1), std::u16string(1999, u' ') + u"1");
}

// The standard formatter, with the format written as a literal for both.
#define EXPECT_AS_PRINTF(format, value)                                 \
  do {                                                                  \
    char expected[200];                                                 \
    std::snprintf(expected, sizeof expected, format, value);            \
    EXPECT_EQ(ToUtf8(Format(u"" format, value)), expected) << (format); \
  } while (false)

TEST(modSprintfTest, AgreesWithTheStandardFormatterOnNumbers) {
  std::mt19937_64 random(5);  // NOLINT: the same numbers in every run
  for (int i = 0; i < 2000 && !HasFailure(); ++i) {
    const auto whole = static_cast<std::int32_t>(random());
    const double real = static_cast<double>(whole) / static_cast<double>(random() % 100000 + 1);
    EXPECT_AS_PRINTF("%d", whole);
    EXPECT_AS_PRINTF("%7d", whole);
    EXPECT_AS_PRINTF("%-17d|", whole);
    EXPECT_AS_PRINTF("%+d", whole);
    EXPECT_AS_PRINTF("%017d", whole);
    EXPECT_AS_PRINTF("%.15d", whole);
    EXPECT_AS_PRINTF("%f", real);
    EXPECT_AS_PRINTF("%.3f", real);
    EXPECT_AS_PRINTF("%12.2f", real);
    EXPECT_AS_PRINTF("%-12.1f|", real);
    EXPECT_AS_PRINTF("%+.4f", real);
    EXPECT_AS_PRINTF("%012.3f", real);
    EXPECT_AS_PRINTF("%#.0f", real);
  }
}

}  // namespace
}  // namespace vestrel
