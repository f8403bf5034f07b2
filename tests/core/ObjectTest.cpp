#include <gtest/gtest.h>

#include "core/BackRef.h"
#include "core/Object.h"
#include "core/Ref.h"

namespace vestrel {
namespace {

class Plain : public Object {
 public:
  VESTREL_OBJECT(Plain)
};

class Owner : public Object {
 public:
  VESTREL_OBJECT(Owner)
  VESTREL_HELD_WEAKLY()

 private:
  WeakSource weakSource_;
};

class RefersToItselfWhenDestroyed : public Object {
 public:
  VESTREL_OBJECT(RefersToItselfWhenDestroyed)
  explicit RefersToItselfWhenDestroyed(int& destroyed) : destroyed_(destroyed) {}

 protected:
  ~RefersToItselfWhenDestroyed() override {
    const Ref<Object> self(this);
    ++destroyed_;
  }

 private:
  int& destroyed_;
};

TEST(ObjectTest, IsDestroyedWithItsLastReference) {
  const long before = Object::LiveCount();
  Ref<Plain> first = MakeRef<Plain>();
  Ref<Plain> second = first;
  first = nullptr;
  EXPECT_EQ(Object::LiveCount(), before + 1);
  second = nullptr;
  EXPECT_EQ(Object::LiveCount(), before);
}

TEST(ObjectTest, ABackReferenceToAnOwnerDoesNotKeepItAlive) {
  Ref<Owner> owner = MakeRef<Owner>();
  const BackRef<Owner> back(owner.get());
  EXPECT_EQ(back.Lock(), owner);
  owner = nullptr;
  EXPECT_FALSE(back.Lock());
}

TEST(ObjectTest, ABackReferenceToAHostsObjectKeepsItAlive) {
  const long before = Object::LiveCount();
  {
    Ref<Plain> handler = MakeRef<Plain>();
    BackRef<Plain> back(handler.get());
    handler = nullptr;
    EXPECT_TRUE(back.Lock());
    back = nullptr;
    EXPECT_EQ(Object::LiveCount(), before);
  }
}

TEST(ObjectTest, ReferencesTakenWhileBeingDestroyedDestroyItOnce) {
  int destroyed = 0;
  MakeRef<RefersToItselfWhenDestroyed>(destroyed);
  EXPECT_EQ(destroyed, 1);
}

}  // namespace
}  // namespace vestrel
