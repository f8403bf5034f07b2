#include "core/modArraySorting.h"

#include <atomic>
#include <cstddef>
#include <utility>

#include "core/Checked.h"
#include "core/Error.h"

namespace vestrel::modArraySorting {
namespace {

// One generator a process, never seeded. Threads that sort at once may draw the same number, which is
// harmless.
std::atomic<std::uint64_t> generatorState{0};

// Uniform in [0, 1).
double NextRandom() noexcept {
  const std::uint64_t state = generatorState.load(std::memory_order_relaxed) + 0x9E3779B97F4A7C15U;
  generatorState.store(state, std::memory_order_relaxed);
  std::uint64_t mixed = (state ^ (state >> 30U)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
  return static_cast<double>((mixed ^ (mixed >> 31U)) >> 11U) * 0x1.0p-53;
}

class QuickSort {
 public:
  QuickSort(IObjectComparator& comparator, Object** items) noexcept
      : comparator_(comparator), items_(items) {}

  // Sorts the smaller side first and goes on with the larger one, so that the stack stays shallow whatever
  // the comparator answers.
  void Sort(std::int32_t first, std::int32_t last) {
    while (first < last) {
      const auto [low, high] = Partition(first, last);
      if (high - first >= last - low) {
        Sort(low, last);
        last = high;
      } else {
        Sort(first, high);
        first = low;
      }
    }
  }

 private:
  std::int32_t Compare(std::int32_t a, std::int32_t b) { return comparator_.Compare(items_[a], items_[b]); }

  // For some orders this is not the middle one, which costs time but not correctness.
  std::int32_t ChoosePivot(std::int32_t first, std::int32_t last) {
    const double count = static_cast<double>(last) - first + 1;
    const std::int32_t one = first + static_cast<std::int32_t>(NextRandom() * count);
    const std::int32_t two = first + static_cast<std::int32_t>(NextRandom() * count);
    const std::int32_t three = first + static_cast<std::int32_t>(NextRandom() * count);
    const std::int32_t oneToTwo = Compare(one, two);
    const std::int32_t twoToThree = Compare(two, three);
    if (oneToTwo <= 0 && twoToThree <= 0) return two;
    const std::int32_t twoToOne = Compare(two, one);
    const std::int32_t oneToThree = Compare(one, three);
    return twoToOne <= 0 && oneToThree <= 0 ? one : three;
  }

  // The result is where the right part begins and the left one ends. The order of each comparison's arguments
  // matters to comparators that are not antisymmetric.
  std::pair<std::int32_t, std::int32_t> Partition(std::int32_t first, std::int32_t last) {
    Object* const pivot = items_[ChoosePivot(first, last)];
    std::int32_t low = first;
    std::int32_t high = last;
    do {
      while (comparator_.Compare(items_[low], pivot) < 0 && low < last) ++low;
      while (comparator_.Compare(pivot, items_[high]) < 0 && high > first) --high;
      if (low > high) break;
      std::swap(items_[low++], items_[high--]);
    } while (low <= high);
    return {low, high};
  }

  IObjectComparator& comparator_;
  Object** items_;
};

}  // namespace

void QuickSortObjects(IObjectComparator& comparator, std::span<Object*> items, std::int32_t first,
                      std::int32_t last) {
  const std::int32_t size = NarrowChecked(static_cast<std::int64_t>(items.size()));
  if (last < 0) {
    first = 0;
    last = size - 1;
  }
  if (last < first) return;
  if (first < 0 || last >= size) RaiseError(Error_SubscriptOutOfRange, u"modArraySorting.QuickSortObjects()");
  QuickSort(comparator, items.data()).Sort(first, last);
}

}  // namespace vestrel::modArraySorting
