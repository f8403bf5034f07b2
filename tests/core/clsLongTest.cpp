#include <gmock/gmock.h>

#include <limits>

#include "core/clsLong.h"
#include "core/clsString.h"
#include "tests/support/Errors.h"
#include "tests/support/LogFixture.h"

namespace vestrel {
namespace {

class clsLongTest : public test::LogFixture {};

TEST_F(clsLongTest, HoldsZeroUntilAValueIsSet) {
  const Ref<clsLong> box = MakeRef<clsLong>();
  EXPECT_EQ(box->value(), 0);
  box->SetValue(-5);
  EXPECT_EQ(box->value(), -5);
  EXPECT_EQ(BoxLong(7)->value(), 7);
}

TEST_F(clsLongTest, ComparesByNumberWhateverTheField) {
  const Ref<clsLong> two = BoxLong(2);
  EXPECT_EQ(two->CompareTo(BoxLong(3).get()), -1);
  EXPECT_EQ(two->CompareTo(BoxLong(2).get()), 0);
  EXPECT_EQ(two->CompareTo(BoxLong(1).get(), u"anything"), 1);
  EXPECT_EQ(BoxLong(std::numeric_limits<std::int32_t>::min())->CompareTo(two.get()), -1);
}

TEST_F(clsLongTest, DoesNotCompareWithOtherKinds) {
  EXPECT_RAISES(13, BoxLong(2)->CompareTo(BoxString(u"2").get()));
  EXPECT_RAISES(91, BoxLong(2)->CompareTo(nullptr));
}

TEST_F(clsLongTest, ComparingAFieldIsLoggedAndFails) {
  try {
    BoxLong(2)->FieldCompare(u"all", 2);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 7155);
    EXPECT_EQ(error.source(), u"modUtils.Assert()");
    EXPECT_EQ(error.description(), u"assert false");
  }
  EXPECT_THAT(
      LogLines(),
      testing::ElementsAre("[Severe] IComparable_FieldCompare not implemented (or necessary!) in clsLong"));
}

}  // namespace
}  // namespace vestrel
