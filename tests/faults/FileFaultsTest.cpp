// Every file call of every public operation fails in turn, in every way, once and from then on.
#include <gtest/gtest.h>

#include "core/Convert.h"
#include "core/Error.h"
#include "tests/faults/World.h"

namespace vestrel::test {
namespace {

Outcome Perform(World& world, const Operation& operation) {
  Outcome outcome;
  try {
    outcome.claimsSuccess = operation.run(world);
  } catch (const Error& error) {
    outcome.raised = error.number();
  }
  outcome.model = world.Model();
  outcome.files = world.Files();
  return outcome;
}

// The operation with nothing failing: what it leaves, how many calls it makes, what files went through.
struct Reference {
  int calls = 0;
  std::string modelBefore;
  Outcome outcome;
  History history;
};

Reference Measure(const Operation& operation, bool logFails) {
  Reference reference;
  World world(logFails);
  operation.prepare(world);
  const auto noteAll = [&](bool ranAlready) {
    for (const auto& [path, bytes] : world.Files()) {
      if (!IsScratch(path)) reference.history.Note(path, bytes, ranAlready);
    }
  };
  noteAll(false);
  reference.modelBefore = world.Model();
  world.seam.after = [&](const FileCall& call) {
    if (call.name == "WriteAt" || call.name == "Replace" || call.name == "Close") noteAll(true);
  };
  world.point.Begin(0, kFaults[0]);
  reference.outcome = Perform(world, operation);
  reference.calls = world.point.Calls();
  return reference;
}

std::string StrangeFiles(const World& world, const Reference& reference) {
  for (const auto& [path, bytes] : world.Files()) {
    if (IsScratch(path)) continue;
    const std::string strange = reference.history.Strange(path, bytes);
    if (!strange.empty()) return ToUtf8(path) + " " + strange;
  }
  return {};
}

// What the fault did that it must not do, in words.
std::string Judge(World& world, const Operation& operation, const Reference& reference,
                  const Outcome& outcome) {
  const Outcome& wanted = reference.outcome;
  const bool success = outcome.claimsSuccess && !outcome.raised;
  if (world.seam.OpenFiles() != 0) return "a file stays open";
  if (const std::string strange = StrangeFiles(world, reference); !strange.empty()) return strange;
  const std::string unlike = Unlike(Told(outcome.files), Told(wanted.files));
  if (IsPassing(world.point.fault)) {
    if (success != wanted.claimsSuccess) return "fails though the fault passes";
    if (!unlike.empty()) return "the fault passes, but " + unlike;
    if (outcome.model != wanted.model) return "the fault passes, but the model is another";
  }
  if (operation.reports && success && !unlike.empty()) return "claims success, but " + unlike;
  // What is swallowed and logged is raised after all where the log fails.
  const bool modelIsSaid = !outcome.raised && !operation.rereads && !world.point.exempt.empty();
  if (modelIsSaid && outcome.model != wanted.model) return "the model is another: " + outcome.model;
  if (world.scene && world.scene->controller) return world.scene->Faults();
  return {};
}

class FileFaultsTest : public testing::Test {
 protected:
  // Some of the points, or all of them; tells how many runs were made.
  static int Try(const Operation& operation, bool logFails, int stride) {
    const Reference reference = Measure(operation, logFails);
    int runs = 0;
    int complaints = 0;
    for (int at = 1; at <= reference.calls; ++at) {
      for (const Fault& fault : kFaults) {
        if (++turn_ % stride != 0) continue;
        ++runs;
        World world(logFails);
        operation.prepare(world);
        world.point.Begin(at, fault);
        const Outcome outcome = Perform(world, operation);
        world.point.End();
        const std::string fault_found = Judge(world, operation, reference, outcome);
        if (fault_found.empty()) continue;
        ADD_FAILURE() << operation.name << ", call " << at << " of " << reference.calls << ", " << fault.name
                      << ": " << fault_found << (outcome.raised ? " (raised)" : "");
        if (++complaints >= 3) return runs;
      }
    }
    return runs;
  }

 private:
  static inline int turn_ = 0;
};

TEST_F(FileFaultsTest, LeaveEveryFileWholeAndEverySuccessTrue) {
  const int stride = RunsLong() ? 1 : 23;
  int runs = 0;
  for (const Operation& operation : AllOperations()) runs += Try(operation, false, stride);
  RecordProperty("runs", runs);
  EXPECT_GT(runs, 300);
}

TEST_F(FileFaultsTest, OfTheLogToo) {
  const int stride = RunsLong() ? 1 : 67;
  int runs = 0;
  for (const Operation& operation : AllOperations()) runs += Try(operation, true, stride);
  RecordProperty("runs", runs);
  EXPECT_GT(runs, 300);
}

}  // namespace
}  // namespace vestrel::test
