#include <gtest/gtest.h>

#include <string>

#include "core/Convert.h"
#include "core/LetterCase.h"

namespace vestrel {
namespace {

std::u16string Folded(std::u16string text) {
  for (char16_t& unit : text) unit = FoldLetter(unit);
  return text;
}

TEST(LetterCaseTest, CapitalsBecomeSmall) {
  const struct {
    std::u16string_view capitals;
    std::u16string_view small;
  } rows[] = {{u"AZ", u"az"},
              {u"\u00C0\u00C4\u00D6\u00D8\u00DE", u"\u00E0\u00E4\u00F6\u00F8\u00FE"},
              {u"\u0100\u012E\u0132\u0136\u0139\u0147", u"\u0101\u012F\u0133\u0137\u013A\u0148"},
              {u"\u014A\u0160\u0176\u0178\u0179\u017D", u"\u014B\u0161\u0177\u00FF\u017A\u017E"},
              {u"\u01A0\u01AF\u01CD\u0218\u021A", u"\u01A1\u01B0\u01CE\u0219\u021B"},
              {u"\u0386\u0388\u038C\u038E\u0391\u03A1\u03A3\u03A9",
               u"\u03AC\u03AD\u03CC\u03CD\u03B1\u03C1\u03C3\u03C9"},
              {u"\u0400\u040F\u0410\u042F\u0490\u04C1\u04D0", u"\u0450\u045F\u0430\u044F\u0491\u04C2\u04D1"},
              {u"\u1E00\u1EA0\uFF21", u"\u1E01\u1EA1\uFF41"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ToUtf8(Folded(std::u16string(row.capitals))), ToUtf8(row.small));
    EXPECT_EQ(ToUtf8(Folded(std::u16string(row.small))), ToUtf8(row.small));
  }
}

TEST(LetterCaseTest, WhatHasNoCaseOrMoreThanOneStays) {
  const std::u16string others =
      u" 09[{@`\u00B5\u00D7\u00DF\u00F7\u0130\u0131\u0138\u0149\u017F\u03A2\u05D0\u4E2D\U0001F4A1\uFFFF";
  EXPECT_EQ(ToUtf8(Folded(others)), ToUtf8(others));
}

TEST(LetterCaseTest, TextsAreEqualWhereOnlyTheCaseDiffers) {
  EXPECT_TRUE(EqualIgnoringLetterCase(u"\u00DCbergang \u0416", u"\u00FCBERGANG \u0436"));
  EXPECT_FALSE(EqualIgnoringLetterCase(u"\u00DC", u"U"));
  EXPECT_FALSE(EqualIgnoringLetterCase(u"Page", u"Pages"));
  EXPECT_TRUE(EqualIgnoringLetterCase(u"", u""));
}

}  // namespace
}  // namespace vestrel
