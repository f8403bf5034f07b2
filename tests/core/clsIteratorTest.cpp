#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/clsIterator.h"
#include "tests/core/ListHelpers.h"
#include "tests/support/Ending.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

using test::Longs;
using test::Shown;
using test::Texts;

TEST(clsIteratorTest, StandsBeforeTheFirstItem) {
  const Ref<clsIterator> iterator = Texts({u"a", u"b"})->BeginIter();
  EXPECT_EQ(iterator->Size(), 2);
  EXPECT_EQ(iterator->IterIndex(), -1);
  EXPECT_RAISES(9, iterator->iterValue());
}

TEST(clsIteratorTest, AdvancesAndThenReads) {
  const Ref<clsIterator> iterator = Texts({u"a", u"b"})->BeginIter();
  std::string seen;
  while (iterator->hasNext()) seen += Shown(iterator->iterValue().get()) + Shown(iterator->iterValue().get());
  EXPECT_EQ(seen, "aabb");
  EXPECT_EQ(iterator->IterIndex(), 2);
  EXPECT_RAISES(9, iterator->iterValue());
  EXPECT_FALSE(iterator->hasNext());
  EXPECT_EQ(iterator->IterIndex(), 3);
}

TEST(clsIteratorTest, AnswersEachObjectAndLeavesTheArgumentAloneAtTheEnd) {
  const Ref<clsIterator> iterator = Texts({u"a", u"b"})->BeginIter();
  Ref<Object> item;
  EXPECT_TRUE(iterator->hasNextObject(item));
  EXPECT_EQ(Shown(item.get()), "a");
  EXPECT_TRUE(iterator->hasNextObject(item));
  EXPECT_FALSE(iterator->hasNextObject(item));
  EXPECT_EQ(Shown(item.get()), "b");
}

TEST(clsIteratorTest, AnswersBoxedTexts) {
  const Ref<clsIterator> iterator = Texts({u"a", u"b"})->BeginIter();
  std::u16string text;
  EXPECT_TRUE(iterator->hasNextString(text));
  EXPECT_EQ(text, u"a");
  EXPECT_TRUE(iterator->hasNextString(text));
  EXPECT_FALSE(iterator->hasNextString(text));
  EXPECT_EQ(text, u"b");
  EXPECT_RAISES(13, Longs({1})->BeginIter()->hasNextString(text));
  EXPECT_EQ(text, u"b");
}

TEST(clsIteratorTest, AnswersBoxedNumbers) {
  const Ref<clsIterator> iterator = Longs({4, 5})->BeginIter();
  std::int32_t value = 0;
  EXPECT_TRUE(iterator->hasNextLong(value));
  EXPECT_EQ(value, 4);
  EXPECT_TRUE(iterator->hasNextLong(value));
  EXPECT_FALSE(iterator->hasNextLong(value));
  EXPECT_EQ(value, 5);
  EXPECT_RAISES(13, Texts({u"1"})->BeginIter()->hasNextLong(value));
}

TEST(clsIteratorTest, AnEmptyItemIsNoBoxedValue) {
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  list->AddItem(nullptr);
  std::u16string text;
  std::int32_t value = 0;
  Ref<Object> item = BoxLong(1);
  EXPECT_RAISES(91, list->BeginIter()->hasNextString(text));
  EXPECT_RAISES(91, list->BeginIter()->hasNextLong(value));
  EXPECT_TRUE(list->BeginIter()->hasNextObject(item));
  EXPECT_FALSE(item);
}

TEST(clsIteratorTest, AFailedReadHasAdvanced) {
  const Ref<clsObjectList> list = Texts({u"a"});
  list->AddItem(BoxLong(2).get());
  const Ref<clsIterator> iterator = list->BeginIter();
  std::int32_t value = 0;
  EXPECT_RAISES(13, iterator->hasNextLong(value));
  EXPECT_EQ(iterator->IterIndex(), 0);
  EXPECT_TRUE(iterator->hasNextLong(value));
  EXPECT_EQ(value, 2);
}

TEST(clsIteratorTest, AnswersThePositionAlsoPastTheEnd) {
  const Ref<clsIterator> iterator = Texts({u"a", u"b"})->BeginIter();
  std::int32_t index = 99;
  EXPECT_TRUE(iterator->hasNextWithIndex(index));
  EXPECT_EQ(index, 0);
  EXPECT_TRUE(iterator->hasNextWithIndex(index));
  EXPECT_EQ(index, 1);
  EXPECT_FALSE(iterator->hasNextWithIndex(index));
  EXPECT_EQ(index, 2);
}

TEST(clsIteratorTest, StartsOverWhenReset) {
  const Ref<clsIterator> iterator = Texts({u"a", u"b"})->BeginIter();
  while (iterator->hasNext()) continue;
  iterator->resetIter();
  EXPECT_EQ(iterator->IterIndex(), -1);
  EXPECT_RAISES(9, iterator->iterValue());
  EXPECT_TRUE(iterator->hasNext());
  EXPECT_EQ(Shown(iterator->iterValue().get()), "a");
}

TEST(clsIteratorTest, YieldsTheOldItemsWhateverHappensToTheList) {
  const Ref<clsObjectList> list = Texts({u"c", u"a", u"b"});
  const Ref<clsIterator> iterators[] = {list->BeginIter(), list->BeginIter()};
  list->SortInPlace();
  list->Remove(0);
  list->Reverse();
  list->Clear();
  list->AddItem(BoxString(u"x").get());
  for (const Ref<clsIterator>& iterator : iterators) {
    std::u16string all;
    for (std::u16string text; iterator->hasNextString(text);) all += text;
    EXPECT_EQ(all, u"cab");
  }
  EXPECT_EQ(Shown(*list), "x");
}

// Each change by itself: the list moves to slots of its own with the first one.
TEST(clsIteratorTest, YieldsTheOldItemsWhateverTheFirstChangeIs) {
  struct Change {
    std::function<void(clsObjectList&)> make;
    const char* after;
  };
  const Change changes[] = {
      {[](clsObjectList& list) { list.Reverse(); }, "b a c"},
      {[](clsObjectList& list) { list.SortInPlace(); }, "a b c"},
      {[](clsObjectList& list) {
         list.Rearrange(std::vector<Object*>{list.begin()[2], list.begin()[0], list.begin()[1]});
       },
       "b c a"},
      {[](clsObjectList& list) { list.Remove(0); }, "a b"},
      {[](clsObjectList& list) { list.AddItem(BoxString(u"x").get()); }, "c a b x"},
      {[](clsObjectList& list) { list.AddItemBefore(BoxString(u"x").get(), 0); }, "x c a b"},
      {[](clsObjectList& list) { list.ExtendWith(&list); }, "c a b c a b"},
      {[](clsObjectList& list) { list.Clear(); }, ""},
  };
  for (const Change& change : changes) {
    SCOPED_TRACE(change.after);
    const Ref<clsObjectList> list = Texts({u"c", u"a", u"b"});
    const Ref<clsIterator> iterator = list->BeginIter();
    change.make(*list);
    EXPECT_EQ(Shown(*list), change.after);
    std::u16string all;
    for (std::u16string text; iterator->hasNextString(text);) all += text;
    EXPECT_EQ(all, u"cab");
  }
}

TEST(clsIteratorTest, TheEndOfAnItemThatInitReplacesMayCallInit) {
  const Ref<clsIterator> iterator = MakeRef<clsIterator>();
  const auto again = [&] {
    const std::vector<Ref<Object>> items{BoxLong(1), BoxLong(2)};
    iterator->Init(items, 2);
  };
  {
    const std::vector<Ref<Object>> going{MakeRef<test::Ending<test::RecordingObserver>>(again)};
    iterator->Init(going, 1);
  }
  const std::vector<Ref<Object>> seven{BoxLong(7)};
  iterator->Init(seven, 1);
  std::string all;
  for (std::int32_t value = 0; iterator->hasNextLong(value);) all += std::to_string(value);
  EXPECT_EQ(all, "12");
}

TEST(clsIteratorTest, OutlivesItsList) {
  const long before = Object::LiveCount();
  {
    Ref<clsObjectList> list = Texts({u"a"});
    const Ref<clsIterator> iterator = list->BeginIter();
    list = nullptr;
    EXPECT_TRUE(iterator->hasNext());
    EXPECT_EQ(Shown(iterator->iterValue().get()), "a");
  }
  EXPECT_EQ(Object::LiveCount(), before);
}

TEST(clsIteratorTest, DoesNotSeeStaleSlotsBehindItsEnd) {
  const Ref<clsObjectList> list = Texts({u"a", u"b"});
  list->Remove(1);
  const Ref<clsIterator> iterator = list->BeginIter();
  EXPECT_TRUE(iterator->hasNext());
  EXPECT_FALSE(iterator->hasNext());
  EXPECT_RAISES(9, iterator->iterValue());
}

TEST(clsIteratorTest, WalksOverACopyOfAnArray) {
  std::vector<Ref<Object>> array;
  for (std::int32_t i = 0; i < 40; ++i) array.emplace_back(BoxLong(i));
  const Ref<clsIterator> iterator = MakeRef<clsIterator>();
  iterator->Init(array, 39);
  array.clear();
  EXPECT_EQ(iterator->Size(), 39);
  std::int32_t sum = 0;
  for (std::int32_t value = 0; iterator->hasNextLong(value);) sum += value;
  EXPECT_EQ(sum, 38 * 39 / 2);
}

TEST(clsIteratorTest, StartsOverWithAnotherArray) {
  const Ref<clsIterator> iterator = Texts({u"a", u"b"})->BeginIter();
  iterator->hasNext();
  const std::vector<Ref<Object>> array{BoxLong(5)};
  iterator->Init(array, 1);
  EXPECT_EQ(iterator->IterIndex(), -1);
  std::int32_t value = 0;
  EXPECT_TRUE(iterator->hasNextLong(value));
  EXPECT_EQ(value, 5);
}

TEST(clsIteratorTest, ASizeBeyondTheArrayFailsWhereTheArrayEnds) {
  const Ref<clsIterator> iterator = MakeRef<clsIterator>();
  const std::vector<Ref<Object>> array{BoxLong(5)};
  iterator->Init(array, 3);
  std::int32_t value = 0;
  EXPECT_TRUE(iterator->hasNextLong(value));
  EXPECT_TRUE(iterator->hasNext());
  EXPECT_RAISES(9, iterator->iterValue());
  Ref<Object> item;
  EXPECT_RAISES(9, iterator->hasNextObject(item));
  EXPECT_FALSE(iterator->hasNext());
  iterator->Init({}, 100);
  std::int32_t index = 0;
  while (iterator->hasNextWithIndex(index) && index < 90) continue;
  EXPECT_RAISES(9, iterator->iterValue());
}

TEST(clsIteratorTest, ANewOneHasNothing) {
  const Ref<clsIterator> iterator = MakeRef<clsIterator>();
  EXPECT_EQ(iterator->Size(), 0);
  EXPECT_FALSE(iterator->hasNext());
  EXPECT_RAISES(9, iterator->iterValue());
}

}  // namespace
}  // namespace vestrel
