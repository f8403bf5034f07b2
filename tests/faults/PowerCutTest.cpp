// The power goes at any moment of an evening: every file comes back old or new, and what a save has forced to
// the disk is there.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "core/Convert.h"
#include "platform/Platform.h"
#include "tests/faults/DiskModel.h"
#include "tests/faults/Evening.h"
#include "tests/faults/Faults.h"
#include "tests/support/MemoryFiles.h"

namespace vestrel::test {
namespace {

constexpr int kStepsToWriteBack = 21;

const std::u16string kApp = u"C:\\app";

using Versions = std::span<const EveningRecord::Version>;

// The versions in a row that have the length of the first.
Versions OfOneLength(Versions versions) {
  std::size_t count = 1;
  while (count < versions.size() && versions[count].bytes.size() == versions[0].bytes.size()) ++count;
  return versions.first(count);
}

// Whether each of the commits that lead from one version to the next, which keep the length, is either wholly
// in the bytes or not at all: such commits reach the disk one by one, and not in their order.
bool IsChoiceOf(Versions commits, const std::string& bytes) {
  std::string rest = commits[0].bytes;
  for (std::size_t i = 1; i < commits.size(); ++i) {
    const std::string& was = commits[i - 1].bytes;
    const std::string& now = commits[i].bytes;
    const auto front = std::mismatch(was.begin(), was.end(), now.begin()).first - was.begin();
    const auto back = std::mismatch(was.rbegin(), was.rend(), now.rbegin()).first - was.rbegin();
    const auto at = static_cast<std::size_t>(front);
    const auto size = was.size() - at - static_cast<std::size_t>(back);
    const auto hasIt = [&](const EveningRecord::Version& version) {
      return bytes.compare(at, size, version.bytes, at, size) == 0;
    };
    if (std::none_of(commits.begin(), commits.end(), hasIt)) return false;
    rest.replace(at, size, bytes, at, size);
  }
  return rest == bytes;
}

// Whether the bytes are those of one of the versions, or of one with a choice of commits in place on it.
bool IsOneOf(Versions versions, const std::string& bytes) {
  for (std::size_t i = 0; i < versions.size(); ++i) {
    if (versions[i].bytes == bytes) return true;
    if (versions[i].bytes.size() == bytes.size() && IsChoiceOf(OfOneLength(versions.subspan(i)), bytes)) {
      return true;
    }
  }
  return false;
}

class PowerCutTest : public testing::Test {
 protected:
  explicit PowerCutTest(DiskRule rule) : disk_(rule) {}

  void SetUp() override {
    services_.moduleFolder = kApp;
    for (const auto& [name, bytes] : Evening::FirstFiles()) {
      memory_.Put(kApp + u"\\" + name, bytes);
      disk_.Put(kApp + u"\\" + name, bytes);
    }
    seam_.after = [this](const FileCall& call) {
      disk_.Note(call);
      const bool changes = call.name == "WriteAt" || call.name == "Replace" || call.name == "MakeDirectory" ||
                           call.name == "Sync" || call.name == "SyncDirectory" || call.name == "Remove";
      if (changes) CutThePower();
    };
  }

  void PlayTheEvening() {
    const platform::Override override({&clock_, &seam_, nullptr, &services_});
    Evening evening(kApp, clock_);
    evening.Begin();
    evening.Load();
    for (; step_ < steps_ && !HasFailure(); ++step_) {
      evening.Step(step_);
      for (const std::u16string& name : Evening::Promised(step_)) floors_[name] = step_ + 1;
      if (step_ % kStepsToWriteBack == kStepsToWriteBack - 1) WriteBack();
      CutThePower();
    }
  }

  void WriteBack() {
    disk_.WriteBack();
    for (const std::u16string& name : record_.Names()) floors_[name] = step_ + 1;
  }

  // The version from which on a file may be: that of the last step that forced it.
  void CutThePower() {
    for (const std::u16string& name : record_.Names()) {
      if (name == u"log.txt") continue;
      const auto& versions = record_.Versions(name);
      const int floor = floors_[name];
      std::size_t first = 0;
      while (first + 1 < versions.size() && versions[first + 1].step < floor) ++first;
      disk_.ForEachContent(kApp + u"\\" + name, [&](const std::string& bytes) {
        ++states_;
        Judge(name, bytes, first);
      });
    }
  }

  void Judge(const std::u16string& name, const std::string& bytes, std::size_t first) {
    const auto& versions = record_.Versions(name);
    std::size_t end = first;
    while (end < versions.size() && versions[end].step <= step_) ++end;
    if (!IsOneOf(Versions(versions).subspan(first, end - first), bytes) && ++complaints_ <= 5) {
      ADD_FAILURE() << ToUtf8(name) << " comes back in step " << step_ << " with " << bytes.size()
                    << " bytes that it had not since step " << versions[first].step;
    }
  }

  const int steps_ = RunsLong() ? 4 * Evening::kSteps : Evening::kSteps;
  const EveningRecord record_{steps_};
  std::int64_t states_ = 0;

 private:
  DiskModel disk_;
  MemoryFiles memory_;
  SeamFiles seam_{memory_};
  FakeClock clock_;
  FakeHostServices services_;
  std::map<std::u16string, int> floors_;
  int step_ = 0;
  int complaints_ = 0;
};

class OrderedPowerCutTest : public PowerCutTest {
 protected:
  OrderedPowerCutTest() : PowerCutTest(DiskRule::Ordered) {}
};

class StrictPowerCutTest : public PowerCutTest {
 protected:
  StrictPowerCutTest() : PowerCutTest(DiskRule::Strict) {}
};

TEST_F(OrderedPowerCutTest, EverySaveLeavesOldOrNew) {
  PlayTheEvening();
  RecordProperty("states", std::to_string(states_));
  EXPECT_GT(states_, RunsLong() ? 50'000 : 5'000);
}

TEST_F(StrictPowerCutTest, WhatASaveForcedIsThere) {
  PlayTheEvening();
  RecordProperty("states", std::to_string(states_));
  EXPECT_GT(states_, RunsLong() ? 50'000 : 5'000);
}

}  // namespace
}  // namespace vestrel::test
