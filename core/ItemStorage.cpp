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

ItemStorage::ItemStorage(const ItemStorage& other) noexcept : slots_(other.slots_) {
  if (slots_ != nullptr) ++Head().holders;
}

ItemStorage::ItemStorage(ItemStorage&& other) noexcept : slots_(std::exchange(other.slots_, nullptr)) {}

ItemStorage& ItemStorage::operator=(ItemStorage other) noexcept {
  std::swap(slots_, other.slots_);
  return *this;
}

ItemStorage::~ItemStorage() {
  if (slots_ != nullptr && --Head().holders == 0) Drop();
}

Object** ItemStorage::Allocate(std::int32_t capacity) {
  void* const memory = std::malloc(BytesFor(sizeof(Header), capacity));
  if (memory == nullptr) throw std::bad_alloc();
  return reinterpret_cast<Object**>(new (memory) Header{1, capacity, 0} + 1);
}

void ItemStorage::Drop() noexcept {
  const std::int32_t written = Head().written;
  for (std::int32_t i = 0; i < written; ++i) {
    if (slots_[i] != nullptr) slots_[i]->Release();
  }
  std::free(&Head());
}

Object** ItemStorage::Writable(std::int32_t capacity, std::int32_t count) {
  MakeWritable(capacity);
  if (Head().written < count) {
    std::fill(slots_ + Head().written, slots_ + count, nullptr);
    Head().written = count;
  }
  return slots_;
}

void ItemStorage::MakeWritable(std::int32_t capacity) {
  if (slots_ == nullptr) {
    slots_ = Allocate(std::max(capacity, kFirstCapacity));
  } else if (Head().holders != 1) {
    Unshare(std::max(capacity, Head().capacity));
  } else if (Head().capacity < capacity) {
    Enlarge(capacity);
  }
}

void ItemStorage::Enlarge(std::int32_t capacity) {
  void* const memory = std::realloc(&Head(), BytesFor(sizeof(Header), capacity));
  if (memory == nullptr) throw std::bad_alloc();
  auto* const head = static_cast<Header*>(memory);
  head->capacity = capacity;
  slots_ = reinterpret_cast<Object**>(head + 1);
}

void ItemStorage::Unshare(std::int32_t capacity) {
  Object** const own = Allocate(capacity);
  const std::int32_t written = Head().written;
  std::copy_n(slots_, written, own);
  for (std::int32_t i = 0; i < written; ++i) {
    if (own[i] != nullptr) own[i]->AddRef();
  }
  HeadOf(own).written = written;
  --Head().holders;
  slots_ = own;
}

ItemSnapshot::ItemSnapshot(ItemStorage items, std::int32_t count) noexcept
    : items_(std::move(items)), count_(std::max(count, 0)) {}

}  // namespace vestrel
