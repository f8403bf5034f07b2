// Everything an operation under test touches: files in memory behind a seam that makes calls fail, a clock, a
// host, the log, and a show in the middle of an evening for the operations that need one.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/faults/Faults.h"
#include "tests/scenarios/Scene.h"
#include "tests/support/FakePlatform.h"

namespace vestrel::test {

class World {
 public:
  static constexpr std::u16string_view kLog = u"C:\\log.txt";

  // With faults in the log's file too where `logFails` says so.
  explicit World(bool logFails);
  World(const World&) = delete;
  World& operator=(const World&) = delete;
  ~World();

  void MakeScene() { scene = std::make_unique<Scene>(memory, services, clock); }
  // What the show holds in memory, in words.
  std::string Model() const;
  // Bytes of all files by path; without the log.
  std::map<std::u16string, std::string> Files() const;

  FakeClock clock;
  MemoryFiles memory;
  FakeHostServices services;
  SeamFiles seam{memory};
  FaultPoint point;

 private:
  platform::Override override_{{&clock, &seam, nullptr, &services}};

 public:
  std::unique_ptr<Scene> scene;
};

// One public operation. `run` answers false, or raises, where it tells that it failed.
struct Operation {
  std::string name;
  bool reports = false;  // whether it can tell at all
  std::function<void(World& world)> prepare;
  std::function<bool(World& world)> run;
  // Whether it reads the model from the file again, so that what was not written is not in memory either.
  bool rereads = false;
};

// Those of a show, through its host's actions, and those of files and of the log.
std::vector<Operation> AllOperations();

// What a run of an operation came to.
struct Outcome {
  bool claimsSuccess = false;
  std::optional<std::int32_t> raised;
  std::string model;
  std::map<std::u16string, std::string> files;
};

using Paths = std::map<std::u16string, std::string>;

// A file that a writer makes beside its target, and drops.
bool IsScratch(std::u16string_view path);
// The files that an operation that succeeds answers for: no scratch files, and not those that records of a
// multi file write when they are let go, which can tell nobody.
Paths Told(Paths files);
// Where `files` are not as wanted, in words; empty when they are.
std::string Unlike(const Paths& files, const Paths& wanted);

// Every value that any key of any file had while an operation ran, and every content of other files.
class History {
 public:
  // `isNew`: the file was not there before.
  void Note(const std::u16string& path, const std::string& bytes, bool isNew);
  // What a file holds that it never held, in words; empty when there is nothing.
  std::string Strange(const std::u16string& path, const std::string& bytes) const;
  // Which section of a settings file is not as it was after some write, in words: one that a save left half
  // done. Empty when there is none, and for other files.
  std::string HalfDone(const std::u16string& path, const std::string& bytes) const;

 private:
  using Values = std::map<std::string, std::string>;
  using Sections = std::map<std::string, Values>;
  static Sections BySection(const Values& values);
  static bool IsSettings(const std::u16string& path);
  // The values by "[section]key"; what is no line is a value of its own.
  static Values Parsed(const std::string& bytes);

  std::map<std::u16string, std::vector<Values>> settings_;
  std::map<std::u16string, std::set<std::string>> others_;
};

}  // namespace vestrel::test
