// An order between two objects, given to a list's sort. Implemented by DefaultObjectComparator and by hosts.
// A plain IObjectComparator can be made too: to it all objects are equal.
#pragma once

#include <cstdint>

#include "core/Object.h"

namespace vestrel {

class IObjectComparator : public virtual Object {
 public:
  VESTREL_OBJECT(IObjectComparator)

  // Negative when `a` sorts before `b`, 0 when they are equal, positive when `a` comes after. What it raises
  // reaches whoever sorts.
  virtual std::int32_t Compare(Object* a, Object* b);
};

inline std::int32_t IObjectComparator::Compare(Object* /*a*/, Object* /*b*/) {
  return 0;
}

}  // namespace vestrel
