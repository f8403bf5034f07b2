#include <gtest/gtest.h>

#include <vector>

#include "core/modObjectList.h"
#include "tests/core/ListHelpers.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

using modObjectList::StringListFromArray;
using modObjectList::StringListFromSplit;

TEST(modObjectListTest, BoxesEachValueAsText) {
  const std::vector<Variant> values{u"a", 12, 2.5, true, Variant(), BoxLong(3), BoxString(u"b")};
  EXPECT_EQ(StringListFromArray(values)->JoinStrings(u"|"), u"a|12|2.5|True||3|b");
  EXPECT_EQ(StringListFromArray({})->Size(), 0);
}

TEST(modObjectListTest, AnObjectWithoutAValueFails) {
  const std::vector<Variant> list{MakeRef<clsObjectList>()};
  EXPECT_RAISES(13, StringListFromArray(list));
  const std::vector<Variant> none{Ref<Object>()};
  EXPECT_RAISES(91, StringListFromArray(none));
}

TEST(modObjectListTest, SplitsAtEveryDelimiterAndKeepsEmptyPieces) {
  const struct {
    std::u16string_view source;
    std::u16string_view delimiter;
    std::int32_t size;
    std::u16string_view joined;
  } rows[] = {{u"a|b|c", u"|", 3, u"a;b;c"}, {u"|a||", u"|", 4, u";a;;"},        {u"abc", u"|", 1, u"abc"},
              {u"aXbxc", u"x", 2, u"aXb;c"}, {u"a--b---c", u"--", 3, u"a;b;-c"}, {u"|", u"|", 2, u";"},
              {u"abc", u"", 1, u"abc"}};
  for (const auto& row : rows) {
    const Ref<clsObjectList> list = StringListFromSplit(row.source, row.delimiter);
    EXPECT_EQ(list->Size(), row.size) << ToUtf8(row.source);
    EXPECT_EQ(list->JoinStrings(u";"), row.joined) << ToUtf8(row.source);
  }
}

TEST(modObjectListTest, AnEmptyTextHasNoPieces) {
  EXPECT_EQ(StringListFromSplit(u"", u"|")->Size(), 0);
  EXPECT_EQ(StringListFromSplit(u"", u"")->Size(), 0);
}

}  // namespace
}  // namespace vestrel
