#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "storage/NameTable.h"

namespace vestrel {
namespace {

constexpr std::uint32_t kNone = NameTable::kNone;

TEST(NameTableTest, GivesNamesTheirPositionsInTheOrderOfAdding) {
  NameTable table;
  EXPECT_EQ(table.Find(0, "a"), kNone);
  EXPECT_EQ(table.Add(0, "a"), 0U);
  EXPECT_EQ(table.Add(0, "b"), 1U);
  EXPECT_EQ(table.Add(0, "a"), 0U);
  EXPECT_EQ(table.size(), 2U);
  EXPECT_EQ(table.Find(0, "b"), 1U);
  EXPECT_EQ(table.Find(0, "c"), kNone);
}

TEST(NameTableTest, NamesOfTwoScopesAreTwo) {
  NameTable table;
  EXPECT_EQ(table.Add(1, "name"), 0U);
  EXPECT_EQ(table.Add(2, "name"), 1U);
  EXPECT_EQ(table.Find(2, "NAME"), 1U);
  EXPECT_EQ(table.Find(3, "name"), kNone);
}

// Of every length round that of the blocks that are hashed and compared together.
TEST(NameTableTest, MatchesInAnyCaseOfLettersAlone) {
  for (std::size_t length = 0; length < 40; ++length) {
    const std::string small(length, 'k');
    const std::string large(length, 'K');
    NameTable table;
    EXPECT_EQ(table.Add(0, small), 0U);
    EXPECT_EQ(table.Add(0, large), 0U);
    EXPECT_EQ(table.Find(0, large + "k"), kNone);
    for (std::size_t at = 0; at < length; ++at) {
      std::string sign = small;
      std::string otherSign = small;
      sign[at] = '@';
      otherSign[at] = '`';
      const std::uint32_t position = table.Add(0, sign);
      EXPECT_EQ(table.Find(0, otherSign), kNone) << length;
      EXPECT_EQ(table.Find(0, sign), position) << length;
    }
  }
}

TEST(NameTableTest, KnowsWhatStandsAtAPosition) {
  NameTable table;
  table.Add(5, "first");
  table.Add(5, "second name");
  EXPECT_TRUE(table.IsAt(1, 5, "SECOND name"));
  EXPECT_FALSE(table.IsAt(0, 5, "second name"));
  EXPECT_FALSE(table.IsAt(1, 4, "second name"));
  EXPECT_FALSE(table.IsAt(2, 5, "second name"));
  EXPECT_FALSE(table.IsAt(kNone, 5, "first"));
}

TEST(NameTableTest, GrowsWithItsNamesAndMayKnowTheirNumber) {
  for (const std::size_t reserved : {0U, 10U, 5000U}) {
    std::vector<std::string> names;
    for (int i = 0; i < 5000; ++i) names.push_back("Button" + std::to_string(i) + "_fields");
    NameTable table;
    table.Reserve(reserved);
    for (std::uint32_t i = 0; i < names.size(); ++i) ASSERT_EQ(table.Add(i % 7, names[i]), i);
    for (std::uint32_t i = 0; i < names.size(); ++i) {
      ASSERT_EQ(table.Find(i % 7, names[i]), i);
      ASSERT_EQ(table.Find((i + 1) % 7, names[i]), kNone);
    }
  }
}

// Among so many some have the same hash.
TEST(NameTableTest, NoTwoOfManyNamesNorOfManyScopesAreTakenForOne) {
  constexpr std::uint32_t kMany = 100000;
  std::vector<std::string> names;
  for (std::uint32_t i = 0; i < kMany; ++i) names.push_back(std::to_string(i));
  NameTable namesOfAScope;
  NameTable scopesOfAName;
  for (std::uint32_t i = 0; i < kMany; ++i) {
    ASSERT_EQ(namesOfAScope.Add(0, names[i]), i);
    ASSERT_EQ(scopesOfAName.Add(i, "Button1_fields"), i);
  }
}

}  // namespace
}  // namespace vestrel
