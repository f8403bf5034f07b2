#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "core/Convert.h"
#include "tests/support/Errors.h"
#include "util/clsFormatCapture.h"

namespace vestrel {
namespace {

using testing::ElementsAre;

// The numbers that a text yields under a pattern with so many groups.
std::vector<std::int32_t> Captured(std::u16string_view pattern, std::u16string_view text,
                                   std::size_t groups) {
  const Ref<clsFormatCapture> capture = MakeRef<clsFormatCapture>();
  EXPECT_TRUE(capture->DoMatch(pattern, text));
  std::vector<std::int32_t> values(groups, -1);
  EXPECT_TRUE(capture->ParseItems(values));
  return values;
}

TEST(clsFormatCaptureTest, MatchesTextsOfThePatternsShape) {
  const struct {
    std::u16string_view pattern;
    std::u16string_view text;
    bool fits;
  } rows[] = {{u"##.###", u"12.345", true},
              {u"##.###", u"1.2345", false},
              {u"##.###", u"12.34", false},
              {u"##.###", u"12.3456", false},
              {u"##.###", u"12,345", false},
              {u"##.###", u"1a.345", false},
              {u"##:##:##.###", u"01:02:03.004", true},
              {u"#", u"/", false},
              {u"#", u"0", true},
              {u"#", u"9", true},
              {u"#", u":", false},
              {u"#", u"\u0665", false},
              {u"abc", u"abc", true},
              {u"abc", u"abC", false},
              {u"", u"", true},
              {u"", u"a", false},
              {u"a#", u"#1", false}};
  for (const auto& row : rows) {
    EXPECT_EQ(MakeRef<clsFormatCapture>()->DoMatch(row.pattern, row.text), row.fits) << ToUtf8(row.text);
  }
}

TEST(clsFormatCaptureTest, YieldsEachRunOfDigitsAsANumber) {
  EXPECT_THAT(Captured(u"##.###", u"12.345", 2), ElementsAre(12, 345));
  EXPECT_THAT(Captured(u"##:##:##.###", u"01:02:03.004", 4), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(Captured(u"a#b##", u"a1b23", 2), ElementsAre(1, 23));
  EXPECT_THAT(Captured(u"##x", u"07x", 1), ElementsAre(7));
  EXPECT_THAT(Captured(u"abc", u"abc", 0), ElementsAre());
}

TEST(clsFormatCaptureTest, CountsBeforeItStores) {
  const Ref<clsFormatCapture> capture = MakeRef<clsFormatCapture>();
  ASSERT_TRUE(capture->DoMatch(u"##.###", u"12.345"));
  std::vector<std::int32_t> few{-1};
  std::vector<std::int32_t> many{-1, -1, -1};
  EXPECT_FALSE(capture->ParseItems(few));
  EXPECT_FALSE(capture->ParseItems(many));
  EXPECT_FALSE(capture->ParseItems({}));
  EXPECT_THAT(few, ElementsAre(-1));
  EXPECT_THAT(many, ElementsAre(-1, -1, -1));
}

TEST(clsFormatCaptureTest, AFailedMatchKeepsTheGroupsFoundSoFar) {
  const Ref<clsFormatCapture> capture = MakeRef<clsFormatCapture>();
  EXPECT_FALSE(capture->DoMatch(u"##:##.##", u"12:34x56"));
  std::vector<std::int32_t> values(1, -1);
  EXPECT_TRUE(capture->ParseItems(values));
  EXPECT_THAT(values, ElementsAre(12));
}

TEST(clsFormatCaptureTest, EachMatchStartsAnew) {
  const Ref<clsFormatCapture> capture = MakeRef<clsFormatCapture>();
  EXPECT_FALSE(capture->DoMatch(u"##", u"1x"));
  ASSERT_TRUE(capture->DoMatch(u"x#", u"x5"));
  std::vector<std::int32_t> values(1, -1);
  EXPECT_TRUE(capture->ParseItems(values));
  EXPECT_THAT(values, ElementsAre(5));
  EXPECT_FALSE(capture->DoMatch(u"#", u"12"));
  EXPECT_TRUE(capture->ParseItems({}));
}

TEST(clsFormatCaptureTest, ANumberThatDoesNotFitFailsAndKeepsThoseBefore) {
  const Ref<clsFormatCapture> capture = MakeRef<clsFormatCapture>();
  std::vector<std::int32_t> values(2, -1);
  ASSERT_TRUE(capture->DoMatch(u"#.##########", u"3.9999999999"));
  EXPECT_RAISES(6, capture->ParseItems(values));
  EXPECT_THAT(values, ElementsAre(3, -1));
  const std::u16string digits(400, u'9');
  ASSERT_TRUE(capture->DoMatch(u"#." + std::u16string(400, u'#'), u"4." + digits));
  EXPECT_FALSE(capture->ParseItems(values));
  EXPECT_THAT(values, ElementsAre(4, -1));
}

TEST(clsFormatCaptureTest, ParsingBeforeMatchingIsAMissingObject) {
  EXPECT_RAISES(91, MakeRef<clsFormatCapture>()->ParseItems({}));
}

TEST(clsFormatCaptureTest, AnItemStartsAsAnEmptyNumber) {
  const Ref<clsFormatCaptureItem> item = MakeRef<clsFormatCaptureItem>();
  EXPECT_EQ(item->strValue, u"");
  EXPECT_EQ(item->itemType, CaptureType_Long);
  EXPECT_EQ(CaptureType_Long, 0);
}

}  // namespace
}  // namespace vestrel
