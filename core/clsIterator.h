// Walks over the items that a list held when the iterator was made; later changes of the list do not reach
// it. Loops advance first: hasNext, then iterValue, until hasNext is false. Owned by whoever loops.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "core/ItemStorage.h"
#include "core/Object.h"
#include "core/Ref.h"

namespace vestrel {

class clsIterator : public Object {
 public:
  VESTREL_OBJECT(clsIterator)

  // How many items there are.
  std::int32_t Size() const noexcept { return size_; }
  // The current position, -1 before the first advance.
  std::int32_t IterIndex() const noexcept { return index_; }
  // Starts over on a copy of `data`, of which the first `Size` entries count. A Size beyond its length is not
  // refused: reading an entry that is not there raises 9.
  void Init(std::span<const Ref<Object>> data, std::int32_t Size);

  // Each of these advances by one and answers whether there is an item; only then an argument receives it.
  bool hasNext();
  bool hasNextObject(Ref<Object>& o);
  // Raises 13 for an item that is no clsString, 91 for none.
  bool hasNextString(std::u16string& outStr);
  // Raises 13 for an item that is no clsLong, 91 for none.
  bool hasNextLong(std::int32_t& outLong);
  // `index` receives the new position, past the end as well.
  bool hasNextWithIndex(std::int32_t& index);
  // The current item. Raises 9 before the first advance and past the end.
  Ref<Object> iterValue() const;
  void resetIter() noexcept { index_ = -1; }

  // Init without copying: shares the slots until the list changes.
  void InitShared(ItemStorage items, std::int32_t size) noexcept;

 private:
  Object* Current() const;
  void Take(ItemStorage& items, std::int32_t slots, std::int32_t size) noexcept;

  ItemStorage items_;
  // Entries that may be read; a list's unused slots are among them.
  std::int32_t slots_ = 0;
  std::int32_t size_ = 0;
  std::int32_t index_ = -1;
};

}  // namespace vestrel
