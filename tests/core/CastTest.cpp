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

class Plain : public Object {
 public:
  VESTREL_OBJECT(Plain)
};

class Derived : public Plain {
 public:
  VESTREL_OBJECT(Derived, Plain)
};

// Stands for an object that it is not.
class Adapter : public Object {
 public:
  explicit Adapter(Plain* adapted) : adapted_(adapted) {}
  void* Query(TypeKey key) noexcept override { return key == KeyOf<Plain>() ? adapted_ : nullptr; }

 private:
  Plain* adapted_;
};

TEST(CastTest, AnObjectIsAlsoWhatItDerivesFromAndWhatItAnswersFor) {
  const Ref<Plain> plain = MakeRef<Plain>();
  const Ref<Derived> derived = MakeRef<Derived>();
  const Ref<Adapter> adapter = MakeRef<Adapter>(plain.get());
  EXPECT_EQ(&Cast<Plain>(plain.get()), plain.get());
  EXPECT_EQ(&Cast<Plain>(derived.get()), derived.get());
  EXPECT_EQ(&Cast<Derived>(derived.get()), derived.get());
  EXPECT_EQ(&Cast<Plain>(adapter.get()), plain.get());
  EXPECT_RAISES(13, Cast<Derived>(plain.get()));
  EXPECT_RAISES(13, Cast<Derived>(adapter.get()));
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
