// Every slot of every class through the virtual table with null pointers: in all places, and in each place
// alone.
#pragma once

#include "tests/component/host/Published.h"

namespace host {

void NullPointers(const std::vector<Class>& classes);

}  // namespace host
