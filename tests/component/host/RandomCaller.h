// Calls of any operation with objects and values that earlier calls answered. The seeds are fixed.
#pragma once

#include <random>

#include "tests/component/host/Published.h"

namespace host {

class RandomCaller {
 public:
  RandomCaller(const std::vector<Class>& classes, unsigned seed);
  void Call();
  // How many calls of an operation that sets objects up have succeeded.
  int initialised() const { return initialised_; }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }
  // Mostly a value that fits, so that calls get somewhere.
  Value For(const Place& place);
  Value ObjectWith(const GUID& interfaceId);
  Value SomeArray();
  void Keep(const Value& result);

  const std::vector<Class>& classes_;
  std::mt19937 random_;
  OddValues odd_;
  std::vector<std::pair<const Class*, Value>> objects_;
  int initialised_ = 0;
};

}  // namespace host
