// The faults that the tests put into an operation, one point at a time: which call or allocation, how it
// fails, and whether it is the only one.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/support/Scale.h"
#include "tests/support/SeamFiles.h"

namespace vestrel::test {

// How often, from the environment where it says so.
inline int Times(const char* variable, int otherwise) {
  const char* const text = std::getenv(variable);
  return text != nullptr ? std::atoi(text) : otherwise;
}

// Where files are in memory, if the system has that: a process is killed there as on a disk, and forcing to
// the disk takes no time. VESTREL_KILL_FOLDER names another place.
inline std::filesystem::path FolderInMemory() {
  const char* const given = std::getenv("VESTREL_KILL_FOLDER");
  if (given != nullptr) return given;
  const std::filesystem::path memory("/dev/shm");
  return std::filesystem::exists(memory) ? memory : std::filesystem::temp_directory_path();
}

struct Fault {
  const char* name;
  platform::FileStatus status;  // Ok: the write is cut short
  bool always;
};

constexpr Fault kFaults[] = {
    {"no space, once", platform::FileStatus::DiskFull, false},
    {"no space, from then on", platform::FileStatus::DiskFull, true},
    {"I/O error, once", platform::FileStatus::IoError, false},
    {"I/O error, from then on", platform::FileStatus::IoError, true},
    {"interrupted, once", platform::FileStatus::Interrupted, false},
    {"interrupted, from then on", platform::FileStatus::Interrupted, true},
    {"no permission, once", platform::FileStatus::AccessDenied, false},
    {"no permission, from then on", platform::FileStatus::AccessDenied, true},
    {"short write, once", platform::FileStatus::Ok, false},
    {"short write, from then on", platform::FileStatus::Ok, true},
};

// Whether an operation must not notice the fault: calls are made again, writes go on.
constexpr bool IsPassing(const Fault& fault) {
  return fault.status == platform::FileStatus::Ok ||
         (fault.status == platform::FileStatus::Interrupted && !fault.always);
}

// Counts calls, and makes call number `at` (from 1) fail; 0 for none. Calls on `exempt` neither count nor
// fail.
class FaultPoint {
 public:
  int at = 0;
  Fault fault = kFaults[0];
  std::u16string exempt;

  int Calls() const { return calls_; }
  void Begin(int point, const Fault& kind) {
    calls_ = 0;
    at = point;
    fault = kind;
  }
  void End() { at = 0; }

  platform::FileStatus operator()(FileCall& call) {
    if (!exempt.empty() && call.path == exempt) return platform::FileStatus::Ok;
    ++calls_;
    const bool due = at != 0 && (calls_ == at || (fault.always && calls_ > at));
    if (!due) return platform::FileStatus::Ok;
    if (fault.status == platform::FileStatus::Ok && call.name == "WriteAt") {
      call.bytes = call.bytes.substr(0, std::max<std::size_t>(1, call.bytes.size() / 2));
    }
    return fault.status;
  }

 private:
  int calls_ = 0;
};

}  // namespace vestrel::test
