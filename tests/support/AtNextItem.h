// An observer that does something when the next item arrives, and counts what it hears of.
#pragma once

#include <functional>
#include <utility>

#include "core/IObjListEventHandler.h"

namespace vestrel::test {

class AtNextItem : public IObjListEventHandler {
 public:
  VESTREL_OBJECT(AtNextItem, IObjListEventHandler)

  std::function<void()> work;
  int heard = 0;

  void ItemAdded(clsObjectList* /*list*/, Object* /*item*/, std::int32_t /*atIndex*/,
                 Object* /*userData*/) override {
    ++heard;
    if (work) std::exchange(work, nullptr)();
  }
};

}  // namespace vestrel::test
