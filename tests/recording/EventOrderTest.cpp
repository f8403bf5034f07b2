#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "recording/EventOrder.h"
#include "tests/recording/RecordingFixture.h"

namespace vestrel {
namespace {

using test::ErrorOf;

class EventOrderTest : public test::RecordingFixture {
 protected:
  Ref<clsObjectList> ListOf(const std::vector<std::int32_t>& times) {
    Ref<clsObjectList> list = MakeRef<clsObjectList>();
    for (const std::int32_t time : times) list->AddItem(Event(time, nullptr).get());
    return list;
  }
  static std::vector<std::int32_t> Times(const clsObjectList& list) {
    std::vector<std::int32_t> times;
    for (Object* item : list.Snapshot()) times.push_back(Cast<vxEvent>(item).time());
    return times;
  }
  static vxEvent& At(const clsObjectList& list, std::int32_t index) {
    return Cast<vxEvent>(list.GetItem(index).get());
  }
  // What looking through the list from the start finds.
  static std::int32_t Scan(const clsObjectList& list, std::int32_t time) {
    const auto times = Times(list);
    return static_cast<std::int32_t>(
        std::find_if(times.begin(), times.end(), [time](std::int32_t t) { return t > time; }) -
        times.begin());
  }

  EventOrder order;
};

TEST_F(EventOrderTest, FindsTheFirstLaterEventInASortedList) {
  const Ref<clsObjectList> list = ListOf({10, 20, 20, 30});
  const std::pair<std::int32_t, std::int32_t> table[] = {{-5, 0}, {9, 0},  {10, 1}, {19, 1},
                                                         {20, 3}, {30, 4}, {99, 4}};
  for (const auto& [time, position] : table) EXPECT_EQ(order.FirstLaterThan(*list, time), position) << time;
}

TEST_F(EventOrderTest, AnEmptyListHasNoLaterEvent) {
  EXPECT_EQ(order.FirstLaterThan(*ListOf({}), 0), 0);
}

TEST_F(EventOrderTest, AnUnsortedListIsLookedThroughFromTheStart) {
  const Ref<clsObjectList> list = ListOf({50, 10, 40, 20});
  const std::pair<std::int32_t, std::int32_t> table[] = {{5, 0}, {10, 0}, {45, 0}, {50, 4}};
  for (const auto& [time, position] : table) EXPECT_EQ(order.FirstLaterThan(*list, time), position) << time;
}

// Whatever a host does to the list or its events between two seeks, both must agree with the scan.
TEST_F(EventOrderTest, NoticesEveryChange) {
  const Ref<clsObjectList> list = ListOf({10, 20, 30, 40});
  const std::vector<std::pair<const char*, std::function<void()>>> changes = {
      {"nothing", [] {}},
      {"a later time", [&] { At(*list, 0).SetTime(35); }},
      {"the time back", [&] { At(*list, 0).SetTime(10); }},
      {"through Init", [&] { At(*list, 3).Init(5, nullptr, vxEvent_ButtonOn); }},
      {"an item removed", [&] { list->Remove(3); }},
      {"an item appended", [&] { list->AddItem(Event(15, nullptr).get()); }},
      {"an item put first", [&] { list->AddItemBefore(Event(99, nullptr).get(), 0); }},
      {"reversed", [&] { list->Reverse(); }},
      {"sorted by the host", [&] { order.Sort(*list); }},
      {"cleared", [&] { list->Clear(); }},
      {"filled again",
       [&] {
         list->ExtendWith(ListOf({7, 3, 9}).get());
       }},
  };
  for (const auto& [name, change] : changes) {
    change();
    for (std::int32_t time = 0; time <= 100; ++time) {
      ASSERT_EQ(order.FirstLaterThan(*list, time), Scan(*list, time)) << name << " at " << time;
    }
  }
}

TEST_F(EventOrderTest, AgreesWithTheScanOverRandomEdits) {
  std::mt19937 random(7);
  const auto below = [&](std::uint32_t n) { return static_cast<std::int32_t>(random() % n); };
  const Ref<clsObjectList> list = ListOf({});
  for (int round = 0; round < 5000; ++round) {
    switch (below(8)) {
      case 0:
        list->AddItem(Event(below(50), nullptr).get());
        break;
      case 1:
        list->AddItemBefore(Event(below(50), nullptr).get(), below(20));
        break;
      case 2:
        if (list->Size() > 10) list->Remove(below(10));
        break;
      case 3:
        if (list->Size() > 0) At(*list, below(20)).SetTime(below(50));
        break;
      case 4:
        order.Sort(*list);
        break;
      default:
        break;
    }
    const std::int32_t time = below(52) - 1;
    ASSERT_EQ(order.FirstLaterThan(*list, time), Scan(*list, time));
  }
}

TEST_F(EventOrderTest, KnowsASortedListWithoutLookingAgain) {
  const Ref<clsObjectList> list = ListOf({10, 20});
  EXPECT_TRUE(order.IsSorted(*list));
  const std::uint64_t changes = vxEvent::TimeChanges();
  At(*list, 0).SetTime(10);  // no change
  EXPECT_EQ(vxEvent::TimeChanges(), changes);
  EXPECT_TRUE(order.IsSorted(*list));
}

TEST_F(EventOrderTest, AnotherListOfTheSameAgeMustBeForgotten) {
  const Ref<clsObjectList> sorted = ListOf({10, 20});
  const Ref<clsObjectList> unsorted = ListOf({20, 10});
  EXPECT_TRUE(order.IsSorted(*sorted));
  order.Forget();
  EXPECT_FALSE(order.IsSorted(*unsorted));
}

TEST_F(EventOrderTest, SortsAnyList) {
  const std::pair<std::vector<std::int32_t>, std::vector<std::int32_t>> table[] = {
      {{}, {}},
      {{5}, {5}},
      {{1, 2, 3}, {1, 2, 3}},
      {{3, 2, 1}, {1, 2, 3}},
      {{10, 30, 50, 20, 40}, {10, 20, 30, 40, 50}},
      {{10, 10, 5, 10, 5, 5}, {5, 5, 5, 10, 10, 10}},
  };
  for (const auto& [before, after] : table) {
    const Ref<clsObjectList> list = ListOf(before);
    order.Forget();
    order.Sort(*list);
    EXPECT_EQ(Times(*list), after);
    EXPECT_TRUE(order.IsSorted(*list));
  }
}

TEST_F(EventOrderTest, SortingKeepsTheOrderOfEqualTimes) {
  std::mt19937 random(11);
  for (int round = 0; round < 50; ++round) {
    const Ref<clsObjectList> list = ListOf({});
    for (int i = 0; i < 200; ++i) {
      const Ref<vxEvent> event = Event(static_cast<std::int32_t>(random() % 5), nullptr);
      event->mouseButton = static_cast<std::int16_t>(i);
      list->AddItem(event.get());
    }
    order.Forget();
    order.Sort(*list);
    for (std::int32_t i = 1; i < list->Size(); ++i) {
      const vxEvent& a = At(*list, i - 1);
      const vxEvent& b = At(*list, i);
      ASSERT_TRUE(a.time() < b.time() || (a.time() == b.time() && a.mouseButton < b.mouseButton));
    }
  }
}

TEST_F(EventOrderTest, SortingTellsNoObserverAndLeavesIteratorsAlone) {
  class Observer : public IObjListEventHandler {
   public:
    VESTREL_OBJECT(Observer, IObjListEventHandler)
    void ItemAdded(clsObjectList* /*list*/, Object* /*item*/, std::int32_t /*at*/,
                   Object* /*data*/) override {
      ++told;
    }
    void ItemRemoved(clsObjectList* /*list*/, Object* /*item*/, std::int32_t /*at*/,
                     Object* /*data*/) override {
      ++told;
    }
    int told = 0;
  };
  const Ref<Observer> observer = MakeRef<Observer>();
  const Ref<clsObjectList> list = ListOf({3, 1, 2});
  list->SetEventHandler(observer.get(), nullptr);
  const Ref<clsIterator> iterator = list->BeginIter();
  order.Sort(*list);
  EXPECT_EQ(observer->told, 0);
  ASSERT_TRUE(iterator->hasNext());
  EXPECT_EQ(Cast<vxEvent>(iterator->iterValue().get()).time(), 3);
}

TEST_F(EventOrderTest, SortingRefusesForeignItemsAndLeavesTheList) {
  const Ref<clsObjectList> list = ListOf({3, 1});
  list->AddItem(list.get());
  EXPECT_EQ(ErrorOf([&] { order.Sort(*list); }), Error_TypeMismatch);
  EXPECT_EQ(At(*list, 0).time(), 3);
  list->Remove(2);
  list->AddItem(nullptr);
  EXPECT_EQ(ErrorOf([&] { order.Sort(*list); }), Error_ObjectNotSet);
}

TEST_F(EventOrderTest, AnythingGoesInAListOfOne) {
  const Ref<clsObjectList> list = MakeRef<clsObjectList>();
  list->AddItem(nullptr);
  EXPECT_EQ(ErrorOf([&] { order.Sort(*list); }), 0);
}

}  // namespace
}  // namespace vestrel
