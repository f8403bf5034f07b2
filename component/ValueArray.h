// An array of dynamic values as an object, so that one fits into a Variant: what the by-name door takes and
// answers where an operation has an array. Owned by whoever holds it.
#pragma once

#include <vector>

#include "core/Object.h"
#include "core/Variant.h"

namespace vestrel::component {

class ValueArray : public Object {
 public:
  VESTREL_OBJECT(ValueArray)

  std::vector<Variant> items;
};

}  // namespace vestrel::component
