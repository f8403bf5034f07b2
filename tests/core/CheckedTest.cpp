#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "core/Checked.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

TEST(CheckedTest, AnswersResultsThatFit) {
  EXPECT_EQ(AddChecked(kMax - 1, 1), kMax);
  EXPECT_EQ(SubtractChecked(kMin + 1, 1), kMin);
  EXPECT_EQ(MultiplyChecked(-65536, 32768), kMin);
  EXPECT_EQ(DivideChecked(-7, 2), -3);
  EXPECT_EQ(RemainderChecked(-7, 2), -1);
  EXPECT_EQ(RemainderChecked(7, -2), 1);
}

TEST(CheckedTest, RaisesOverflowForResultsThatDoNot) {
  EXPECT_RAISES(6, AddChecked(kMax, 1));
  EXPECT_RAISES(6, SubtractChecked(kMin, 1));
  EXPECT_RAISES(6, MultiplyChecked(65536, 32768));
  EXPECT_RAISES(6, DivideChecked(kMin, -1));
  EXPECT_RAISES(6, NarrowChecked(std::int64_t{kMax} + 1));
}

TEST(CheckedTest, ADivisionByZeroIsAnErrorOfItsOwn) {
  EXPECT_RAISES(11, DivideChecked(1, 0));
  EXPECT_RAISES(11, RemainderChecked(1, 0));
  EXPECT_EQ(RemainderChecked(kMin, -1), 0);
}

}  // namespace
}  // namespace vestrel
