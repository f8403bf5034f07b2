#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "storage/AscendingNames.h"
#include "storage/ProfileLines.h"

namespace vestrel {
namespace {

TEST(AscendingNamesTest, NumberedNamesAreNewOneAfterTheOther) {
  AscendingNames names;
  for (int i = 1; i < 1000; ++i) EXPECT_TRUE(names.IsNew("Button" + std::to_string(i) + "_fields")) << i;
  EXPECT_FALSE(names.IsNew("Button7_fields"));
  EXPECT_FALSE(names.IsNew("BUTTON999_FIELDS"));
  EXPECT_TRUE(names.IsNew("Button1000_fields"));
}

TEST(AscendingNamesTest, WhatCameBeforeIsNeverNew) {
  const std::vector<std::string> all = {"",          "a",          "B",        "ab",       "AB",
                                        "abcdefg",   "abcdefgh",   "ABCDEFGH", "abcdefg[", "abcdefg{",
                                        "abcdefghi", "zbcdefgh",   "abcdefg1", "12345678", "\xC3\xA4",
                                        "ab cd ef",  "AB CD EF GH"};
  for (const std::string& first : all) {
    for (const std::string& second : all) {
      for (const std::string& third : all) {
        AscendingNames names;
        names.IsNew(first);
        names.IsNew(second);
        const bool wasThere = profile::SameName(third, first) || profile::SameName(third, second);
        EXPECT_FALSE(wasThere && names.IsNew(third)) << first << ", " << second << ", " << third;
      }
    }
  }
}

}  // namespace
}  // namespace vestrel
