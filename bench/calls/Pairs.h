// What is compared: each call as a host makes it, and beside it the same through the system's own means.
// Every pair is made once before it is timed, and has to come to the same.
#pragma once

#include <vector>

#include "bench/calls/Server.h"
#include "bench/timing/Timing.h"

namespace vestrel::bench {

std::vector<Pair> MakePairs(const Server& server);

}  // namespace vestrel::bench
