#include <gtest/gtest.h>

#include "core/Cast.h"
#include "core/clsLong.h"
#include "core/clsString.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

TEST(CastTest, AnswersTheSameObjectUnderItsClassAndItsInterfaces) {
  const Ref<clsLong> box = BoxLong(3);
  Object* const object = box.get();
  EXPECT_EQ(&Cast<clsLong>(object), box.get());
  EXPECT_EQ(&Cast<IComparable>(object), static_cast<IComparable*>(box.get()));
  EXPECT_EQ(TryCast<clsLong>(object), box.get());
  EXPECT_EQ(CastOrNone<clsLong>(object), box.get());
}

TEST(CastTest, AnotherKindIsATypeMismatch) {
  const Ref<clsLong> box = BoxLong(3);
  EXPECT_RAISES(13, Cast<clsString>(box.get()));
  EXPECT_RAISES(13, CastOrNone<clsString>(box.get()));
  EXPECT_EQ(TryCast<clsString>(box.get()), nullptr);
}

TEST(CastTest, NoneIsAnErrorOnlyWhereAnObjectIsNeeded) {
  EXPECT_RAISES(91, Cast<clsString>(nullptr));
  EXPECT_EQ(CastOrNone<clsString>(nullptr), nullptr);
  EXPECT_EQ(TryCast<clsString>(nullptr), nullptr);
}

}  // namespace
}  // namespace vestrel
