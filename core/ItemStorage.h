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

  std::int32_t capacity() const noexcept { return block_ == nullptr ? kFirstCapacity : block_->capacity; }
  // The item in a slot, null for an empty one; `slot` is within 0 .. capacity - 1.
  Object* operator[](std::int32_t slot) const noexcept {
    return block_ == nullptr || slot >= block_->written ? nullptr : Slots(block_)[slot];
  }
  // The item in a slot that was written.
  Object* Written(std::int32_t slot) const noexcept { return Slots(block_)[slot]; }
  // The first slot, or null when nothing was ever written; only slots that were written may be read.
  Object* const* data() const noexcept { return block_ == nullptr ? nullptr : Slots(block_); }
  bool SharesSlotsWith(const ItemStorage& other) const noexcept { return block_ == other.block_; }

  // The first `count` slots for changing them, empty where they were never written; they are no longer
  // shared, and there are at least `capacity`. A pointer in a slot stands for a counted reference, which
  // whoever changes the slot takes over or gives up. Valid until the next call or copy.
  Object** Writable(std::int32_t capacity, std::int32_t count);
  // Puts an item, which may be none, into `slot` when that is the first one never written and the slots are
  // there and not shared; false when they are not, and nothing was done.
  bool PutBehind(std::int32_t slot, Object* item) noexcept {
    if (block_ == nullptr || block_->holders != 1) return false;
    if (slot != block_->written || slot >= block_->capacity) return false;
    if (item != nullptr) item->AddRef();
    Slots(block_)[slot] = item;
    block_->written = slot + 1;
    return true;
  }

 private:
  // The slots follow in the same piece of memory.
  struct alignas(Object*) Block {
    std::uint32_t holders;
    std::int32_t capacity;
    std::int32_t written;
  };

  static Object** Slots(Block* block) noexcept { return reinterpret_cast<Object**>(block + 1); }
  static Block* Allocate(std::int32_t capacity);
  static void Drop(Block* block) noexcept;
  void MakeWritable(std::int32_t capacity);
  void Enlarge(std::int32_t capacity);
  void Unshare(std::int32_t capacity);

  Block* block_ = nullptr;
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
