#include <gmock/gmock.h>

#include "core/clsLong.h"
#include "core/clsString.h"
#include "tests/support/Errors.h"
#include "tests/support/LogFixture.h"

namespace vestrel {
namespace {

class clsStringTest : public test::LogFixture {};

TEST_F(clsStringTest, IsEmptyUntilAValueIsSet) {
  const Ref<clsString> box = MakeRef<clsString>();
  EXPECT_EQ(box->value(), u"");
  box->SetValue(u"text");
  EXPECT_EQ(box->value(), u"text");
  EXPECT_EQ(BoxString(u"made")->value(), u"made");
}

TEST_F(clsStringTest, ComparesByCodeUnitsWhateverTheField) {
  const Ref<clsString> a = BoxString(u"a");
  EXPECT_EQ(a->CompareTo(BoxString(u"B").get()), 1);
  EXPECT_EQ(a->CompareTo(BoxString(u"b").get()), -1);
  EXPECT_EQ(a->CompareTo(BoxString(u"a").get(), u"anything"), 0);
  EXPECT_EQ(a->CompareTo(BoxString(u"aa").get()), -1);
  EXPECT_EQ(BoxString(u"\uFF21")->CompareTo(BoxString(u"\U0001F4A1").get()), 1);
}

TEST_F(clsStringTest, DoesNotCompareWithOtherKinds) {
  EXPECT_RAISES(13, BoxString(u"2")->CompareTo(BoxLong(2).get()));
  EXPECT_RAISES(91, BoxString(u"2")->CompareTo(nullptr));
}

TEST_F(clsStringTest, ComparingAFieldIsLoggedAndFails) {
  EXPECT_RAISES(7155, BoxString(u"x")->FieldCompare(u"all", u"x"));
  EXPECT_THAT(
      LogLines(),
      testing::ElementsAre("[Severe] IComparable_FieldCompare not implemented (or necessary) in clsString"));
}

}  // namespace
}  // namespace vestrel
