// The observer of a list: told of every insertion and removal, during the operation that causes it. The
// controller implements it to keep buttons and screen in step; hosts may. A plain one can be made and
// ignores everything.
#pragma once

#include <cstdint>

#include "core/Object.h"

namespace vestrel {

class clsObjectList;

class IObjListEventHandler : public virtual Object {
 public:
  VESTREL_OBJECT(IObjListEventHandler)

  // `item` now stands at `atIndex` (0-based) of `list` and is counted. `userData` is what the list was given
  // together with this observer. What it raises reaches whoever inserted; the item stays in the list.
  virtual void ItemAdded(clsObjectList* list, Object* item, std::int32_t atIndex, Object* userData);
  // `item` stood at `fromIndex` of `list`. After a removal it has left already; while the list is cleared,
  // which reports each item, all items are still in place.
  virtual void ItemRemoved(clsObjectList* list, Object* item, std::int32_t fromIndex, Object* userData);
};

inline void IObjListEventHandler::ItemAdded(clsObjectList* /*list*/, Object* /*item*/,
                                            std::int32_t /*atIndex*/, Object* /*userData*/) {}

inline void IObjListEventHandler::ItemRemoved(clsObjectList* /*list*/, Object* /*item*/,
                                              std::int32_t /*fromIndex*/, Object* /*userData*/) {}

}  // namespace vestrel
