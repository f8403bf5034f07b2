#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <random>
#include <utility>
#include <vector>

#include "core/Cast.h"
#include "core/DefaultObjectComparator.h"
#include "core/clsLong.h"
#include "core/modArraySorting.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

using modArraySorting::QuickSortObjects;

class Numbers {
 public:
  explicit Numbers(const std::vector<std::int32_t>& values) {
    for (const std::int32_t value : values) {
      boxes_.push_back(BoxLong(value));
      items.push_back(boxes_.back().get());
    }
  }
  std::vector<std::int32_t> Values() const {
    std::vector<std::int32_t> values;
    for (Object* item : items) values.push_back(Cast<clsLong>(item).value());
    return values;
  }

  std::vector<Object*> items;

 private:
  std::vector<Ref<clsLong>> boxes_;
};

// A comparator whose answer is a function of the two numbers.
class By : public IObjectComparator {
 public:
  VESTREL_OBJECT(By, IObjectComparator)
  using Order = std::function<std::int32_t(std::int32_t, std::int32_t)>;
  explicit By(Order order) : order_(std::move(order)) {}
  std::int32_t Compare(Object* a, Object* b) override {
    ++calls;
    pairs.emplace_back(a, b);
    return order_(Cast<clsLong>(a).value(), Cast<clsLong>(b).value());
  }
  int calls = 0;
  std::vector<std::pair<Object*, Object*>> pairs;

 private:
  Order order_;
};

std::vector<std::int32_t> RandomValues(std::size_t count, std::int32_t limit, unsigned seed) {
  std::mt19937 random(seed);
  std::vector<std::int32_t> values(count);
  for (std::int32_t& value : values)
    value = static_cast<std::int32_t>(random() % static_cast<unsigned>(limit));
  return values;
}

TEST(modArraySortingTest, SortsAnyInput) {
  const Ref<DefaultObjectComparator> ascending = MakeRef<DefaultObjectComparator>();
  for (unsigned seed = 0; seed < 200; ++seed) {
    Numbers numbers(RandomValues(seed, seed % 3 == 0 ? 4 : 1000, seed));
    std::vector<std::int32_t> expected = numbers.Values();
    std::sort(expected.begin(), expected.end());
    QuickSortObjects(*ascending, numbers.items);
    EXPECT_EQ(numbers.Values(), expected) << seed;
  }
}

TEST(modArraySortingTest, SortsOnlyBetweenTheBoundsGiven) {
  const Ref<DefaultObjectComparator> ascending = MakeRef<DefaultObjectComparator>();
  Numbers numbers({9, 5, 4, 3, 0});
  QuickSortObjects(*ascending, numbers.items, 1, 3);
  EXPECT_EQ(numbers.Values(), (std::vector<std::int32_t>{9, 3, 4, 5, 0}));
  QuickSortObjects(*ascending, numbers.items, 3, 2);
  EXPECT_EQ(numbers.Values(), (std::vector<std::int32_t>{9, 3, 4, 5, 0}));
  QuickSortObjects(*ascending, numbers.items, 3, -1);
  EXPECT_EQ(numbers.Values(), (std::vector<std::int32_t>{0, 3, 4, 5, 9}));
}

TEST(modArraySortingTest, BoundsOutsideTheArrayAreOutOfRange) {
  const Ref<DefaultObjectComparator> ascending = MakeRef<DefaultObjectComparator>();
  Numbers numbers({2, 1});
  EXPECT_RAISES(9, QuickSortObjects(*ascending, numbers.items, 0, 2));
  EXPECT_RAISES(9, QuickSortObjects(*ascending, numbers.items, -1, 1));
  EXPECT_EQ(numbers.Values(), (std::vector<std::int32_t>{2, 1}));
}

TEST(modArraySortingTest, ThePivotTakesTwoComparisonsOrFour) {
  // Two equal items: two comparisons for the pivot, then both scans stop at once and the items are swapped.
  const Ref<By> equal = MakeRef<By>([](std::int32_t, std::int32_t) { return 0; });
  Numbers two({1, 2});
  QuickSortObjects(*equal, two.items);
  EXPECT_EQ(equal->calls, 4);
  EXPECT_EQ(two.Values(), (std::vector<std::int32_t>{2, 1}));
  // An always positive answer takes four for the pivot and stops both scans as well.
  const Ref<By> positive = MakeRef<By>([](std::int32_t, std::int32_t) { return 1; });
  QuickSortObjects(*positive, two.items);
  EXPECT_EQ(positive->calls, 6);
}

// Follows the algorithm step by step with plain recursion, takes the three drawn items from the recorded
// comparisons, and demands that each comparison was made with these operands in this order.
class Replay {
 public:
  using Call = std::pair<Object*, Object*>;
  Replay(std::vector<Object*> start, std::vector<Call> made, By::Order order)
      : items(std::move(start)), calls(std::move(made)), order_(std::move(order)) {}

  void Sort(std::size_t first, std::size_t last) {
    Object* const pivot = Pivot(first, last);
    auto low = static_cast<std::ptrdiff_t>(first);
    auto high = static_cast<std::ptrdiff_t>(last);
    while (true) {
      while (Compare(At(low), pivot) < 0 && low < static_cast<std::ptrdiff_t>(last)) ++low;
      while (Compare(pivot, At(high)) < 0 && high > static_cast<std::ptrdiff_t>(first)) --high;
      if (low > high) break;
      std::swap(At(low++), At(high--));
      if (low > high) break;
    }
    const bool left = static_cast<std::ptrdiff_t>(first) < high;
    const bool right = low < static_cast<std::ptrdiff_t>(last);
    const bool rightFirst =
        high - static_cast<std::ptrdiff_t>(first) >= static_cast<std::ptrdiff_t>(last) - low;
    if (rightFirst && right) Sort(static_cast<std::size_t>(low), last);
    if (left) Sort(first, static_cast<std::size_t>(high));
    if (!rightFirst && right) Sort(static_cast<std::size_t>(low), last);
  }

  std::vector<Object*> items;
  std::vector<Call> calls;
  std::size_t used = 0;

 private:
  Object*& At(std::ptrdiff_t index) { return items[static_cast<std::size_t>(index)]; }

  Object* Pivot(std::size_t first, std::size_t last) {
    Object* const one = calls.at(used).first;
    Object* const two = calls.at(used).second;
    Object* const three = calls.at(used + 1).second;
    for (Object* drawn : {one, two, three}) {
      EXPECT_NE(std::find(items.begin() + static_cast<std::ptrdiff_t>(first),
                          items.begin() + static_cast<std::ptrdiff_t>(last) + 1, drawn),
                items.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    }
    const bool oneTwo = Compare(one, two) <= 0;
    const bool twoThree = Compare(two, three) <= 0;
    if (oneTwo && twoThree) return two;
    const bool twoOne = Compare(two, one) <= 0;
    const bool oneThree = Compare(one, three) <= 0;
    return twoOne && oneThree ? one : three;
  }

  std::int32_t Compare(Object* a, Object* b) {
    EXPECT_EQ(calls.at(used), Call(a, b)) << "comparison " << used;
    ++used;
    return order_(Cast<clsLong>(a).value(), Cast<clsLong>(b).value());
  }

  By::Order order_;
};

TEST(modArraySortingTest, ComparesInTheGivenOrderWithTheGivenOperands) {
  const By::Order orders[] = {[](std::int32_t a, std::int32_t b) { return a - b; },
                              [](std::int32_t a, std::int32_t b) { return a % 3 - b % 2; },
                              [](std::int32_t a, std::int32_t b) { return a > 2 * b ? 1 : -1; }};
  for (const By::Order& order : orders) {
    for (unsigned seed = 0; seed < 20; ++seed) {
      Numbers numbers(RandomValues(60, seed % 2 == 0 ? 5 : 1000, seed));
      const Ref<By> comparator = MakeRef<By>(order);
      const std::vector<Object*> start = numbers.items;
      QuickSortObjects(*comparator, numbers.items);
      Replay replay(start, comparator->pairs, order);
      replay.Sort(0, start.size() - 1);
      ASSERT_EQ(replay.used, replay.calls.size());
      ASSERT_EQ(replay.items, numbers.items);
      if (HasFailure()) return;
    }
  }
}

TEST(modArraySortingTest, AComparatorThatContradictsItselfLosesNothing) {
  std::mt19937 random(3);  // NOLINT: the same answers in every run
  const By::Order orders[] = {
      [](std::int32_t, std::int32_t) { return -1; }, [](std::int32_t, std::int32_t) { return 1; },
      [&](std::int32_t, std::int32_t) { return static_cast<std::int32_t>(random() % 3) - 1; }};
  for (const By::Order& order : orders) {
    const Ref<By> comparator = MakeRef<By>(order);
    Numbers numbers(RandomValues(5000, 1000000, 11));
    std::vector<Object*> before = numbers.items;
    QuickSortObjects(*comparator, numbers.items);
    std::sort(before.begin(), before.end());
    std::sort(numbers.items.begin(), numbers.items.end());
    EXPECT_EQ(numbers.items, before);
  }
}

TEST(modArraySortingTest, AComparatorThatFailsLosesNothing) {
  int left = 0;
  const Ref<By> failing = MakeRef<By>([&left](std::int32_t a, std::int32_t b) {
    if (--left == 0) RaiseError(Error_TypeMismatch);
    return a - b;
  });
  for (int after = 1; after < 200; ++after) {
    Numbers numbers(RandomValues(40, 100, 5));
    std::vector<Object*> before = numbers.items;
    left = after;
    EXPECT_RAISES(13, QuickSortObjects(*failing, numbers.items));
    std::sort(before.begin(), before.end());
    std::sort(numbers.items.begin(), numbers.items.end());
    EXPECT_EQ(numbers.items, before);
  }
}

}  // namespace
}  // namespace vestrel
