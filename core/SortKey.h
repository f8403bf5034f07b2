// A whole number that stands for an object's order, so that a sort can compare numbers instead of calling the
// objects. Objects that have one answer it through IComparable::SortKeyFor.
#pragma once

#include <cstdint>

#include "core/Object.h"

namespace vestrel {

struct SortKey {
  // Which objects the number can be compared with: those that answer the same kind.
  TypeKey kind = nullptr;
  std::int64_t value = 0;
};

}  // namespace vestrel
