// A long evening of saving, always the same: what the tests of crashes do over and over. Each step changes
// something and saves it: a click, a fader, a group, a whole show, a page that comes and goes, a recording, a
// multi file, a setting.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "storage/clsIniFile.h"
#include "storage/clsMultiFile.h"
#include "tests/support/FakeServices.h"
#include "tests/support/SeamFiles.h"
#include "tests/support/SimulatedHost.h"

namespace vestrel::test {

class Evening {
 public:
  static constexpr int kSteps = 80;

  // The files that are there at the beginning, by path under the application's folder.
  static const std::map<std::u16string, std::string>& FirstFiles();
  // The files that a step promises to be on the disk when it returns.
  static std::vector<std::u16string> Promised(int step);

  // Works on the files in force; `app` is the application's folder.
  Evening(std::u16string app, FakeClock& clock);
  // Begins the log and sets the host up. Comes first.
  void Begin();
  // Loads the show. Comes before the steps.
  void Load();
  void Step(int step);

 private:
  void ToggleAButton(int step);
  void MoveAFader(int step);
  void SaveTheRecording(int step);
  void SaveTheMulti(int step);

  std::u16string app_;
  FakeClock& clock_;
  SimulatedHost host_;
  Ref<clsIniFile> settings_ = MakeRef<clsIniFile>();
};

// What an undisturbed evening writes: every content that each file had, and the step it came with. Files are
// named by path under the application's folder; "<none>" stands for an absent one.
class EveningRecord {
 public:
  struct Version {
    std::string bytes;
    int step;  // -1 at the beginning
  };

  // Of an evening of kSteps steps, made once.
  static const EveningRecord& Get();
  explicit EveningRecord(int steps);

  // What is wrong with a file's bytes after an end inside `step` (steps before it have returned), in words;
  // empty when they are those after some commit and nothing that returned is missing.
  std::string Fault(const std::u16string& name, const std::string& bytes, int step) const;
  std::vector<std::u16string> Names() const;
  const std::vector<Version>& Versions(const std::u16string& name) const { return versions_.at(name); }
  // File calls of the whole evening.
  int Calls() const { return calls_; }

 private:
  void Note(const std::u16string& name, const std::string& bytes, int step);

  std::map<std::u16string, std::vector<Version>> versions_;
  int calls_ = 0;
};

}  // namespace vestrel::test
