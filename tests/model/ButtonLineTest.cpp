#include <gtest/gtest.h>

#include <vector>

#include "core/Convert.h"
#include "core/Error.h"
#include "model/ButtonLine.h"

namespace vestrel {
namespace {

// In both forms, which say the same.
std::u16string ButtonLineText(const ButtonLine& line) {
  TextBuffer text;
  AppendButtonLine(line, text);
  const NarrowButtonLine narrow(line);
  EXPECT_TRUE(narrow.view().empty() || FromUtf8(narrow.view()) == text.view());
  return std::u16string(text.view());
}

bool Same(const ButtonLine& a, const ButtonLine& b) {
  return a.name == b.name && a.buttonType == b.buttonType && a.playState == b.playState &&
         a.bumpMode == b.bumpMode && a.faderMode == b.faderMode && a.faderValue == b.faderValue &&
         a.locked == b.locked;
}

TEST(ButtonLineTest, JoinsTheSevenFieldsInOrder) {
  EXPECT_EQ(ButtonLineText(
                {u"Intro", ButtonType_Sequence, PlayState_On, BumpMode_Off, FaderMode_Dimmer, 100, false}),
            u"Intro|1|1|0|0|100|False");
  EXPECT_EQ(
      ButtonLineText({u"", ButtonType_None, PlayState_Null, BumpMode_On, FaderMode_Proportional, -7, true}),
      u"|999|999|1|2|-7|True");
}

TEST(ButtonLineTest, ReadsBackWhatItWrote) {
  for (const ButtonLine& line :
       {ButtonLine{u"Intro", ButtonType_Auto, PlayState_On, BumpMode_On, FaderMode_Speed, 42, true},
        ButtonLine{u" Ünï=[x];\"q\" ", ButtonType_Timeline, PlayState_Null, BumpMode_Off, FaderMode_Dimmer,
                   2147483647, false}}) {
    ButtonLine read;
    const std::u16string text = ButtonLineText(line);
    ASSERT_TRUE(ParseButtonLine(text, read));
    EXPECT_EQ(read.name, line.name);
    EXPECT_EQ(read.buttonType, line.buttonType);
    EXPECT_EQ(read.playState, line.playState);
    EXPECT_EQ(read.bumpMode, line.bumpMode);
    EXPECT_EQ(read.faderMode, line.faderMode);
    EXPECT_EQ(read.faderValue, line.faderValue);
    EXPECT_EQ(read.locked, line.locked);
  }
}

TEST(ButtonLineTest, TakesWhatTheConversionsTake) {
  ButtonLine line;
  ASSERT_TRUE(ParseButtonLine(u"|  2 | 1 |+1| 1.5 | 2.5e1 |tRuE", line));
  EXPECT_EQ(line.name, u"");
  EXPECT_EQ(line.buttonType, ButtonType_Multi);
  EXPECT_EQ(line.playState, PlayState_On);
  EXPECT_EQ(line.bumpMode, BumpMode_On);
  EXPECT_EQ(line.faderMode, FaderMode_Proportional);
  EXPECT_EQ(line.faderValue, 25);
  EXPECT_TRUE(line.locked);
  ASSERT_TRUE(ParseButtonLine(u"a|1|0|0|0|0|0", line));
  EXPECT_FALSE(line.locked);
  ASSERT_TRUE(ParseButtonLine(u"a|1|0|0|0|0|-1", line));
  EXPECT_TRUE(line.locked);
}

TEST(ButtonLineTest, TheNarrowFormSaysTheSameAndLeavesOtherNamesAlone) {
  const ButtonLine line{
      u"Intro", ButtonType_Auto, PlayState_Null, BumpMode_On, FaderMode_Speed, -2147483647 - 1, true};
  EXPECT_EQ(NarrowButtonLine(line).view(), "Intro|4|999|1|1|-2147483648|True");
  for (const std::size_t size : {0U, 7U, 8U, 120U, 121U, 1000U}) {
    ButtonLine named = line;
    const std::u16string name(size, u'n');
    named.name = name;
    EXPECT_EQ(NarrowButtonLine(named).view().empty(), size > 120);
    ButtonLineText(named);
  }
  ButtonLine odd = line;
  odd.name = u"\u00E4";
  EXPECT_TRUE(NarrowButtonLine(odd).view().empty());
}

// What the narrow form does not take is left to the general one.
TEST(ButtonLineTest, ANarrowLineIsReadAsAWideOneOrNotAtAll) {
  const std::string_view lines[] = {"Intro|1|1|0|0|100|False",
                                    "|2|0|1|2|7|True",
                                    "n|12|0|0|0|123456789|True",
                                    "n|1|0|0|0|1234567890|True",
                                    "n|1|0|0|0|0|",
                                    "n|-|-|-|-|-|False",
                                    "n|:|:|:|:|:|False",
                                    "n|1|0|0|0|0|Tru",
                                    "n|1|0|0|0|0|Truer",
                                    "n|1|0|0|0|0|true",
                                    "n|1|0|0|0|0",
                                    "n|1|0|0|0|",
                                    "n|",
                                    "",
                                    "n|1|0|0|0|0|False|",
                                    "n|32768|0|0|0|0|False",
                                    "n|32767|0|0|0|0|False",
                                    "n|1|99999|0|0|0|False",
                                    "n| 1|0|0|0|0|False",
                                    "\xC3\xA4|1|0|0|0|0|False"};
  int taken = 0;
  for (const std::string_view bytes : lines) {
    std::u16string name;
    ButtonLine narrow;
    if (!ParseButtonLine(bytes, name, narrow)) continue;
    ++taken;
    const std::u16string wideText = FromUtf8(bytes);
    ButtonLine wide;
    EXPECT_TRUE(ParseButtonLine(wideText, wide)) << bytes;
    EXPECT_TRUE(Same(narrow, wide)) << bytes;
  }
  EXPECT_EQ(taken, 5);
}

TEST(ButtonLineTest, TheKeyIsThePrefixAndTheNameOfTheLine) {
  for (const std::int32_t index : {1, 9, 10, 88, -1, 2147483647, -2147483647 - 1}) {
    const std::string number = ToUtf8(LongToText(index));
    EXPECT_EQ(ButtonKey(index).prefix(), "Button" + number);
    EXPECT_EQ(ButtonKey(index).view(), "Button" + number + "_fields");
  }
}

// Long numbers and odd words are read by the general rule, whichever way the rest of the line is read.
TEST(ButtonLineTest, EveryFieldMayBeInAnotherForm) {
  const std::u16string_view fields[] = {u"n", u"1", u"1", u"1", u"1", u"77", u"True"};
  const std::u16string_view others[] = {u"",   u"01",  u"0000000001", u" 1",
                                        u"+1", u"1.0", u"77000e-3",   u"tRUE"};
  for (std::size_t changed = 0; changed < std::size(fields); ++changed) {
    for (const std::u16string_view other : others) {
      std::u16string text;
      for (std::size_t i = 0; i < std::size(fields); ++i)
        text.append(i == 0 ? u"" : u"|").append(i == changed ? other : fields[i]);
      ButtonLine line;
      const bool isNumber = IsNumericText(other) || EqualIgnoringCase(other, u"true");
      if (changed > 0 && !isNumber) {
        EXPECT_THROW(ParseButtonLine(text, line), Error) << ToUtf8(text);
        continue;
      }
      ASSERT_TRUE(ParseButtonLine(text, line)) << ToUtf8(text);
      EXPECT_EQ(line.name, changed == 0 ? other : u"n");
      EXPECT_EQ(line.buttonType, changed == 1 ? TextToShort(other) : 1);
      EXPECT_EQ(line.playState, changed == 2 ? TextToLong(other) : 1);
      EXPECT_EQ(line.bumpMode, changed == 3 ? TextToShort(other) : 1);
      EXPECT_EQ(line.faderMode, changed == 4 ? TextToShort(other) : 1);
      EXPECT_EQ(line.faderValue, changed == 5 ? TextToLong(other) : 77);
      EXPECT_TRUE(line.locked);
    }
  }
}

TEST(ButtonLineTest, OtherThanSevenFieldsAreRefused) {
  for (const std::u16string_view text : {u"", u"|", u"Intro", u"Intro|1|0|0|0|0", u"Intro|1|0|0|0|0|False|",
                                         u"a|b|1|0|0|0|0|False", u"Intro,1,0,0,0,0,False", u"|||||||"}) {
    ButtonLine line;
    line.name = u"kept";
    EXPECT_FALSE(ParseButtonLine(text, line)) << ToUtf8(text);
    EXPECT_EQ(line.name, u"kept");
  }
}

struct Malformed {
  std::u16string_view text;
  std::int32_t error;
};

TEST(ButtonLineTest, AFieldThatDoesNotConvertRaisesAndChangesNothing) {
  const std::vector<Malformed> table = {
      {u"n|x|0|0|0|0|False", Error_TypeMismatch},
      {u"n||0|0|0|0|False", Error_TypeMismatch},
      {u"n|1|off|0|0|0|False", Error_TypeMismatch},
      {u"n|1|0|?|0|0|False", Error_TypeMismatch},
      {u"n|1|0|0|1-|0|False", Error_TypeMismatch},
      {u"n|1|0|0|0|1 0|False", Error_TypeMismatch},
      {u"n|1|0|0|0|0|no", Error_TypeMismatch},
      {u"n|1|0|0|0|0|", Error_TypeMismatch},
      {u"||||||", Error_TypeMismatch},
      {u"n|-|-|-|-|-|False", Error_TypeMismatch},
      {u"n|:|:|:|:|:|False", Error_TypeMismatch},
      {u"n|32768|0|0|0|0|False", Error_Overflow},
      {u"n|1|0|-32769|0|0|False", Error_Overflow},
      {u"n|1|0|0|40000|0|False", Error_Overflow},
      {u"n|1|0|0|0|2147483648|False", Error_Overflow},
      {u"n|1|2147483648|0|0|0|False", Error_Overflow},
  };
  for (const Malformed& row : table) {
    ButtonLine line;
    line.name = u"kept";
    try {
      ParseButtonLine(row.text, line);
      ADD_FAILURE() << ToUtf8(row.text);
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), row.error) << ToUtf8(row.text);
    }
    EXPECT_EQ(line.name, u"kept");
  }
}

}  // namespace
}  // namespace vestrel
