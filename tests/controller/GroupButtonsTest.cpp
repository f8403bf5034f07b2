#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controller/GroupButtons.h"
#include "core/Cast.h"
#include "tests/support/Errors.h"

namespace vestrel::test {
namespace {

Ref<clsObjectList> ListOf(const std::vector<std::int32_t>& indices) {
  Ref<clsObjectList> list = MakeRef<clsObjectList>();
  for (const std::int32_t index : indices) {
    const auto button = MakeRef<clsButton>();
    button->InitWithValues(nullptr, 2, index, u"b", ButtonType_Sequence, nullptr);
    list->AddItem(button.get());
  }
  return list;
}

std::vector<std::int32_t> IndicesOf(const clsObjectList& list) {
  std::vector<std::int32_t> result;
  for (Object* item : list.Snapshot()) result.push_back(Cast<clsButton>(item).buttonIndex);
  return result;
}

std::int32_t IndexOf(const Ref<clsButton>& button) {
  return button ? button->buttonIndex : -1;
}

TEST(GroupButtonsTest, TheNextFreeIndexIsTheFirstGap) {
  struct Row {
    std::vector<std::int32_t> indices;
    std::int32_t free;
  };
  const std::vector<Row> rows{{{}, 1},        {{1, 2, 4}, 3}, {{2, 3}, 1},
                              {{1, 2, 3}, 4}, {{1, 1, 2}, 3}, {{1, 2, 2, 3, 5}, 4}};
  for (const Row& row : rows) {
    EXPECT_EQ(NextFreeButtonIndex(*ListOf(row.indices)), row.free) << testing::PrintToString(row.indices);
  }
}

TEST(GroupButtonsTest, SearchesWrapAtBothEnds) {
  struct Row {
    std::vector<std::int32_t> indices;
    std::int32_t from, before, after;
  };
  const std::vector<Row> rows{{{}, 3, -1, -1},        {{4}, 4, 4, 4},         {{2, 5, 9}, 9, 5, 2},
                              {{2, 5, 9}, 2, 9, 5},   {{2, 5, 9}, 6, 5, 9},   {{2, 5, 9}, -1, 9, 2},
                              {{2, 5, 9}, 100, 9, 2}, {{2, 5, 5, 9}, 5, 2, 9}};
  for (const Row& row : rows) {
    EXPECT_EQ(IndexOf(ButtonBefore(*ListOf(row.indices), row.from)), row.before);
    EXPECT_EQ(IndexOf(ButtonAfter(*ListOf(row.indices), row.from)), row.after);
  }
}

TEST(GroupButtonsTest, FindsTheFirstPositionOfAnIndex) {
  EXPECT_EQ(PositionOfIndex(*ListOf({2, 5, 5, 9}), 5), 1);
  EXPECT_EQ(PositionOfIndex(*ListOf({2, 5}), 4), -1);
  EXPECT_EQ(PositionOfIndex(*ListOf({}), 4), -1);
}

TEST(GroupButtonsTest, BoundsOfARangeAreInclusive) {
  EXPECT_EQ(IndicesOf(*ButtonsBetween(*ListOf({1, 2, 5, 9}), 2, 5)), (std::vector<std::int32_t>{2, 5}));
  EXPECT_EQ(ButtonsBetween(*ListOf({1, 2}), 1, -1)->Size(), 0);
}

TEST(GroupButtonsTest, RenumberingMovesEveryLaterButtonByOne) {
  struct Row {
    ShiftModeEnum mode;
    std::int32_t from;
    std::vector<std::int32_t> result;
  };
  const std::vector<Row> rows{{ShiftMode_Insert, 0, {2, 3, 6}},
                              {ShiftMode_Insert, 1, {1, 3, 6}},
                              {ShiftMode_Delete, 2, {1, 2, 4}},
                              {ShiftMode_Delete, 3, {1, 2, 5}},
                              {static_cast<ShiftModeEnum>(7), 0, {1, 2, 5}}};
  for (const Row& row : rows) {
    const auto list = ListOf({1, 2, 5});
    RenumberFrom(*list, row.from, row.mode);
    EXPECT_EQ(IndicesOf(*list), row.result);
  }
}

TEST(GroupButtonsTest, AnIndexCannotLeave32Bits) {
  const auto list = ListOf({2147483647});
  EXPECT_RAISES(6, RenumberFrom(*list, 0, ShiftMode_Insert));
  EXPECT_RAISES(6, NextFreeButtonIndex(*ListOf({0, -1, 2147483647})));
}

TEST(GroupButtonsTest, PresenceIsThatOfAnyButton) {
  const auto list = ListOf({1, 2, 2});
  EXPECT_FALSE(PresenceOf(*ListOf({})).assigned);
  EXPECT_TRUE(PresenceOf(*list).assigned);
  EXPECT_FALSE(PresenceOf(*list).playing);
  ButtonAt(*list, 1)->setPlayState(PlayState_On, PSEventSource_User, 1, 0, 0, 0, true);
  EXPECT_TRUE(PresenceOf(*list).playing);
  EXPECT_TRUE(PresenceAt(*list, 2).playing);
  EXPECT_FALSE(PresenceAt(*list, 1).playing);
  EXPECT_FALSE(PresenceAt(*list, 3).assigned);
}

TEST(GroupButtonsTest, TheHeirIsTheFirstRemainingButtonWithAGreaterIndex) {
  const auto list = ListOf({1, 2, 5});
  const Ref<clsButton> one = ButtonAt(*list, 0);
  // Still in place, as while the list is cleared.
  EXPECT_EQ(IndexOf(HeirOf(*list, *one, 0)), 2);
  EXPECT_EQ(IndexOf(HeirOf(*list, *ButtonAt(*list, 2), 2)), -1);
  // Gone.
  list->Remove(0);
  EXPECT_EQ(IndexOf(HeirOf(*list, *one, 0)), 2);
}

TEST(GroupButtonsTest, AGroupWithoutAListOrAPageWithoutGroupsRaises) {
  const auto group = MakeRef<clsButtonGroup>();
  EXPECT_RAISES(91, ButtonsOf(*group));
  const auto page = MakeRef<clsPage>();
  EXPECT_RAISES(91, GroupOf(*page, 1));
  EXPECT_RAISES(9, GroupOf(*page, 10));
}

TEST(GroupButtonsTest, TheNowPlayingListIsMadeAgainWhereAHostTookItAway) {
  const auto group = MakeRef<clsButtonGroup>();
  group->Init(2, nullptr);
  group->nowPlayingList = nullptr;
  RebuildNowPlaying(*group);
  EXPECT_EQ(group->nowPlayingList->Size(), 0);
}

}  // namespace
}  // namespace vestrel::test
