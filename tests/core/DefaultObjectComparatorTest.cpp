#include <gtest/gtest.h>

#include <limits>

#include "core/DefaultObjectComparator.h"
#include "core/IObjListEventHandler.h"
#include "core/IObjectPredicate.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

// Answers what it is told and remembers the field it was asked for.
class Answering : public IComparable {
 public:
  VESTREL_OBJECT(Answering, IComparable)

  std::int32_t answer = 0;
  std::u16string askedField;

  std::int32_t CompareTo(Object* /*other*/, std::u16string_view field) override {
    askedField = field;
    return answer;
  }
};

TEST(DefaultObjectComparatorTest, StartsAscendingByTheWholeValue) {
  const Ref<DefaultObjectComparator> comparator = MakeRef<DefaultObjectComparator>();
  EXPECT_FALSE(comparator->Reverse());
  EXPECT_EQ(comparator->field(), u"all");
  EXPECT_EQ(comparator->Compare(BoxLong(1).get(), BoxLong(2).get()), -1);
}

TEST(DefaultObjectComparatorTest, NegatesEveryResultWhenReversed) {
  const Ref<DefaultObjectComparator> comparator = MakeRef<DefaultObjectComparator>();
  comparator->SetReverse(true);
  EXPECT_EQ(comparator->Compare(BoxLong(1).get(), BoxLong(2).get()), 1);
  EXPECT_EQ(comparator->Compare(BoxLong(2).get(), BoxLong(2).get()), 0);
}

TEST(DefaultObjectComparatorTest, AsksTheFirstForItsField) {
  const Ref<DefaultObjectComparator> comparator = MakeRef<DefaultObjectComparator>();
  const Ref<Answering> first = MakeRef<Answering>();
  const Ref<Answering> second = MakeRef<Answering>();
  comparator->SetField(u"name");
  first->answer = 7;
  EXPECT_EQ(comparator->Compare(first.get(), second.get()), 7);
  EXPECT_EQ(first->askedField, u"name");
  EXPECT_EQ(second->askedField, u"");
  EXPECT_EQ(comparator->field(), u"name");
}

TEST(DefaultObjectComparatorTest, ARatherLargeAnswerCannotBeNegated) {
  const Ref<DefaultObjectComparator> comparator = MakeRef<DefaultObjectComparator>();
  const Ref<Answering> item = MakeRef<Answering>();
  comparator->SetReverse(true);
  item->answer = std::numeric_limits<std::int32_t>::min();
  EXPECT_RAISES(6, comparator->Compare(item.get(), item.get()));
}

TEST(DefaultObjectComparatorTest, BothMustBeComparable) {
  const Ref<DefaultObjectComparator> comparator = MakeRef<DefaultObjectComparator>();
  const Ref<clsObjectList> plain = MakeRef<clsObjectList>();
  const Ref<Answering> comparable = MakeRef<Answering>();
  EXPECT_RAISES(13, comparator->Compare(plain.get(), comparable.get()));
  EXPECT_RAISES(13, comparator->Compare(comparable.get(), plain.get()));
  EXPECT_RAISES(91, comparator->Compare(nullptr, comparable.get()));
  EXPECT_RAISES(91, comparator->Compare(comparable.get(), nullptr));
}

TEST(DefaultObjectComparatorTest, PlainInterfacesCanBeMadeAndDoNothing) {
  const Ref<IComparable> comparable = MakeRef<IComparable>();
  EXPECT_EQ(comparable->CompareTo(comparable.get()), 0);
  EXPECT_EQ(comparable->FieldCompare(u"x", 1), 0);
  EXPECT_EQ(MakeRef<IObjectComparator>()->Compare(nullptr, nullptr), 0);
  EXPECT_FALSE(MakeRef<IObjectPredicate>()->IsTrueFor(nullptr));
  MakeRef<IObjListEventHandler>()->ItemAdded(nullptr, nullptr, 0, nullptr);
  MakeRef<IObjListEventHandler>()->ItemRemoved(nullptr, nullptr, 0, nullptr);
}

}  // namespace
}  // namespace vestrel
