// The files of an evening in a folder of the real disk, for processes that are killed while they write them:
// what lies there at the beginning, and whether what a killed one left is as promised.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/faults/Evening.h"

namespace vestrel::test {

class EveningOnDisk {
 public:
  // `path` is the folder as the library names it.
  EveningOnDisk(std::filesystem::path folder, std::u16string path);

  const std::u16string& Path() const { return path_; }

  // The files of the beginning; what a crash left beside them stays.
  void PutFirstFiles() const;
  // The whole evening, on the files in force; `onStep` is told each step before it and after it.
  template <class OnStep>
  void Play(FakeClock& clock, OnStep onStep) const;

  // What a process that was killed inside `step` (those before have returned) did not keep of the promises, a
  // line for each; empty when it kept them. Removes most of what a crash left beside its target; some stay
  // for the next.
  std::string FaultsAfter(int step);
  // What is not as an undisturbed evening leaves it, likewise.
  std::string FaultsOfAWholeEvening();

 private:
  std::filesystem::path RealOf(const std::u16string& name) const;
  std::string Read(const std::u16string& name) const;
  std::vector<std::filesystem::path> Leftovers() const;
  std::string Whole(const std::u16string& name) const;
  std::string FaultOf(const std::u16string& name, int step) const;

  const EveningRecord& record_ = EveningRecord::Get();
  std::filesystem::path folder_;
  std::u16string path_;
  int turn_ = 0;
  std::size_t kept_ = 0;
};

template <class OnStep>
void EveningOnDisk::Play(FakeClock& clock, OnStep onStep) const {
  Evening evening(path_, clock);
  evening.Begin();
  evening.Load();
  for (int step = 0; step < Evening::kSteps; ++step) {
    onStep(step, false);
    evening.Step(step);
    onStep(step, true);
  }
}

}  // namespace vestrel::test
