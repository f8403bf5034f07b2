#include "core/clsIterator.h"

#include <utility>

#include "core/Cast.h"
#include "core/Checked.h"
#include "core/Error.h"
#include "core/clsLong.h"
#include "core/clsString.h"

namespace vestrel {

void clsIterator::Init(std::span<const Ref<Object>> data, std::int32_t Size) {
  ItemStorage copy;
  const std::int32_t count = NarrowChecked(static_cast<std::int64_t>(data.size()));
  Object** const slots = copy.Writable(count, count);
  for (std::int32_t i = 0; i < count; ++i) slots[i] = Ref<Object>(data[static_cast<std::size_t>(i)]).Detach();
  Take(copy, count, Size);
}

void clsIterator::InitShared(ItemStorage items, std::int32_t size) noexcept {
  Take(items, items.capacity(), size);
}

// The items before are the caller's then: their end may call back.
void clsIterator::Take(ItemStorage& items, std::int32_t slots, std::int32_t size) noexcept {
  std::swap(items_, items);
  slots_ = slots;
  size_ = size;
  index_ = -1;
}

bool clsIterator::hasNext() {
  index_ = AddChecked(index_, 1);
  return index_ < size_;
}

bool clsIterator::hasNextObject(Ref<Object>& o) {
  if (!hasNext()) return false;
  o = Current();
  return true;
}

bool clsIterator::hasNextString(std::u16string& outStr) {
  if (!hasNext()) return false;
  outStr = Cast<clsString>(Current()).value();
  return true;
}

bool clsIterator::hasNextLong(std::int32_t& outLong) {
  if (!hasNext()) return false;
  outLong = Cast<clsLong>(Current()).value();
  return true;
}

bool clsIterator::hasNextWithIndex(std::int32_t& index) {
  const bool result = hasNext();
  index = index_;
  return result;
}

Ref<Object> clsIterator::iterValue() const {
  return Current();
}

Object* clsIterator::Current() const {
  if (index_ < 0 || index_ >= size_ || index_ >= slots_) {
    RaiseError(Error_SubscriptOutOfRange, u"clsIterator");
  }
  return items_[index_];
}

}  // namespace vestrel
