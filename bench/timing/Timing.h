// Contenders in pairs, timed in turn in one process: many short batches of each, the pairs in an order that
// changes from round to round, and the median counts.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vestrel::bench {

// Does one thing that many times.
using Work = std::function<void(std::int64_t times)>;

template <class Action>
Work Repeated(Action action) {
  return [action](std::int64_t times) mutable {
    for (; times > 0; --times) action();
  };
}

struct Pair {
  std::string figure;
  std::string peer;
  Work ours;
  Work theirs;
  // How many times faster than the peer's ours is to be; 0 for no target.
  double timesFaster = 0;
  // The other is no peer, but what nothing could go below.
  bool isFloor = false;
};

struct Figures {
  double ours = 0;  // nanoseconds a call
  double theirs = 0;
};

// The medians, in the order of the pairs.
std::vector<Figures> Measure(const std::vector<Pair>& pairs, int rounds);

// Prints the rows of the table, in the form that bench/report.py reads.
void Print(const std::vector<Pair>& pairs, const std::vector<Figures>& figures);

}  // namespace vestrel::bench
