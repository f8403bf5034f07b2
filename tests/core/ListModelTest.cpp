// A list, what iterators took from it and what its observer heard, against a plain array that is copied for
// each iterator: long sequences of operations chosen at random, whose seeds are fixed.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/core/ListHelpers.h"
#include "tests/support/Errors.h"
#include "tests/support/Scale.h"

namespace vestrel {
namespace {

using test::RecordingObserver;
using test::Shown;
using test::ShownEvent;

using Items = std::vector<Ref<Object>>;

constexpr int kOperations = 400;

// The rules as they are written: slots that items leave keep what was last in them.
struct Model {
  Items slots = Items(32);
  std::int32_t count = 0;
  bool watched = false;
  std::vector<std::string> events;

  Items Present() const { return {slots.begin(), slots.begin() + std::max(count, 0)}; }

  std::int32_t Normalised(std::int32_t index) const {
    if (index < 0) index += count;
    return index < 0 ? 0 : std::min(index, count - 1);
  }
  bool HasSlot(std::int32_t slot) const {
    return slot >= 0 && slot < static_cast<std::int32_t>(slots.size());
  }

  bool Insert(const Ref<Object>& item, std::int32_t position) {
    if (position < 0) return false;
    if (count == static_cast<std::int32_t>(slots.size())) slots.resize(2 * slots.size());
    for (std::int32_t i = count; i > position; --i) At(i) = At(i - 1);
    At(position) = item;
    ++count;
    if (watched) events.push_back(ShownEvent("+", item.get(), position, count));
    return true;
  }
  bool InsertBefore(const Ref<Object>& item, std::int32_t before) {
    if (before < 0) before += count;
    return Insert(item, before < 0 ? 0 : std::min(before, count));
  }
  bool Remove(std::int32_t index) {
    const std::int32_t slot = Normalised(index);
    if (!HasSlot(slot)) return false;
    const Ref<Object> item = At(slot);
    for (std::int32_t i = slot; i < count - 1; ++i) At(i) = At(i + 1);
    --count;
    if (watched) events.push_back(ShownEvent("-", item.get(), slot, count));
    return true;
  }
  void Clear() {
    for (std::int32_t i = 0; watched && i < count; ++i)
      events.push_back(ShownEvent("-", At(i).get(), i, count));
    count = 0;
  }

  Ref<Object>& At(std::int32_t slot) { return slots[static_cast<std::size_t>(slot)]; }
};

class Pair {
 public:
  explicit Pair(unsigned seed) : random_(seed) {}

  void Step() {
    using Operation = void (Pair::*)();
    static constexpr Operation kOperationTable[] = {
        &Pair::Add,       &Pair::Add,     &Pair::Add,    &Pair::Add,    &Pair::AddBefore,
        &Pair::AddBefore, &Pair::Remove,  &Pair::Remove, &Pair::Remove, &Pair::Clear,
        &Pair::Reverse,   &Pair::Reverse, &Pair::Sort,   &Pair::Extend, &Pair::Watch,
        &Pair::Look,      &Pair::Look,    &Pair::Walk,   &Pair::Read,   &Pair::Rearrange};
    (this->*kOperationTable[Any(0, std::size(kOperationTable) - 1)])();
    ASSERT_EQ(list_->Size(), model_.count);
    ASSERT_EQ(observer_->events, model_.events);
    const Items present = model_.Present();
    ASSERT_TRUE(std::equal(list_->begin(), list_->begin() + present.size(), present.begin(), present.end()));
  }

 private:
  std::int32_t Any(std::size_t first, std::size_t last) {
    return static_cast<std::int32_t>(std::uniform_int_distribution<std::size_t>(first, last)(random_));
  }
  // Within the items and a little outside, from either end.
  std::int32_t AnyIndex() {
    const std::int32_t index = Any(0, static_cast<std::size_t>(std::max(model_.count, 0)) + 2);
    return Any(0, 2) == 0 ? -index - 1 : index;
  }
  // Texts that no two items share and that sort like their numbers.
  Ref<Object> New() {
    char16_t text[] = u"000000";
    int rest = ++made_;
    for (int i = 5; i >= 0; --i, rest /= 10) text[i] = static_cast<char16_t>(u'0' + rest % 10);
    return BoxString(text);
  }
  static bool Less(const Ref<Object>& a, const Ref<Object>& b) { return Shown(a.get()) < Shown(b.get()); }

  void Add() {
    const Ref<Object> item = New();
    const bool added = model_.Insert(item, model_.count);
    EXPECT_RAISES(added ? 0 : Error_SubscriptOutOfRange, list_->AddItem(item.get()));
  }
  void AddBefore() {
    const Ref<Object> item = New();
    const std::int32_t before = AnyIndex();
    const bool added = model_.InsertBefore(item, before);
    EXPECT_RAISES(added ? 0 : Error_SubscriptOutOfRange, list_->AddItemBefore(item.get(), before));
  }
  void Remove() {
    const std::int32_t index = AnyIndex();
    // Below zero there is no way back but Clear; that state is tried, seldom enough to do other things too.
    if (model_.count <= 0 && Any(0, 3) != 0) return;
    const std::int32_t slot = model_.Normalised(index);
    const Ref<Object> expected = model_.HasSlot(slot) ? model_.At(slot) : nullptr;
    const bool removed = model_.Remove(index);
    Ref<Object> item;
    EXPECT_RAISES(removed ? 0 : Error_SubscriptOutOfRange, item = list_->Remove(index));
    EXPECT_EQ(item, expected);
  }
  void Clear() {
    if (Any(0, 2) != 0 && model_.count >= 0) return;
    model_.Clear();
    list_->Clear();
  }
  void Reverse() {
    const auto first = model_.slots.begin();
    std::reverse(first, first + std::max(model_.count, 0));
    list_->Reverse();
  }
  void Sort() {
    const auto first = model_.slots.begin();
    std::sort(first, first + std::max(model_.count, 0), &Less);
    list_->SortInPlace();
  }
  void Rearrange() {
    if (model_.count < 2) return;
    const auto first = model_.slots.begin();
    std::rotate(first, first + 1, first + model_.count);
    std::vector<Object*> order(list_->begin() + 1, list_->end());
    order.push_back(*list_->begin());
    list_->Rearrange(order);
  }
  void Extend() {
    if (model_.count < 0 || model_.count > 100) return;
    for (const Ref<Object>& item : model_.Present()) model_.Insert(item, model_.count);
    list_->ExtendWith(list_.get());
  }
  void Watch() {
    model_.watched = !model_.watched;
    list_->SetEventHandler(model_.watched ? observer_.get() : nullptr, nullptr);
  }
  void Look() { iterators_.emplace_back(list_->BeginIter(), model_.Present()); }
  // What an iterator took is what it yields, and then it goes: the slots that it shared with the list, too.
  void Walk() {
    if (iterators_.empty()) return;
    const std::size_t which = static_cast<std::size_t>(Any(0, iterators_.size() - 1));
    const auto [iterator, items] = std::exchange(iterators_[which], iterators_.back());
    iterators_.pop_back();
    Items yielded;
    while (iterator->hasNext()) yielded.push_back(iterator->iterValue());
    EXPECT_EQ(yielded, items);
  }
  void Read() {
    const Items present = model_.Present();
    Items array;
    EXPECT_RAISES(present.empty() ? Error_SubscriptOutOfRange : 0, array = list_->AsArray());
    EXPECT_EQ(array, present);
    const std::int32_t index = AnyIndex();
    const std::int32_t slot = model_.Normalised(index);
    Ref<Object> item;
    EXPECT_RAISES(model_.HasSlot(slot) ? 0 : Error_SubscriptOutOfRange, item = list_->GetItem(index));
    EXPECT_EQ(item, model_.HasSlot(slot) ? model_.At(slot) : nullptr);
    const auto found = std::find(present.begin(), present.end(), item);
    const auto position = found == present.end() ? -1 : static_cast<std::int32_t>(found - present.begin());
    EXPECT_EQ(list_->FindObject(item.get()), position);
    ReadSlots();
  }
  // All that ever were written, those that items left among them.
  void ReadSlots() {
    const auto first = model_.slots.begin();
    const auto filled = std::find(first, model_.slots.end(), nullptr);
    std::string joined;
    for (auto slot = first; slot != filled; ++slot) joined += Shown(slot->get()) + ",";
    if (joined.empty()) return;
    joined.pop_back();
    EXPECT_EQ(ToUtf8(list_->JoinStrings(u",", static_cast<std::int32_t>(filled - first))), joined);
  }

  std::mt19937 random_;
  int made_ = 0;
  Ref<clsObjectList> list_ = MakeRef<clsObjectList>();
  Ref<RecordingObserver> observer_ = MakeRef<RecordingObserver>();
  Model model_;
  std::vector<std::pair<Ref<clsIterator>, Items>> iterators_;
};

TEST(ListModelTest, AListAndItsIteratorsAreWhatAPlainArrayAndItsCopiesWouldBe) {
  const unsigned rounds = test::RunsLong() ? 2000 : 40;
  const long before = Object::LiveCount();
  for (unsigned seed = 0; seed < rounds && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Pair pair(seed);
    for (int i = 0; i < kOperations && !testing::Test::HasFailure(); ++i) pair.Step();
  }
  EXPECT_EQ(Object::LiveCount(), before);
}

}  // namespace
}  // namespace vestrel
