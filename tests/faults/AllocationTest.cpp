// Every allocation of every public operation fails in turn, once and from then on: no crash, nothing leaks,
// every file is whole, an operation that can tell tells, and the show can be worked with when there is memory
// again.
#include <gtest/gtest.h>

#include <new>

#include "core/Convert.h"
#include "core/Error.h"
#include "tests/faults/World.h"
#include "tests/support/Allocations.h"

namespace vestrel::test {
namespace {

// What an operation without faults leaves, and every state in which files were on the way.
struct Reference {
  int allocations = 0;
  Outcome outcome;
  History history;
};

struct Failed {
  int at;
  bool always;
};

// A failure that is no Error and not about memory is a mistake and ends the test.
Outcome Perform(World& world, const Operation& operation, Failed failed) {
  Outcome outcome;
  Allocations::Begin(failed.at, failed.always);
  try {
    outcome.claimsSuccess = operation.run(world);
  } catch (const Error& error) {
    outcome.raised = error.number();
  } catch (const std::bad_alloc&) {
    outcome.raised = Error_OutOfMemory;
  }
  Allocations::End();
  outcome.model = world.Model();
  outcome.files = world.Files();
  return outcome;
}

Reference Measure(const Operation& operation) {
  Reference reference;
  World world(false);
  operation.prepare(world);
  const auto noteAll = [&](bool ranAlready) {
    for (const auto& [path, bytes] : world.Files()) {
      if (!IsScratch(path)) reference.history.Note(path, bytes, ranAlready);
    }
  };
  noteAll(false);
  world.seam.after = [&](const FileCall& call) {
    if (call.name == "WriteAt" || call.name == "Replace" || call.name == "Close") noteAll(true);
  };
  reference.outcome = Perform(world, operation, {0, false});
  reference.allocations = Allocations::Count();
  return reference;
}

std::string FileFault(const Paths& files, const History& history) {
  for (const auto& [path, bytes] : files) {
    if (IsScratch(path)) continue;
    std::string fault = history.Strange(path, bytes);
    if (fault.empty()) fault = history.HalfDone(path, bytes);
    if (!fault.empty()) return ToUtf8(path) + " " + fault;
  }
  return {};
}

// What is wrong with the show, in words. The list of what plays and the lamps may lag behind until the group
// changes again.
std::string ModelFault(World& world) {
  if (!world.scene || !world.scene->controller) return {};
  std::string fault = world.scene->Faults();
  const bool lags = fault.ends_with("what plays") || fault == "a lamp shows something else";
  return lags ? std::string() : fault;
}

// What the failure did that it must not do, in words.
std::string Judge(World& world, const Operation& operation, const Reference& reference,
                  const Outcome& outcome) {
  const Outcome& wanted = reference.outcome;
  if (world.seam.OpenFiles() != 0) return "a file stays open";
  if (const std::string fault = FileFault(outcome.files, reference.history); !fault.empty()) return fault;
  const bool success = outcome.claimsSuccess && !outcome.raised;
  if (operation.reports && success) {
    const std::string unlike = Unlike(Told(outcome.files), Told(wanted.files));
    if (!unlike.empty()) return "claims success, but " + unlike;
  }
  const bool isLogged = world.memory.Get(World::kLog).find("Out of memory") != std::string::npos;
  const bool isTold = outcome.raised || isLogged;
  if (!isTold && outcome.model != wanted.model) return "the model is another: " + outcome.model;
  return operation.rereads && outcome.raised ? std::string() : ModelFault(world);
}

// With memory again the show is loaded anew and goes on as if nothing had been.
std::string FaultsAfterReload(World& world) {
  if (!world.scene || !world.scene->controller) return {};
  clsButtonGroupController& controller = *world.scene->controller;
  controller.formShutdown();
  controller.LoadShow(u"Gala");
  controller.setModeEditing(false);
  controller.setButtonGroupPageSize(4);
  controller.controlClicked(37, 1, 0, 0, 0);
  return world.scene->Faults();
}

class AllocationTest : public testing::Test {
 protected:
  // Some of the points, or all of them; tells how many runs were made.
  static int Try(const Operation& operation, int stride) {
    const Reference reference = Measure(operation);
    int runs = 0;
    int complaints = 0;
    for (int at = 1; at <= reference.allocations; ++at) {
      for (const bool always : {false, true}) {
        if (++turn_ % stride != 0) continue;
        ++runs;
        const std::string fault = RunOnce(operation, reference, {at, always});
        if (fault.empty()) continue;
        ADD_FAILURE() << operation.name << ", allocation " << at << " of " << reference.allocations
                      << (always ? " and all that follow" : "") << ": " << fault;
        if (++complaints >= 3) return runs;
      }
    }
    return runs;
  }

 private:
  static std::string RunOnce(const Operation& operation, const Reference& reference, Failed failed) {
    const long objects = Object::LiveCount();
    const long blocks = Allocations::Live();
    std::string fault;
    {
      World world(false);
      operation.prepare(world);
      const Outcome outcome = Perform(world, operation, failed);
      fault = Judge(world, operation, reference, outcome);
      if (fault.empty()) fault = FaultsAfterReload(world);
      // Objects are let go while there is no memory.
      if (failed.always) Allocations::Begin(1, true);
      world.scene = nullptr;
      Allocations::End();
    }
    if (fault.empty() && Object::LiveCount() != objects) return "an object stays";
    if (fault.empty() && Allocations::Live() != blocks) return "memory stays";
    return fault;
  }

  static inline int turn_ = 0;
};

TEST_F(AllocationTest, FailingLeavesFilesWholeAndTheShowUsable) {
  const int stride = RunsLong() ? 1 : 23;
  int runs = 0;
  for (const Operation& operation : AllOperations()) runs += Try(operation, stride);
  RecordProperty("runs", runs);
  EXPECT_GT(runs, 300);
}

// The page is read anew from its file after a save that may not have been made.
TEST_F(AllocationTest, AReplacedButtonListLeavesTheOldOrTheNewOneOnDisk) {
  const std::u16string_view file = u"C:\\app\\Sequences\\Gala\\Act 1\\pageSetting.ini";
  bool isReached = true;
  for (int at = 1; isReached; ++at) {
    World world(false);
    world.MakeScene();
    clsButtonGroupController& controller = *world.scene->controller;
    const auto button = MakeRef<clsButton>();
    button->InitWithValues(world.scene->page.get(), 2, 3, u"New", ButtonType_Auto, &controller);
    const auto list = MakeRef<clsObjectList>();
    list->AddItem(button.get());
    Allocations::Begin(at, false);
    try {
      controller.setButtonGroupButtonList(2, list.get());
    } catch (const std::bad_alloc&) {
      // What is left then is looked at below.
    }
    isReached = Allocations::Count() >= at;
    Allocations::End();
    controller.formShutdown();
    const std::string bytes = world.memory.Get(file);
    const bool isOld = bytes.find("\r\nusedIndices=1|2|5|6\r\n") != std::string::npos;
    const bool isNew = bytes.find("\r\nusedIndices=3\r\n") != std::string::npos;
    EXPECT_TRUE(isOld != isNew) << "allocation " << at;
  }
}

}  // namespace
}  // namespace vestrel::test
