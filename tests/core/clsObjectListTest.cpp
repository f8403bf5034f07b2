#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include "core/DefaultObjectComparator.h"
#include "core/clsObjectList.h"
#include "tests/core/ListHelpers.h"
#include "tests/support/Ending.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

using test::Ending;
using test::Longs;
using test::RecordingObserver;
using test::Shown;
using test::Texts;
using testing::ElementsAre;

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();

// True for what the function given is true for.
class Where : public IObjectPredicate {
 public:
  VESTREL_OBJECT(Where, IObjectPredicate)
  explicit Where(std::function<bool(Object*)> test) : test_(std::move(test)) {}
  bool IsTrueFor(Object* obj) override { return test_(obj); }

 private:
  std::function<bool(Object*)> test_;
};

Ref<Where> Above(std::int32_t limit) {
  return MakeRef<Where>([limit](Object* item) { return Cast<clsLong>(item).value() > limit; });
}

// An object whose end is noticed.
class Tracked : public Object {
 public:
  VESTREL_OBJECT(Tracked)
  explicit Tracked(std::function<void()> onEnd) : onEnd_(std::move(onEnd)) {}

 protected:
  ~Tracked() override { onEnd_(); }

 private:
  std::function<void()> onEnd_;
};

TEST(clsObjectListTest, ANewListIsEmptyAndHasRoomFor32) {
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  EXPECT_EQ(list->Size(), 0);
  EXPECT_EQ(list->Capacity(), 32);
}

TEST(clsObjectListTest, DoublesItsRoomWhenItIsFullAndKeepsItsItems) {
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  for (std::int32_t i = 0; i < 32; ++i) EXPECT_EQ(list->AddItem(BoxLong(i).get()), i);
  EXPECT_EQ(list->Capacity(), 32);
  EXPECT_EQ(list->AddItem(BoxLong(32).get()), 32);
  EXPECT_EQ(list->Capacity(), 64);
  for (std::int32_t i = 33; i < 65; ++i) list->AddItem(BoxLong(i).get());
  EXPECT_EQ(list->Capacity(), 128);
  for (std::int32_t i = 0; i < 65; ++i) EXPECT_EQ(Cast<clsLong>(list->GetItem(i).get()).value(), i);
}

TEST(clsObjectListTest, GetItemNormalisesItsIndex) {
  const Ref<clsObjectList> list = Texts({u"a", u"b", u"c"});
  const struct {
    std::int32_t index;
    const char* item;
  } rows[] = {{0, "a"},  {1, "b"},  {2, "c"},  {3, "c"},  {8, "c"},
              {-1, "c"}, {-2, "b"}, {-3, "a"}, {-4, "a"}, {-8, "a"}};
  for (const auto& row : rows) EXPECT_EQ(Shown(list->GetItem(row.index).get()), row.item) << row.index;
}

TEST(clsObjectListTest, AnEmptyListAnswersSlotZeroForNegativeIndicesOnly) {
  const Ref<clsObjectList> fresh = MakeRef<clsObjectList>();
  EXPECT_EQ(fresh->GetItem(-1), nullptr);
  EXPECT_RAISES(9, fresh->GetItem(0));
  EXPECT_RAISES(9, fresh->GetItem(5));
  const Ref<clsObjectList> cleared = Texts({u"a", u"b"});
  cleared->Clear();
  EXPECT_EQ(Shown(cleared->GetItem(-1).get()), "a");
  EXPECT_RAISES(9, cleared->GetItem(0));
}

TEST(clsObjectListTest, InsertsBeforeAPosition) {
  const struct {
    std::int32_t before;
    std::int32_t position;
    const char* result;
  } rows[] = {{0, 0, "x a b c"},  {1, 1, "a x b c"},  {2, 2, "a b x c"},  {3, 3, "a b c x"},
              {99, 3, "a b c x"}, {-1, 2, "a b x c"}, {-3, 0, "x a b c"}, {-9, 0, "x a b c"}};
  for (const auto& row : rows) {
    const Ref<clsObjectList> list = Texts({u"a", u"b", u"c"});
    EXPECT_EQ(list->AddItemBefore(BoxString(u"x").get(), row.before), row.position) << row.before;
    EXPECT_EQ(Shown(*list), row.result) << row.before;
  }
}

TEST(clsObjectListTest, InsertsIntoAnEmptyList) {
  for (const std::int32_t before : {0, -1, -5, 7}) {
    const Ref<clsObjectList> list = MakeRef<clsObjectList>();
    EXPECT_EQ(list->AddItemBefore(BoxString(u"x").get(), before), 0);
    EXPECT_EQ(Shown(*list), "x");
  }
}

TEST(clsObjectListTest, HoldsEmptyReferencesAsItems) {
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  EXPECT_EQ(list->AddItem(nullptr), 0);
  EXPECT_EQ(list->AddItemBefore(BoxString(u"x").get(), 0), 0);
  EXPECT_EQ(Shown(*list), "x -");
  EXPECT_EQ(list->Remove(1), nullptr);
  EXPECT_EQ(list->Size(), 1);
}

TEST(clsObjectListTest, RemovesAtANormalisedIndex) {
  const struct {
    std::int32_t index;
    const char* removed;
    const char* left;
  } rows[] = {{0, "a", "b c"},  {1, "b", "a c"},  {2, "c", "a b"},  {7, "c", "a b"},
              {-1, "c", "a b"}, {-2, "b", "a c"}, {-3, "a", "b c"}, {-7, "a", "b c"}};
  for (const auto& row : rows) {
    const Ref<clsObjectList> list = Texts({u"a", u"b", u"c"});
    EXPECT_EQ(Shown(list->Remove(row.index).get()), row.removed) << row.index;
    EXPECT_EQ(Shown(*list), row.left) << row.index;
  }
}

TEST(clsObjectListTest, RemovingFromAnEmptyListIsNotGuarded) {
  const Ref<clsObjectList> list = Texts({u"a"});
  EXPECT_EQ(Shown(list->Remove(-1).get()), "a");
  EXPECT_RAISES(9, list->Remove(0));
  EXPECT_EQ(list->Size(), 0);
  EXPECT_EQ(Shown(list->Remove(-1).get()), "a");
  EXPECT_EQ(list->Size(), -1);
}

TEST(clsObjectListTest, ASizeBelowZeroFailsOutsideTheStorageOnly) {
  const auto broken = [] {
    Ref<clsObjectList> list = MakeRef<clsObjectList>();
    EXPECT_EQ(list->Remove(-1), nullptr);
    EXPECT_EQ(list->Size(), -1);
    return list;
  };
  EXPECT_RAISES(9, broken()->AddItem(BoxLong(1).get()));
  EXPECT_RAISES(9, broken()->AddItemBefore(BoxLong(1).get(), 0));
  EXPECT_RAISES(9, broken()->GetItem(0));
  EXPECT_RAISES(9, broken()->AsArray());
  EXPECT_RAISES(9, broken()->JoinStrings(u","));
  EXPECT_RAISES(6, broken()->GetItem(kLowest));
  EXPECT_EQ(broken()->GetItem(-1), nullptr);
  EXPECT_EQ(broken()->FindObject(nullptr), -1);
  EXPECT_EQ(broken()->Filter(Above(0).get())->Size(), 0);
  EXPECT_FALSE(broken()->BeginIter()->hasNext());
  const Ref<clsObjectList> healed = broken();
  EXPECT_EQ(healed->AddItemBefore(BoxLong(1).get(), -1), 0);
  EXPECT_EQ(healed->Size(), 0);
  const Ref<clsObjectList> cleared = broken();
  cleared->Clear();
  EXPECT_EQ(cleared->Size(), 0);
}

TEST(clsObjectListTest, VacatedSlotsKeepTheirReferencesUntilTheyAreOverwritten) {
  int ended = 0;
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  list->AddItem(MakeRef<Tracked>([&] { ++ended; }).get());
  list->AddItem(MakeRef<Tracked>([&] { ++ended; }).get());
  list->Remove(0);
  EXPECT_EQ(ended, 1) << "the removed item's slot was taken by its neighbour";
  list->Remove(0);
  EXPECT_EQ(ended, 1) << "the last one stays behind twice";
  list->AddItem(nullptr);
  EXPECT_EQ(ended, 1);
  list->AddItem(nullptr);
  EXPECT_EQ(ended, 2);
}

TEST(clsObjectListTest, ClearKeepsTheReferencesAndTheEndDropsThem) {
  int ended = 0;
  Ref<clsObjectList> list = MakeRef<clsObjectList>();
  for (int i = 0; i < 40; ++i) list->AddItem(MakeRef<Tracked>([&] { ++ended; }).get());
  list->Clear();
  EXPECT_EQ(list->Size(), 0);
  EXPECT_EQ(list->Capacity(), 64);
  EXPECT_EQ(ended, 0);
  list = nullptr;
  EXPECT_EQ(ended, 40);
}

TEST(clsObjectListTest, ReportsInsertionsAndRemovalsToItsObserver) {
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  const Ref<RecordingObserver> observer = MakeRef<RecordingObserver>();
  const Ref<clsLong> userData = BoxLong(4);
  list->SetEventHandler(observer.get(), userData.get());
  list->AddItem(BoxString(u"a").get());
  list->AddItem(BoxString(u"c").get());
  list->AddItemBefore(BoxString(u"b").get(), 1);
  list->Remove(1);
  EXPECT_THAT(observer->events, ElementsAre("+a@0/1", "+c@1/2", "+b@1/3", "-b@1/2"));
  EXPECT_EQ(observer->lastList, list.get());
  EXPECT_EQ(observer->lastUserData, userData.get());
}

TEST(clsObjectListTest, ReportsClearingItemByItemWhileAllAreInPlace) {
  const Ref<clsObjectList> list = Texts({u"a", u"b"});
  const Ref<RecordingObserver> observer = MakeRef<RecordingObserver>();
  list->SetEventHandler(observer.get(), nullptr);
  list->Clear();
  EXPECT_THAT(observer->events, ElementsAre("-a@0/2", "-b@1/2"));
  EXPECT_EQ(list->Size(), 0);
  EXPECT_EQ(observer->lastUserData, nullptr);
}

TEST(clsObjectListTest, OnlyInsertionRemovalAndClearingAreReported) {
  const Ref<clsObjectList> list = Longs({3, 1, 2});
  const Ref<RecordingObserver> observer = MakeRef<RecordingObserver>();
  list->SetEventHandler(observer.get(), nullptr);
  list->SortInPlace();
  list->Reverse();
  list->Filter(Above(1).get());
  list->BeginIter();
  EXPECT_TRUE(observer->events.empty());
  list->SetEventHandler(nullptr, nullptr);
  list->AddItem(BoxLong(9).get());
  list->Clear();
  EXPECT_TRUE(observer->events.empty());
}

TEST(clsObjectListTest, AHostsObserverIsKeptAlive) {
  const long before = Object::LiveCount();
  Ref<clsObjectList> list = MakeRef<clsObjectList>();
  list->SetEventHandler(MakeRef<RecordingObserver>().get(), BoxLong(1).get());
  EXPECT_EQ(Object::LiveCount(), before + 3);
  list = nullptr;
  EXPECT_EQ(Object::LiveCount(), before);
}

class WeakObserver : public RecordingObserver {
 public:
  VESTREL_OBJECT(WeakObserver, IObjListEventHandler)
  VESTREL_HELD_WEAKLY()

 private:
  WeakSource weakSource_;
};

TEST(clsObjectListTest, AnObserverOfTheLibraryIsNotKeptAlive) {
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  Ref<WeakObserver> observer = MakeRef<WeakObserver>();
  list->SetEventHandler(observer.get(), observer.get());
  list->AddItem(BoxLong(1).get());
  EXPECT_THAT(observer->events, ElementsAre("+1@0/1"));
  observer = nullptr;
  EXPECT_EQ(list->AddItem(BoxLong(2).get()), 1);
  list->Clear();
}

// Fails on every event.
class FailingObserver : public IObjListEventHandler {
 public:
  VESTREL_OBJECT(FailingObserver, IObjListEventHandler)
  void ItemAdded(clsObjectList*, Object*, std::int32_t, Object*) override { RaiseError(Error_DeviceIO); }
  void ItemRemoved(clsObjectList*, Object*, std::int32_t, Object*) override { RaiseError(Error_DeviceIO); }
};

TEST(clsObjectListTest, AFailingObserverLeavesTheListAsItIsAtThatMoment) {
  const Ref<clsObjectList> list = Texts({u"a"});
  list->SetEventHandler(MakeRef<FailingObserver>().get(), nullptr);
  EXPECT_RAISES(57, list->AddItem(BoxString(u"b").get()));
  EXPECT_EQ(Shown(*list), "a b");
  EXPECT_RAISES(57, list->Remove(0));
  EXPECT_EQ(Shown(*list), "b");
  EXPECT_RAISES(57, list->Clear());
  EXPECT_EQ(Shown(*list), "b");
}

TEST(clsObjectListTest, AsArrayAnswersTheItemsInOrder) {
  const Ref<clsObjectList> list = Texts({u"a", u"b"});
  const auto array = list->AsArray();
  ASSERT_EQ(array.size(), 2U);
  EXPECT_EQ(array[0], list->GetItem(0));
  EXPECT_EQ(array[1], list->GetItem(1));
  EXPECT_RAISES(9, MakeRef<clsObjectList>()->AsArray());
}

TEST(clsObjectListTest, FindsAnObjectByIdentityOnly) {
  const Ref<clsObjectList> list = Texts({u"a", u"b", u"a"});
  EXPECT_EQ(list->FindObject(list->GetItem(2).get()), 2);
  EXPECT_EQ(list->FindObject(BoxString(u"a").get()), -1);
  EXPECT_EQ(list->FindObject(nullptr), -1);
  EXPECT_EQ(list->FindObjectValue(BoxString(u"a").get()), 0);
  EXPECT_EQ(list->FindObjectValue(BoxString(u"z").get()), -1);
}

TEST(clsObjectListTest, ForgetsStaleItemsWhenSearching) {
  const Ref<clsObjectList> list = Texts({u"a", u"b"});
  const Ref<Object> last = list->Remove(1);
  EXPECT_EQ(list->FindObject(last.get()), -1);
  list->Clear();
  EXPECT_EQ(list->FindObjectValue(BoxString(u"a").get()), -1);
}

// Compares equal to everything and notes what it was asked.
class Probe : public IComparable {
 public:
  VESTREL_OBJECT(Probe, IComparable)
  std::vector<std::string> asked;
  std::int32_t equalAt = 0;

  std::int32_t CompareTo(Object* other, std::u16string_view field) override {
    asked.push_back("CompareTo " + Shown(other) + " " + ToUtf8(field));
    return static_cast<std::int32_t>(asked.size()) - 1 - equalAt;
  }
  std::int32_t FieldCompare(std::u16string_view fieldName, const Variant& value) override {
    asked.push_back("FieldCompare " + ToUtf8(fieldName) + " " + ToUtf8(ToText(value)));
    return equalAt;
  }
};

TEST(clsObjectListTest, TheProbeIsComparedWithEachItem) {
  const Ref<clsObjectList> list = Texts({u"a", u"b", u"c"});
  const Ref<Probe> probe = MakeRef<Probe>();
  probe->equalAt = 1;
  EXPECT_EQ(list->FindObjectValue(probe.get(), u"name"), 1);
  EXPECT_THAT(probe->asked, ElementsAre("CompareTo a name", "CompareTo b name"));
  EXPECT_RAISES(91, list->FindObjectValue(nullptr));
  EXPECT_EQ(MakeRef<clsObjectList>()->FindObjectValue(nullptr), -1);
  EXPECT_RAISES(13, list->FindObjectValue(BoxLong(1).get()));
}

TEST(clsObjectListTest, FindFieldValueAsksTheItems) {
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  const Ref<Probe> other = MakeRef<Probe>();
  const Ref<Probe> equal = MakeRef<Probe>();
  other->equalAt = 5;
  list->AddItem(other.get());
  list->AddItem(equal.get());
  EXPECT_EQ(list->FindFieldValue(u"pageName", u"Page 1"), 1);
  EXPECT_THAT(equal->asked, ElementsAre("FieldCompare pageName Page 1"));
  equal->equalAt = -1;
  EXPECT_EQ(list->FindFieldValue(u"pageName", 3), -1);
  list->AddItem(MakeRef<Tracked>([] {}).get());
  EXPECT_RAISES(13, list->FindFieldValue(u"pageName", 3));
  list->Clear();
  list->AddItem(nullptr);
  EXPECT_RAISES(91, list->FindFieldValue(u"pageName", 3));
}

TEST(clsObjectListTest, FindsTheFirstAndTheLastThatAPredicateIsTrueFor) {
  const Ref<clsObjectList> list = Longs({1, 5, 2, 7, 3});
  EXPECT_EQ(list->FirstIndexWhere(Above(4).get()), 1);
  EXPECT_EQ(list->LastIndexWhere(Above(4).get()), 3);
  EXPECT_EQ(list->FirstIndexWhere(Above(9).get()), -1);
  EXPECT_EQ(list->LastIndexWhere(Above(9).get()), -1);
  EXPECT_RAISES(91, list->FirstIndexWhere(nullptr));
  EXPECT_RAISES(91, list->LastIndexWhere(nullptr));
  EXPECT_RAISES(13, Texts({u"a"})->FirstIndexWhere(Above(1).get()));
}

TEST(clsObjectListTest, SortsByDefaultAscending) {
  const Ref<clsObjectList> longs = Longs({3, 1, 2});
  longs->SortInPlace();
  EXPECT_EQ(Shown(*longs), "1 2 3");
  longs->SortInPlace(nullptr, true);
  EXPECT_EQ(Shown(*longs), "3 2 1");
  const Ref<clsObjectList> texts = Texts({u"b", u"B", u"a"});
  texts->SortInPlace();
  EXPECT_EQ(Shown(*texts), "B a b");
}

TEST(clsObjectListTest, HandsTheComparatorBackThatItMade) {
  const Ref<clsObjectList> list = Longs({3, 1, 2});
  Ref<IObjectComparator> comparator;
  list->SortInPlace(&comparator, true, u"value");
  EXPECT_EQ(Shown(*list), "3 2 1");
  const auto& made = Cast<DefaultObjectComparator>(comparator.get());
  EXPECT_TRUE(made.Reverse());
  EXPECT_EQ(made.field(), u"value");
}

TEST(clsObjectListTest, AGivenComparatorCountsAlone) {
  const Ref<clsObjectList> list = Longs({3, 1, 2});
  Ref<IObjectComparator> comparator = MakeRef<DefaultObjectComparator>();
  const Ref<IObjectComparator> given = comparator;
  list->SortInPlace(&comparator, true);
  EXPECT_EQ(Shown(*list), "1 2 3");
  EXPECT_EQ(comparator, given);
}

// Ordered by a number like clsLong; answers a key of the kind given, or none, and counts its comparisons.
class Ranked : public IComparable {
 public:
  VESTREL_OBJECT(Ranked, IComparable)
  Ranked(std::int32_t rank, TypeKey kind) : rank_(rank), kind_(kind) {}
  static inline int comparisons = 0;

  std::int32_t rank() const { return rank_; }
  std::int32_t CompareTo(Object* other, std::u16string_view /*field*/) override {
    ++comparisons;
    return rank_ - Cast<Ranked>(other).rank_;
  }
  bool SortKeyFor(std::u16string_view field, SortKey& key) const override {
    key = {kind_, rank_};
    return kind_ != nullptr && field == u"rank";
  }

 private:
  std::int32_t rank_;
  TypeKey kind_;
};

std::vector<std::int32_t> SortedRanks(TypeKey kind, TypeKey otherKind, bool reverse,
                                      std::u16string_view field) {
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  for (std::int32_t i = 0; i < 100; ++i) {
    list->AddItem(MakeRef<Ranked>(i * 37 % 100, i == 50 ? otherKind : kind).get());
  }
  Ranked::comparisons = 0;
  list->SortInPlace(nullptr, reverse, field);
  std::vector<std::int32_t> ranks;
  for (Object* item : list->Snapshot()) ranks.push_back(Cast<Ranked>(item).rank());
  return ranks;
}

TEST(clsObjectListTest, ItemsWithKeysOfOneKindAreSortedWithoutAskingThem) {
  std::vector<std::int32_t> expected(100);
  std::iota(expected.begin(), expected.end(), 0);
  const TypeKey kind = KeyOf<Ranked>();
  EXPECT_EQ(SortedRanks(kind, kind, false, u"rank"), expected);
  EXPECT_EQ(Ranked::comparisons, 0);
  EXPECT_EQ(SortedRanks(kind, kind, false, u"name"), expected);
  EXPECT_GT(Ranked::comparisons, 0);
  EXPECT_EQ(SortedRanks(kind, KeyOf<clsLong>(), false, u"rank"), expected);
  EXPECT_GT(Ranked::comparisons, 0);
  EXPECT_EQ(SortedRanks(kind, nullptr, false, u"rank"), expected);
  EXPECT_GT(Ranked::comparisons, 0);
  std::reverse(expected.begin(), expected.end());
  EXPECT_EQ(SortedRanks(kind, kind, true, u"rank"), expected);
  EXPECT_EQ(Ranked::comparisons, 0);
}

TEST(clsObjectListTest, LessThanTwoItemsAreLeftAlone) {
  Ref<IObjectComparator> comparator;
  MakeRef<clsObjectList>()->SortInPlace(&comparator);
  const Ref<clsObjectList> one = MakeRef<clsObjectList>();
  one->AddItem(MakeRef<Tracked>([] {}).get());
  one->SortInPlace(&comparator);
  EXPECT_FALSE(comparator);
}

TEST(clsObjectListTest, SortingKeepsStaleItemsWhereTheyAre) {
  const Ref<clsObjectList> list = Longs({3, 1, 2, 0});
  list->Remove(3);
  list->SortInPlace();
  EXPECT_EQ(Shown(*list), "1 2 3");
  list->Clear();
  EXPECT_EQ(Shown(list->GetItem(-1).get()), "1");
}

TEST(clsObjectListTest, AnItemThatCannotBeComparedFailsTheSortAndLosesNothing) {
  const Ref<clsObjectList> list = Longs({5, 3, 4, 1, 2});
  list->AddItem(BoxString(u"x").get());
  EXPECT_RAISES(13, list->SortInPlace());
  ASSERT_EQ(list->Size(), 6);
  std::string all = Shown(*list);
  std::sort(all.begin(), all.end());
  EXPECT_EQ(all, "     12345x");
}

TEST(clsObjectListTest, FilterMakesANewListInOrder) {
  const Ref<clsObjectList> list = Longs({1, 5, 2, 7});
  const Ref<RecordingObserver> observer = MakeRef<RecordingObserver>();
  list->SetEventHandler(observer.get(), nullptr);
  const Ref<clsObjectList> result = list->Filter(Above(1).get());
  EXPECT_EQ(Shown(*result), "5 2 7");
  EXPECT_EQ(Shown(*list), "1 5 2 7");
  result->AddItem(BoxLong(1).get());
  EXPECT_TRUE(observer->events.empty());
  EXPECT_EQ(list->Filter(Above(10).get())->Size(), 0);
  EXPECT_RAISES(91, list->Filter(nullptr));
}

TEST(clsObjectListTest, ExtendsWithAnotherListAndReportsEachItem) {
  const Ref<clsObjectList> list = Texts({u"a"});
  const Ref<RecordingObserver> observer = MakeRef<RecordingObserver>();
  list->SetEventHandler(observer.get(), nullptr);
  list->ExtendWith(Texts({u"b", u"c"}).get());
  EXPECT_EQ(Shown(*list), "a b c");
  EXPECT_THAT(observer->events, ElementsAre("+b@1/2", "+c@2/3"));
  EXPECT_RAISES(91, list->ExtendWith(nullptr));
}

TEST(clsObjectListTest, ExtendingAListWithItselfDoublesItOnce) {
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  for (std::int32_t i = 0; i < 40; ++i) list->AddItem(BoxLong(i).get());
  list->ExtendWith(list.get());
  ASSERT_EQ(list->Size(), 80);
  for (std::int32_t i = 0; i < 80; ++i) EXPECT_EQ(Cast<clsLong>(list->GetItem(i).get()).value(), i % 40);
}

TEST(clsObjectListTest, JoinsBoxedTexts) {
  const Ref<clsObjectList> list = Texts({u"a", u"b", u"c"});
  EXPECT_EQ(list->JoinStrings(u", "), u"a, b, c");
  EXPECT_EQ(list->JoinStrings(u", ", 2), u"a, b");
  EXPECT_EQ(list->JoinStrings(u"", u"1"), u"a");
  EXPECT_EQ(list->JoinStrings(u"-", -5), u"a-b-c");
  EXPECT_EQ(Texts({u""})->JoinStrings(u"|"), u"");
}

TEST(clsObjectListTest, JoiningNothingOrTooMuchFails) {
  const Ref<clsObjectList> list = Texts({u"a", u"b"});
  EXPECT_RAISES(9, list->JoinStrings(u",", 0));
  EXPECT_RAISES(9, MakeRef<clsObjectList>()->JoinStrings(u","));
  EXPECT_RAISES(91, list->JoinStrings(u",", 3));
  EXPECT_RAISES(13, list->JoinStrings(u",", u"many"));
  EXPECT_RAISES(13, Longs({1})->JoinStrings(u","));
  const Ref<clsObjectList> full = MakeRef<clsObjectList>();
  for (int i = 0; i < 32; ++i) full->AddItem(BoxString(u"x").get());
  EXPECT_RAISES(9, full->JoinStrings(u",", 33));
}

TEST(clsObjectListTest, JoinsStaleTextsPastTheEnd) {
  const Ref<clsObjectList> list = Texts({u"a", u"b", u"c"});
  list->Remove(0);
  EXPECT_EQ(list->JoinStrings(u",", 3), u"b,c,c");
  list->Clear();
  EXPECT_EQ(list->JoinStrings(u",", 2), u"b,c");
}

TEST(clsObjectListTest, Reverses) {
  const struct {
    std::initializer_list<std::u16string_view> items;
    const char* reversed;
  } rows[] = {{{u"a", u"b", u"c", u"d", u"e"}, "e d c b a"}, {{u"a", u"b"}, "b a"}, {{u"a"}, "a"}, {{}, ""}};
  for (const auto& row : rows) {
    const Ref<clsObjectList> list = Texts(row.items);
    list->Reverse();
    EXPECT_EQ(Shown(*list), row.reversed);
  }
}

// Changes the list in the middle of whatever asks it.
class Meddler : public RecordingObserver {
 public:
  VESTREL_OBJECT(Meddler, IObjListEventHandler)
  std::function<void(clsObjectList*)> onRemoved;
  void ItemRemoved(clsObjectList* list, Object* item, std::int32_t atIndex, Object* userData) override {
    RecordingObserver::ItemRemoved(list, item, atIndex, userData);
    if (auto meddle = std::exchange(onRemoved, nullptr)) meddle(list);
  }
};

TEST(clsObjectListTest, AnObserverThatChangesTheListWhileItIsClearedStillHearsOfEveryItem) {
  const Ref<clsObjectList> list = Texts({u"a", u"b", u"c"});
  const Ref<Meddler> meddler = MakeRef<Meddler>();
  meddler->onRemoved = [](clsObjectList* changed) {
    changed->SetEventHandler(nullptr, nullptr);
    for (int i = 0; i < 100; ++i) changed->AddItemBefore(BoxLong(i).get(), 0);
    while (changed->Size() > 1) changed->Remove(0);
  };
  list->SetEventHandler(meddler.get(), nullptr);
  list->Clear();
  EXPECT_EQ(list->Size(), 0);
  EXPECT_THAT(meddler->events, ElementsAre("-a@0/3"));
}

TEST(clsObjectListTest, AnObserverMayDropTheLastReferenceToTheList) {
  Ref<clsObjectList> list = Texts({u"a", u"b"});
  const Ref<Meddler> meddler = MakeRef<Meddler>();
  meddler->onRemoved = [&list](clsObjectList*) { list = nullptr; };
  list->SetEventHandler(meddler.get(), nullptr);
  list->Clear();
  EXPECT_THAT(meddler->events, ElementsAre("-a@0/2", "-b@1/2"));
}

TEST(clsObjectListTest, TheEndOfAReplacedObserverMayUseTheListOrLetGoOfIt) {
  Ref<clsObjectList> list = Texts({u"a"});
  const auto use = [&list] {
    if (list) list->AddItem(BoxString(u"late").get());
  };
  const Ref<RecordingObserver> next = MakeRef<RecordingObserver>();
  const Ref<Object> handed = BoxLong(7);
  list->SetEventHandler(MakeRef<Ending<RecordingObserver>>(use).get(), nullptr);
  list->SetEventHandler(next.get(), handed.get());
  EXPECT_THAT(next->events, ElementsAre("+late@1/2"));
  EXPECT_EQ(next->lastUserData, handed.get());

  clsObjectList& borrowed = *list;
  list->SetEventHandler(MakeRef<Ending<RecordingObserver>>([&list] { list = nullptr; }).get(), nullptr);
  borrowed.SetEventHandler(nullptr, nullptr);
  EXPECT_FALSE(list);
}

TEST(clsObjectListTest, APredicateThatChangesTheListDoesNotDisturbTheSearch) {
  const Ref<clsObjectList> list = Longs({1, 2, 3});
  const Ref<Where> meddling = MakeRef<Where>([&](Object* item) {
    list->Clear();
    for (int i = 0; i < 50; ++i) list->AddItem(nullptr);
    return Cast<clsLong>(item).value() == 3;
  });
  EXPECT_EQ(list->FirstIndexWhere(meddling.get()), 2);
  EXPECT_EQ(list->Size(), 50);
}

// Runs a function at its tenth comparison.
class MeddlingComparator : public IObjectComparator {
 public:
  VESTREL_OBJECT(MeddlingComparator, IObjectComparator)
  std::function<void()> meddle;
  std::int32_t Compare(Object* a, Object* b) override {
    if (++calls_ == 10) meddle();
    return byValue_->Compare(a, b);
  }

 private:
  int calls_ = 0;
  Ref<DefaultObjectComparator> byValue_ = MakeRef<DefaultObjectComparator>();
};

TEST(clsObjectListTest, ASortDuringWhichTheListWasChangedIsDropped) {
  const Ref<clsObjectList> list = Longs({5, 3, 4, 1, 2});
  const Ref<MeddlingComparator> comparator = MakeRef<MeddlingComparator>();
  comparator->meddle = [&] {
    list->Clear();
    list->AddItem(BoxLong(9).get());
    list->AddItem(BoxLong(8).get());
  };
  Ref<IObjectComparator> argument = comparator;
  list->SortInPlace(&argument);
  EXPECT_EQ(Shown(*list), "9 8");
}

TEST(clsObjectListTest, AnIteratorMadeDuringASortKeepsTheOldOrder) {
  const Ref<clsObjectList> list = Longs({5, 3, 4, 1, 2});
  const Ref<MeddlingComparator> comparator = MakeRef<MeddlingComparator>();
  Ref<clsIterator> iterator;
  comparator->meddle = [&] { iterator = list->BeginIter(); };
  Ref<IObjectComparator> argument = comparator;
  list->SortInPlace(&argument);
  EXPECT_EQ(Shown(*list), "1 2 3 4 5");
  std::string old;
  for (std::int32_t value = 0; iterator->hasNextLong(value);) old += std::to_string(value);
  EXPECT_EQ(old, "53412");
}

TEST(clsObjectListTest, AStaleItemsEndMayUseTheList) {
  Ref<clsObjectList> list = MakeRef<clsObjectList>();
  clsObjectList* const borrowed = list.get();
  list->AddItem(MakeRef<Tracked>([borrowed] { borrowed->AddItem(BoxString(u"late").get()); }).get());
  list->Clear();
  EXPECT_EQ(list->AddItem(BoxString(u"new").get()), 0);
  EXPECT_EQ(Shown(*list), "new late");
}

TEST(clsObjectListTest, CountsItsChanges) {
  const Ref<clsObjectList> list = Longs({3, 1, 2});
  const std::function<void()> changes[] = {[&] { list->AddItem(BoxLong(4).get()); },
                                           [&] { list->AddItemBefore(BoxLong(5).get(), 0); },
                                           [&] { list->Remove(0); },
                                           [&] { list->SortInPlace(); },
                                           [&] { list->Reverse(); },
                                           [&] { list->ExtendWith(list.get()); },
                                           [&] { list->Clear(); }};
  for (const std::function<void()>& change : changes) {
    const std::uint64_t before = list->Changes();
    change();
    EXPECT_GT(list->Changes(), before);
  }
  const std::uint64_t before = list->Changes();
  list->FindObject(nullptr);
  list->BeginIter();
  list->Filter(Above(0).get());
  EXPECT_EQ(list->Changes(), before);
}

TEST(clsObjectListTest, IsPutInAnotherOrderWithoutEvents) {
  const Ref<clsObjectList> list = Texts({u"a", u"b", u"c"});
  const Ref<RecordingObserver> observer = MakeRef<RecordingObserver>();
  list->SetEventHandler(observer.get(), nullptr);
  const Ref<clsIterator> iterator = list->BeginIter();
  const ItemSnapshot items = list->Snapshot();
  Object* const order[] = {items[2], items[0], items[1]};
  list->Rearrange(order);
  EXPECT_EQ(Shown(*list), "c a b");
  EXPECT_TRUE(observer->events.empty());
  std::u16string first;
  EXPECT_TRUE(iterator->hasNextString(first));
  EXPECT_EQ(first, u"a");
}

TEST(clsObjectListTest, ReleasesEverythingItHolds) {
  const long before = Object::LiveCount();
  {
    const Ref<clsObjectList> list = Longs({1, 2, 3});
    const Ref<clsIterator> iterator = list->BeginIter();
    list->Remove(1);
    list->ExtendWith(list.get());
    list->SortInPlace();
    list->Reverse();
    const auto array = list->AsArray();
    list->Clear();
    list->AddItem(array[0].get());
  }
  EXPECT_EQ(Object::LiveCount(), before);
}

}  // namespace
}  // namespace vestrel
