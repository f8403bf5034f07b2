// Loops that call out work on a shared copy of the slots, so that a callback that changes the list makes the
// list move to slots of its own and the loop keeps those it began with.
#include "core/clsObjectList.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "core/Cast.h"
#include "core/Checked.h"
#include "core/Convert.h"
#include "core/DefaultObjectComparator.h"
#include "core/Error.h"
#include "core/clsString.h"
#include "core/modArraySorting.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kSource = u"clsObjectList";

template <class T>
T& Given(T* object) {
  if (object == nullptr) RaiseError(Error_ObjectNotSet, kSource);
  return *object;
}

// An object with the number that it is sorted by.
struct KeyedObject {
  std::int64_t key;
  Object* object;
};

// The items' keys, where the comparator is the library's own and all items have one of the same kind.
bool CollectKeys(const DefaultObjectComparator* comparator, std::span<Object* const> items,
                 std::vector<KeyedObject>& keyed) {
  if (comparator == nullptr) return false;
  SortKey first;
  for (Object* item : items) {
    SortKey key;
    const auto* comparable = TryCast<IComparable>(item);
    if (comparable == nullptr || !comparable->SortKeyFor(comparator->field(), key)) return false;
    if (keyed.empty()) {
      keyed.reserve(items.size());
      first = key;
    }
    if (key.kind != first.kind) return false;
    keyed.push_back({key.value, item});
  }
  return true;
}

// Sorts by keys where there are any; no one else's code runs then, and nothing can fail half way.
bool SortByKeys(IObjectComparator& comparator, std::span<Object*> items) {
  const auto* known = TryCast<DefaultObjectComparator>(&comparator);
  std::vector<KeyedObject> keyed;
  if (!CollectKeys(known, items, keyed)) return false;
  if (known->Reverse()) {
    std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) { return a.key > b.key; });
  } else {
    std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) { return a.key < b.key; });
  }
  std::transform(keyed.begin(), keyed.end(), items.begin(), [](const auto& item) { return item.object; });
  return true;
}

template <class Test>
std::int32_t FirstWhere(const ItemSnapshot& items, Test test) {
  for (std::int32_t i = 0; i < items.size(); ++i) {
    if (test(items[i])) return i;
  }
  return -1;
}

}  // namespace

Ref<Object> clsObjectList::GetItem(std::int32_t index) const {
  return CheckedItem(NormalisedIndex(index));
}

void clsObjectList::SetEventHandler(IObjListEventHandler* handler, Object* userData) {
  // What was there goes last: its end may use the list, or let go of it.
  BackRef<IObjListEventHandler> watching(handler);
  BackRef<Object> handed(userData);
  std::swap(eventHandler_, watching);
  std::swap(userData_, handed);
  ClosedSlots();
}

std::int32_t clsObjectList::AddItemBefore(Object* item, std::int32_t before) {
  return InsertAt(item, before, true);
}

Ref<Object> clsObjectList::Remove(std::int32_t atIndex) {
  const Ref<clsObjectList> self(this);
  const std::int32_t slot = NormalisedIndex(atIndex);
  CheckSlot(slot);
  Object** const slots = WritableSlots(items_.capacity(), slot + 1);
  Ref<Object> removed = slots[slot];
  const std::int32_t last = Size() - 1;
  if (slot < last) {
    // The removed item's own reference goes; the last one stays behind in the vacated slot as well.
    if (removed) removed->Release();
    std::copy(slots + slot + 1, next_, slots + slot);
    if (slots[last] != nullptr) slots[last]->AddRef();
  }
  SetSize(last);
  NotifyRemoved(removed.get(), slot);
  return removed;
}

std::vector<Ref<Object>> clsObjectList::Held() const {
  NoteWritten();
  return {items_.data(), items_.data() + items_.written()};
}

void clsObjectList::Clear() {
  const Ref<clsObjectList> self(this);
  if (eventHandler_) {
    const ItemSnapshot items = Snapshot();
    for (std::int32_t i = 0; i < items.size(); ++i) NotifyRemoved(items[i], i);
  }
  ClosedSlots();
  SetSize(0);
}

std::vector<Ref<Object>> clsObjectList::AsArray() const {
  if (Size() <= 0) RaiseError(Error_SubscriptOutOfRange, kSource);
  const ItemSnapshot items = Snapshot();
  return {items.begin(), items.end()};
}

std::int32_t clsObjectList::FindObject(Object* obj) const {
  return FirstWhere(Snapshot(), [obj](Object* item) { return item == obj; });
}

std::int32_t clsObjectList::FindObjectValue(IComparable* valueObj, std::u16string_view field) const {
  // A host's own comparison may change the caller's text.
  const std::u16string name(field);
  return FirstWhere(Snapshot(), [&](Object* item) { return Given(valueObj).CompareTo(item, name) == 0; });
}

std::int32_t clsObjectList::FindFieldValue(std::u16string_view fieldName, const Variant& value) const {
  const std::u16string name(fieldName);
  return FirstWhere(Snapshot(),
                    [&](Object* item) { return Cast<IComparable>(item).FieldCompare(name, value) == 0; });
}

std::int32_t clsObjectList::FirstIndexWhere(IObjectPredicate* predicate) const {
  return FirstWhere(Snapshot(), [predicate](Object* item) { return Given(predicate).IsTrueFor(item); });
}

std::int32_t clsObjectList::LastIndexWhere(IObjectPredicate* predicate) const {
  const ItemSnapshot items = Snapshot();
  for (std::int32_t i = items.size() - 1; i >= 0; --i) {
    if (Given(predicate).IsTrueFor(items[i])) return i;
  }
  return -1;
}

void clsObjectList::SortInPlace(Ref<IObjectComparator>* comparator, bool Reverse, std::u16string_view field) {
  if (Size() < 2) return;
  const Ref<clsObjectList> self(this);
  Ref<IObjectComparator> used = comparator == nullptr ? nullptr : *comparator;
  if (!used) {
    used = MakeDefaultComparator(Reverse, field);
    if (comparator != nullptr) *comparator = used;
  }
  const ItemStorage sorted = ClosedSlots();
  std::vector<Object*> order(sorted.data(), sorted.data() + Size());
  try {
    if (!SortByKeys(*used, order)) modArraySorting::QuickSortObjects(*used, order);
  } catch (...) {
    PutInOrder(sorted, order);
    throw;
  }
  PutInOrder(sorted, order);
}

Ref<clsObjectList> clsObjectList::Filter(IObjectPredicate* predicate) const {
  Ref<clsObjectList> result = MakeRef<clsObjectList>();
  for (Object* item : Snapshot()) {
    if (Given(predicate).IsTrueFor(item)) result->AddItem(item);
  }
  return result;
}

Ref<clsIterator> clsObjectList::BeginIter() const {
  Ref<clsIterator> iterator = MakeRef<clsIterator>();
  iterator->InitShared(ClosedSlots(), Size());
  return iterator;
}

void clsObjectList::ExtendWith(clsObjectList* another) {
  const Ref<clsObjectList> self(this);
  for (Object* item : Given(another).Snapshot()) AddItem(item);
}

std::u16string clsObjectList::JoinStrings(std::u16string_view delimiter, const Variant& upToIndex) const {
  std::int32_t count = ToLong(upToIndex);
  if (count < 0) count = Size();
  if (count <= 0) RaiseError(Error_SubscriptOutOfRange, kSource);
  std::u16string result;
  for (std::int32_t i = 0; i < count; ++i) {
    if (i > 0) result += delimiter;
    result += Cast<clsString>(CheckedItem(i)).value();
  }
  return result;
}

void clsObjectList::Reverse() {
  if (Size() < 2) return;
  Object** const slots = WritableSlots(items_.capacity(), Size());
  std::reverse(slots, next_);
  ++otherChanges_;
}

std::int32_t clsObjectList::InsertAt(Object* item, std::int32_t before, bool useBefore) {
  const Ref<clsObjectList> self(this);
  const Ref<Object> inserted(item);
  const std::int32_t count = Size();
  const std::int32_t newCount = AddChecked(count, 1);
  const std::int32_t capacity = items_.capacity();
  const std::int32_t position = useBefore ? InsertPosition(before) : count;
  CheckSlot(std::min(position, 0));
  const std::int32_t room = newCount > capacity ? MultiplyChecked(capacity, 2) : capacity;
  const std::int32_t filled = std::max(position, count);
  Object** const slots = WritableSlots(room, filled + 1);
  // What an item that left had kept in the slot goes last: its end may use the list.
  const Ref<Object> displaced = Ref<Object>::Adopt(slots[filled]);
  if (position < count) std::copy_backward(slots + position, slots + count, slots + newCount);
  slots[position] = Ref<Object>(inserted).Detach();
  SetSize(newCount);
  OpenSlots();
  NotifyAdded(item, position);
  return position;
}

std::int32_t clsObjectList::InsertPosition(std::int32_t before) const {
  const std::int32_t position = before < 0 ? AddChecked(before, Size()) : before;
  return position >= 0 ? std::min(position, Size()) : 0;
}

std::int32_t clsObjectList::NormalisedIndex(std::int32_t index) const {
  if (index < 0) index = AddChecked(index, Size());
  if (index < 0) return 0;
  return std::min(index, SubtractChecked(Size(), 1));
}

void clsObjectList::CheckSlot(std::int32_t slot) const {
  if (slot < 0 || slot >= items_.capacity()) RaiseError(Error_SubscriptOutOfRange, kSource);
}

Object* clsObjectList::CheckedItem(std::int32_t slot) const {
  CheckSlot(slot);
  NoteWritten();
  return items_[slot];
}

void clsObjectList::SetSize(std::int32_t size) noexcept {
  otherChanges_ = Changes() + 1 - static_cast<std::uint64_t>(size);
  next_ += size - Size();
}

Object** clsObjectList::WritableSlots(std::int32_t capacity, std::int32_t count) {
  const std::int32_t size = Size();
  ClosedSlots();
  Object** const slots = items_.Writable(capacity, count);
  next_ = slots + size;
  return slots;
}

// Slots that items left still hold them; AddItem takes the long way there, which lets them go.
void clsObjectList::OpenSlots() noexcept {
  if (eventHandler_.IsUnset() && items_.written() == Size()) openEnd_ = next_ + (items_.capacity() - Size());
}

void clsObjectList::NotifyAdded(Object* item, std::int32_t atIndex) {
  const Ref<IObjListEventHandler> handler = eventHandler_.Lock();
  if (handler) handler->ItemAdded(this, item, atIndex, userData_.Lock().get());
}

void clsObjectList::NotifyRemoved(Object* item, std::int32_t atIndex) {
  const Ref<IObjListEventHandler> handler = eventHandler_.Lock();
  if (handler) handler->ItemRemoved(this, item, atIndex, userData_.Lock().get());
}

// The same references in another order, so no count changes. When the slots are no longer this list's, it
// was changed while it was sorted and keeps what it became.
void clsObjectList::PutInOrder(ItemStorage sorted, std::span<Object* const> order) {
  if (!items_.SharesSlotsWith(sorted)) return;
  sorted = ItemStorage();
  Rearrange(order);
}

void clsObjectList::Rearrange(std::span<Object* const> order) {
  std::copy(order.begin(), order.end(), WritableSlots(items_.capacity(), Size()));
  ++otherChanges_;
}

}  // namespace vestrel
