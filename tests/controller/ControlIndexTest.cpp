#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "controller/ControlIndex.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

using namespace modControlIndex;  // NOLINT(google-build-using-namespace): the functions under test

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

TEST(ControlIndexTest, OneBasedModFoldsOntoOneToTheModulus) {
  const struct {
    std::int32_t value;
    std::int32_t modulus;
    std::int32_t result;
  } rows[] = {{1, 4, 1},  {4, 4, 4},   {5, 4, 1},  {8, 4, 4}, {0, 4, 0},
              {-3, 4, 1}, {-2, 4, -2}, {5, -4, 1}, {1, 1, 1}};
  for (const auto& row : rows) EXPECT_EQ(OneBasedMod(row.value, row.modulus), row.result) << row.value;
}

TEST(ControlIndexTest, StepsBetweenTheBases) {
  EXPECT_EQ(ZeroToOneBased(0), 1);
  EXPECT_EQ(ZeroToOneBased(-1), 0);
  EXPECT_EQ(OneToZeroBased(1), 0);
  EXPECT_EQ(OneToZeroBased(0), -1);
}

TEST(ControlIndexTest, EveryControlHasAGroupAndASlot) {
  const struct {
    std::int32_t control;
    std::int32_t group;
    std::int32_t slot;
  } rows[] = {{1, 0, 1},  {32, 0, 32}, {33, 1, 1},  {36, 1, 4}, {37, 2, 1},
              {64, 8, 4}, {65, 9, 1},  {69, 10, 1}, {0, 0, 0},  {-5, 0, -5}};
  for (const auto& row : rows) {
    EXPECT_EQ(returnGroupFromPosition(4, row.control), row.group) << row.control;
    EXPECT_EQ(globalToLocalControlIndex(4, row.control), row.slot) << row.control;
  }
}

TEST(ControlIndexTest, EveryGroupHasAFirstControl) {
  const struct {
    std::int32_t group;
    std::int32_t control;
  } rows[] = {{-1, 0}, {kMin, 0}, {0, 1}, {1, 33}, {3, 41}, {8, 61}, {9, 65}};
  for (const auto& row : rows)
    EXPECT_EQ(returnFirstPositionFromGroup(4, row.group), row.control) << row.group;
}

TEST(ControlIndexTest, AButtonIsFoldedOntoTheControlThatShowsIt) {
  const struct {
    std::int32_t group;
    std::int32_t button;
    std::int32_t control;
  } rows[] = {{0, 7, 7},  {0, -1, -1}, {1, 1, 33},  {1, 4, 36},
              {1, 5, 33}, {2, 7, 39},  {8, 40, 64}, {-1, 1, 25}};
  for (const auto& row : rows) {
    EXPECT_EQ(controlIndexFromButtonIndex(4, row.group, row.button), row.control)
        << row.group << " " << row.button;
  }
}

TEST(ControlIndexTest, ControlGroupAndSlotFitTogetherForEveryPageSize) {
  for (std::int32_t size = 1; size <= 12; ++size) {
    for (std::int32_t control = 33; control < 33 + 8 * size; ++control) {
      const std::int32_t group = returnGroupFromPosition(size, control);
      const std::int32_t slot = globalToLocalControlIndex(size, control);
      EXPECT_EQ(controlIndexFromButtonIndex(size, group, slot), control);
      EXPECT_EQ(returnFirstPositionFromGroup(size, group) + slot - 1, control);
    }
  }
}

TEST(ControlIndexTest, APageSizeOfZeroDividesByZeroOnlyWhereItDivides) {
  EXPECT_RAISES(11, OneBasedMod(1, 0));
  EXPECT_RAISES(11, globalToLocalControlIndex(0, 33));
  EXPECT_RAISES(11, controlIndexFromButtonIndex(0, 1, 1));
  EXPECT_RAISES(11, returnGroupFromPosition(0, 33));
  EXPECT_EQ(globalToLocalControlIndex(0, 32), 32);
  EXPECT_EQ(controlIndexFromButtonIndex(0, 0, 5), 5);
  EXPECT_EQ(returnGroupFromPosition(0, 32), 0);
  EXPECT_EQ(returnFirstPositionFromGroup(0, 5), 33);
}

TEST(ControlIndexTest, ANegativePageSizeIsNotRefused) {
  EXPECT_EQ(returnGroupFromPosition(-1, 35), -1);
  EXPECT_EQ(globalToLocalControlIndex(-1, 40), 1);
  EXPECT_EQ(returnFirstPositionFromGroup(-1, 3), 31);
}

TEST(ControlIndexTest, ResultsBeyond32BitsOverflow) {
  EXPECT_RAISES(6, OneBasedMod(kMin, 4));
  EXPECT_RAISES(6, ZeroToOneBased(kMax));
  EXPECT_RAISES(6, OneToZeroBased(kMin));
  EXPECT_RAISES(6, returnFirstPositionFromGroup(kMax, 3));
  EXPECT_RAISES(6, controlIndexFromButtonIndex(kMax, 3, 1));
}

}  // namespace
}  // namespace vestrel
