// A process that is killed on its way through an evening, and the next one, which starts over what that left
// and in which something fails as well.
#pragma once

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/faults/Evening.h"
#include "tests/faults/World.h"

namespace vestrel::test {

// Files in memory that outlive processes.
class Recovery {
 public:
  // Of each kind of step one.
  static constexpr int kSteps = 8;

  // The files that a killed process left.
  explicit Recovery(const Paths& left);
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;
  ~Recovery() { point.End(); }

  // A process from its start on. It ends where it cannot be set up; else the operator goes on after each
  // error. `without` is a step to leave out. Answers how many errors there were.
  int Run(int firstStep, int without = -1);

  // All of them, the log aside.
  Paths Files() const;
  // Notes every content that a file comes to have.
  void NoteInto(History& history);

  FakeClock clock;
  MemoryFiles memory;
  SeamFiles seam{memory};
  FaultPoint point;

 private:
  FakeHostServices services_;
  platform::Override override_{{&clock, &seam, nullptr, &services_}};
};

// The end of an evening at a moment taken by chance, and what the next process then does
// without any fault, or without one of its steps.
class KilledEvening {
 public:
  explicit KilledEvening(std::mt19937& random);

  // What is wrong after a process that did not come through its faults unharmed, and after two more that have
  // none, in words; empty when nothing is.
  std::string FaultsOf(Recovery& recovery) const;

  const Paths* left;
  int firstStep;
  int calls = 0;  // that the next process makes without a fault

 private:
  // Answers the number of file calls.
  int NoteARun(int without);
  std::string StrangeFile(const Recovery& recovery) const;

  History history_;
};

}  // namespace vestrel::test
