// The slots of a list: an array of counted object references that is shared without copying until one of its
// holders changes it. Lists and their iterators hold it; it knows nothing of how many of them hold items.
// Slots behind the last one that was ever written take no part in anything and read as empty.
#pragma once

#include <cstdint>

#include "core/Object.h"

namespace vestrel {

class ItemStorage {
 public:
  // Slots of a list that never grew. They take no memory before the first write.
  static constexpr std::int32_t kFirstCapacity = 32;

  ItemStorage() noexcept = default;
  // Copies share the slots.
  ItemStorage(const ItemStorage& other) noexcept;
  ItemStorage(ItemStorage&& other) noexcept;
  ItemStorage& operator=(ItemStorage other) noexcept;
  ~ItemStorage();

  std::int32_t capacity() const noexcept { return slots_ == nullptr ? kFirstCapacity : Head().capacity; }
  // How many slots, from the first on, were written.
  std::int32_t written() const noexcept { return slots_ == nullptr ? 0 : Head().written; }
  // The item in a slot, null for an empty one; `slot` is within 0 .. capacity - 1.
  Object* operator[](std::int32_t slot) const noexcept { return slot < written() ? slots_[slot] : nullptr; }
  // The item in a slot that was written.
  Object* Written(std::int32_t slot) const noexcept { return slots_[slot]; }
  // The first slot, or null when nothing was ever written; only slots that were written may be read.
  Object* const* data() const noexcept { return slots_; }
  bool SharesSlotsWith(const ItemStorage& other) const noexcept { return slots_ == other.slots_; }

  // The first `count` slots for changing them, empty where they were never written; they are no longer
  // shared, and there are at least `capacity`. A pointer in a slot stands for a counted reference, which
  // whoever changes the slot takes over or gives up. Valid until the next call or copy.
  Object** Writable(std::int32_t capacity, std::int32_t count);
  // The first `count` slots have been written by now, to the slots that Writable answered; not before the
  // last one that it knows of.
  void SetWritten(std::int32_t count) const noexcept { Head().written = count; }

 private:
  // Lies before the slots, in the same piece of memory.
  struct alignas(Object*) Header {
    std::uint32_t holders;
    std::int32_t capacity;
    std::int32_t written;
  };

  static Header& HeadOf(Object** slots) noexcept { return reinterpret_cast<Header*>(slots)[-1]; }
  Header& Head() const noexcept { return HeadOf(slots_); }
  static Object** Allocate(std::int32_t capacity);
  void Drop() noexcept;
  void MakeWritable(std::int32_t capacity);
  void Enlarge(std::int32_t capacity);
  void Unshare(std::int32_t capacity);

  Object** slots_ = nullptr;
};

// The items that a list holds at one moment, for a loop over borrowed pointers. What it lists stays alive and
// in place as long as it lives, whatever happens to the list.
class ItemSnapshot {
 public:
  ItemSnapshot(ItemStorage items, std::int32_t count) noexcept;

  Object* const* begin() const noexcept { return items_.data(); }
  Object* const* end() const noexcept { return items_.data() + count_; }
  std::int32_t size() const noexcept { return count_; }
  Object* operator[](std::int32_t index) const noexcept { return items_.Written(index); }

 private:
  ItemStorage items_;
  std::int32_t count_;
};

}  // namespace vestrel
