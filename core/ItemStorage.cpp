#include "core/ItemStorage.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <utility>

namespace vestrel {
namespace {

constexpr std::size_t kSlotSize = sizeof(void*);

std::size_t BytesFor(std::size_t header, std::int32_t capacity) noexcept {
  return header + static_cast<std::size_t>(capacity) * kSlotSize;
}

}  // namespace

ItemStorage::ItemStorage(const ItemStorage& other) noexcept : block_(other.block_) {
  if (block_ != nullptr) ++block_->holders;
}

ItemStorage::ItemStorage(ItemStorage&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}

ItemStorage& ItemStorage::operator=(ItemStorage other) noexcept {
  std::swap(block_, other.block_);
  return *this;
}

ItemStorage::~ItemStorage() {
  Drop(block_);
}

ItemStorage::Block* ItemStorage::Allocate(std::int32_t capacity) {
  void* const memory = std::malloc(BytesFor(sizeof(Block), capacity));
  if (memory == nullptr) throw std::bad_alloc();
  return new (memory) Block{1, capacity, 0};
}

void ItemStorage::Drop(Block* block) noexcept {
  if (block == nullptr || --block->holders != 0) return;
  for (std::int32_t i = 0; i < block->written; ++i) {
    if (Slots(block)[i] != nullptr) Slots(block)[i]->Release();
  }
  std::free(block);
}

Object** ItemStorage::Writable(std::int32_t capacity, std::int32_t count) {
  MakeWritable(capacity);
  if (block_->written < count) {
    std::fill(Slots(block_) + block_->written, Slots(block_) + count, nullptr);
    block_->written = count;
  }
  return Slots(block_);
}

void ItemStorage::MakeWritable(std::int32_t capacity) {
  if (block_ == nullptr) {
    block_ = Allocate(std::max(capacity, kFirstCapacity));
  } else if (block_->holders != 1) {
    Unshare(std::max(capacity, block_->capacity));
  } else if (block_->capacity < capacity) {
    Enlarge(capacity);
  }
}

void ItemStorage::Enlarge(std::int32_t capacity) {
  void* const memory = std::realloc(static_cast<void*>(block_), BytesFor(sizeof(Block), capacity));
  if (memory == nullptr) throw std::bad_alloc();
  block_ = static_cast<Block*>(memory);
  block_->capacity = capacity;
}

void ItemStorage::Unshare(std::int32_t capacity) {
  Block* const own = Allocate(capacity);
  std::copy_n(Slots(block_), block_->written, Slots(own));
  own->written = block_->written;
  for (std::int32_t i = 0; i < own->written; ++i) {
    if (Slots(own)[i] != nullptr) Slots(own)[i]->AddRef();
  }
  --block_->holders;
  block_ = own;
}

ItemSnapshot::ItemSnapshot(ItemStorage items, std::int32_t count) noexcept
    : items_(std::move(items)), count_(std::max(count, 0)) {}

}  // namespace vestrel
