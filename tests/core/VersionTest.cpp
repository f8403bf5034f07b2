#include <gtest/gtest.h>

#include <algorithm>

#include "core/Version.h"

namespace vestrel {
namespace {

TEST(VersionTest, IsThreeNumbersJoinedByPoints) {
  const std::u16string_view version = Version();
  EXPECT_EQ(std::count(version.begin(), version.end(), u'.'), 2);
  EXPECT_TRUE(std::all_of(version.begin(), version.end(),
                          [](char16_t c) { return c == u'.' || (c >= u'0' && c <= u'9'); }));
  EXPECT_NE(version.front(), u'.');
  EXPECT_NE(version.back(), u'.');
}

}  // namespace
}  // namespace vestrel
