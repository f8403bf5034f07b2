// A thin layer over the benchmark library: cases of one kind of work by several contenders over several
// sizes, and claims that compare two of them. All cases of a program are measured in one process, their
// repetitions interleaved at random; the medians count.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vestrel::bench {

// Whether only the sizes that the table needs are wanted, measured briefly.
bool Quick();

// One contender at one size: `work` does `items` things at a time, `before` prepares it outside the clock.
// The figure is nanoseconds an item, of the time that the processor worked for it; where it `waits` for the
// disk or another process, of the time that passed. `what` names the work ("sort"), `who` the contender
// ("Vestrel", "std::sort", "floor (keys copied out)").
struct Case {
  std::string what;
  std::string who;
  std::int64_t size = 1;
  std::int64_t items = 1;
  std::function<void()> work;
  std::function<void()> before = nullptr;
  bool waits = false;
};
void Add(Case measured);

enum class Kind {
  TimesFaster,  // other / ours is at least the factor
  AtMostTimes,  // ours / other is at most the factor
  Shown,        // no target
};

// One line of the table: our figure beside another's at one size, or alone when `other` is empty.
struct Claim {
  std::string figure;
  std::string what;
  std::int64_t size = 1;
  std::string other;
  Kind kind = Kind::Shown;
  double factor = 0;
  std::string ours = "Vestrel";
  // What the other's figure is taken times, where one of ours stands for several of theirs.
  double otherTimes = 1;
};
void Add(Claim claim);

// What each more of the size costs, in nanoseconds, between two sizes; `limit` is the target's upper bound.
struct Growth {
  std::string figure;
  std::string what;
  std::int64_t from = 0;
  std::int64_t to = 0;
  double limit = 0;
  std::string ours = "Vestrel";
};
void Add(Growth growth);

// A figure that is computed rather than timed, in `unit`; `limit` is a target's upper bound.
struct Amount {
  std::string figure;
  double ours = 0;
  std::string other;
  double others = 0;
  double limit = 0;
  std::string unit;
};
void Add(Amount amount);

// Keeps the compiler from leaving out the work that made the value.
template <class T>
void Keep(const T& value) {
  asm volatile("" : : "r,m"(value) : "memory");
}

}  // namespace vestrel::bench

// Every program defines it: adds its cases and claims.
void AddCases();
