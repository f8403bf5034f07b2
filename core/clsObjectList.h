// The general-purpose list: a growable array of counted object references with search, sort, filter, a
// snapshot iterator and change events. Positions are 0-based; a negative one counts from the end and one past
// the end means the last item. Items may be any objects, or none.
//
// Slots that items leave are not cleared: they keep their references until they are overwritten or the list
// goes. The list never shrinks. Callbacks (observer, comparator, predicate, comparable items) may use the
// list; the operation under way goes on with the items as they were when it began, and a sort during which
// the list was changed is dropped. What a callback raises reaches the caller; the list stays as it is then.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/BackRef.h"
#include "core/IComparable.h"
#include "core/IObjListEventHandler.h"
#include "core/IObjectComparator.h"
#include "core/IObjectPredicate.h"
#include "core/ItemStorage.h"
#include "core/Object.h"
#include "core/Ref.h"
#include "core/Variant.h"
#include "core/clsIterator.h"

namespace vestrel {

class clsObjectList : public Object {
 public:
  VESTREL_OBJECT(clsObjectList)

  clsObjectList() noexcept = default;

  // The item at `index`. On an empty list a negative index gives what slot 0 holds and any other raises 9.
  Ref<Object> GetItem(std::int32_t index) const;
  // The observer of insertions and removals (none for none) and the object that it is handed with each event.
  // The library's own owners are held weakly, anything else is kept alive. What was there goes when both are
  // in place: its end may use the list or let go of it.
  void SetEventHandler(IObjListEventHandler* handler, Object* userData);
  // Inserts before position `before`, which counts from the end when negative; past the end it appends.
  // Calls ItemAdded. The result is the new item's position.
  std::int32_t AddItemBefore(Object* item, std::int32_t before);
  // Appends. Calls ItemAdded. The result is the new item's position. Both raise 9 where Remove has left Size
  // below zero and the position would be, too.
  std::int32_t AddItem(Object* item) {
    // The common case, where nothing can call back.
    if (next_ >= openEnd_) return InsertAt(item, 0, false);
    if (item != nullptr) item->AddRef();
    *next_++ = item;
    return Size() - 1;
  }
  // Takes out and answers the item at `atIndex`. Calls ItemRemoved. Does not guard against an empty list: a
  // negative index then takes slot 0 and leaves Size at -1, any other raises 9.
  Ref<Object> Remove(std::int32_t atIndex);
  std::int32_t Size() const noexcept { return static_cast<std::int32_t>(next_ - items_.data()); }
  // Calls ItemRemoved for each item in ascending order while all are still in place, then empties the list.
  void Clear();
  // The items in order. Raises 9 for an empty list.
  std::vector<Ref<Object>> AsArray() const;

  // Searches answer the first position that fits, or -1.
  // The very object, not an equal one.
  std::int32_t FindObject(Object* obj) const;
  // The item that `valueObj` compares equal to: valueObj is asked, the item is the argument. Raises 91 for no
  // valueObj and what CompareTo raises.
  std::int32_t FindObjectValue(IComparable* valueObj, std::u16string_view field = u"all") const;
  // The item whose FieldCompare(fieldName, value) is 0. Raises 13 for an item that is no IComparable, 91 for
  // none, and what FieldCompare raises.
  std::int32_t FindFieldValue(std::u16string_view fieldName, const Variant& value) const;
  // Raise 91 for no predicate and what it raises. LastIndexWhere searches from the end.
  std::int32_t FirstIndexWhere(IObjectPredicate* predicate) const;
  std::int32_t LastIndexWhere(IObjectPredicate* predicate) const;

  // Sorts by `comparator`; equal items may end up in any order. Where no comparator is given one is made from
  // `Reverse` and `field` (see DefaultObjectComparator) and handed back; otherwise the two are ignored. A
  // list of less than two items is left alone and no comparator is made. Raises what the comparator raises;
  // the list then holds the same items in some order.
  void SortInPlace(Ref<IObjectComparator>* comparator = nullptr, bool Reverse = false,
                   std::u16string_view field = u"all");
  // A new list, without observer, of the items that the predicate is true for, in order. Raises 91 for no
  // predicate and what it raises.
  Ref<clsObjectList> Filter(IObjectPredicate* predicate) const;
  // A new iterator over the items as they are now.
  Ref<clsIterator> BeginIter() const;
  // Appends each item of `another`, which may be this list. Calls ItemAdded for each. Raises 91 for none.
  void ExtendWith(clsObjectList* another);
  // The values of the first `upToIndex` items, all when negative, joined. Items are clsString: another kind
  // raises 13, an empty slot 91. No items to join, and more than there are slots, raise 9.
  std::u16string JoinStrings(std::u16string_view delimiter, const Variant& upToIndex = -1) const;
  // Turns the order of the items round, without events.
  void Reverse();

  // The items as they are now, for loops inside the library.
  ItemSnapshot Snapshot() const { return {ClosedSlots(), Size()}; }
  // What all slots hold, those that items left included. Kept over a change, the end of what the change
  // displaces, which may call back, comes when the caller is done.
  std::vector<Ref<Object>> Held() const;
  // The items where they stand, until the list changes; the list alone keeps them alive. For loops inside the
  // library that ask for each item anew.
  Object* const* begin() const noexcept { return items_.data(); }
  Object* const* end() const noexcept { return next_; }
  // Moves on with every change of the items or their order: while it stands still, what was found out about
  // the list still holds.
  std::uint64_t Changes() const noexcept { return otherChanges_ + static_cast<std::uint64_t>(Size()); }
  // Puts the list's items in another order, without events. `order` holds the same Size items.
  void Rearrange(std::span<Object* const> order);
  // Slots that the list has room for without growing.
  std::int32_t Capacity() const noexcept { return items_.capacity(); }

 protected:
  ~clsObjectList() override { NoteWritten(); }

 private:
  std::int32_t InsertAt(Object* item, std::int32_t before, bool useBefore);
  std::int32_t InsertPosition(std::int32_t before) const;
  std::int32_t NormalisedIndex(std::int32_t index) const;
  void CheckSlot(std::int32_t slot) const;
  Object* CheckedItem(std::int32_t slot) const;
  void SetSize(std::int32_t size) noexcept;
  Object** WritableSlots(std::int32_t capacity, std::int32_t count);
  void OpenSlots() noexcept;
  // The slots do not know of what AddItem wrote while they were open.
  void NoteWritten() const noexcept {
    if (openEnd_ != nullptr) items_.SetWritten(Size());
  }
  // The slots, fit to be shared.
  const ItemStorage& ClosedSlots() const noexcept {
    NoteWritten();
    openEnd_ = nullptr;
    return items_;
  }
  void NotifyAdded(Object* item, std::int32_t atIndex);
  void NotifyRemoved(Object* item, std::int32_t atIndex);
  void PutInOrder(ItemStorage sorted, std::span<Object* const> order);

  ItemStorage items_;
  // The slot behind the last item.
  Object** next_ = nullptr;
  // Up to here AddItem writes to next_ without a look at anything else: nobody watches, the slots are not
  // shared, and those from next_ on were never written. Null where that may not be so.
  mutable Object** openEnd_ = nullptr;
  // Beside the items that AddItem appends, which count in Size.
  std::uint64_t otherChanges_ = 0;
  BackRef<IObjListEventHandler> eventHandler_;
  BackRef<Object> userData_;
};

}  // namespace vestrel
