// The sort behind clsObjectList: a quicksort with a cheap middle of three as pivot. It is not stable; the
// same process sorts the same input the same way each time it starts.
#pragma once

#include <cstdint>
#include <span>

#include "core/IObjectComparator.h"
#include "core/Object.h"

namespace vestrel::modArraySorting {

// Sorts items[first .. last] so that Compare(a, b) < 0 puts a before b; a negative `last` means the whole
// array. The caller keeps the items alive. Raises what the comparator raises and 9 for bounds outside the
// array; the array then holds the same items in some order. A comparator that contradicts itself gives some
// order, too.
void QuickSortObjects(IObjectComparator& comparator, std::span<Object*> items, std::int32_t first = 0,
                      std::int32_t last = -1);

}  // namespace vestrel::modArraySorting
