// An object that stands for one plain value where a value is wanted: the boxed number and the boxed text, or
// a host's object with a default property. Asked for through Object::Query; not counted itself.
#pragma once

#include "core/Variant.h"

namespace vestrel {

class HasValue {
 public:
  HasValue() = default;
  HasValue(const HasValue&) = delete;
  HasValue& operator=(const HasValue&) = delete;

  // The value, itself never an object.
  virtual Variant DefaultValue() const = 0;

 protected:
  ~HasValue() = default;
};

}  // namespace vestrel
