// The files of an evening in a folder of the real disk, for processes that are killed while they write them:
// what lies there at the beginning, and whether what a killed one left is as promised.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/Platform.h"
#include "tests/faults/Evening.h"
#include "tests/support/MemoryFiles.h"

namespace vestrel::test {

class EveningOnDisk {
 public:
  // `path` is the folder as the library names it.
  EveningOnDisk(std::filesystem::path folder, std::u16string path);

  const std::u16string& Path() const { return path_; }

  // The files as they are when `step` begins; what a crash left beside them stays.
  void PutFiles(int step = 0) const;
  // The evening from step `first` on, on the files in force; `onStep` is told each step before it and after
  // it. Those before `first` are played in memory, for what an evening keeps in mind.
  template <class OnStep>
  void Play(FakeClock& clock, OnStep onStep, int first = 0) const;

  // What a process that was killed inside `step` (those before have returned) did not keep of the promises, a
  // line for each; empty when it kept them. Removes most of what a crash left beside its target; some stay
  // for the next.
  std::string FaultsAfter(int step);
  // What is not as an undisturbed evening leaves it, likewise.
  std::string FaultsOfAWholeEvening();

 private:
  std::filesystem::path RealOf(const std::u16string& name) const;
  std::string BytesBefore(const std::u16string& name, int step) const;
  std::string Here(std::string bytes) const;
  void PutFirstFilesInto(MemoryFiles& memory) const;
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
void EveningOnDisk::Play(FakeClock& clock, OnStep onStep, int first) const {
  MemoryFiles memory;
  std::optional<platform::Override> inMemory;
  if (first > 0) {
    PutFirstFilesInto(memory);
    inMemory.emplace(platform::Override::Services{nullptr, &memory, nullptr, nullptr});
  }
  Evening evening(path_, clock);
  evening.Begin();
  evening.Load();
  for (int step = 0; step < first; ++step) evening.Step(step);
  inMemory.reset();
  for (int step = first; step < Evening::kSteps; ++step) {
    onStep(step, false);
    evening.Step(step);
    onStep(step, true);
  }
}

}  // namespace vestrel::test
