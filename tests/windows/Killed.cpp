// A process that saves is ended at random moments: every file then holds exactly the bytes after some commit,
// and whatever returned before is there. The program runs itself as that process.
//
//   Killed FOLDER KILLS
#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "platform/Platform.h"
#include "platform/System.h"
#include "tests/component/host/Check.h"
#include "tests/faults/EveningOnDisk.h"

namespace vestrel::test {
namespace {

constexpr UINT kKilled = 137;
constexpr DWORD kLongest = 60'000;

// Seen by both processes.
struct Progress {
  std::atomic<bool> started;
  std::atomic<bool> inSave;
  std::atomic<int> step;  // the one under way; those before have returned
  std::atomic<bool> failed;
};

// By name, for both.
class SharedProgress {
 public:
  explicit SharedProgress(const std::wstring& name)
      : mapping_(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(Progress),
                                    name.c_str())),
        progress_(
            static_cast<Progress*>(MapViewOfFile(mapping_, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Progress)))) {}
  SharedProgress(const SharedProgress&) = delete;
  SharedProgress& operator=(const SharedProgress&) = delete;
  ~SharedProgress() {
    UnmapViewOfFile(progress_);
    CloseHandle(mapping_);
  }
  Progress* operator->() const { return progress_; }

 private:
  HANDLE mapping_;
  Progress* progress_;
};

std::u16string PathOf(const std::wstring& folder) {
  return {folder.begin(), folder.end()};
}

int RunEvening(const std::wstring& folder, const std::wstring& name) {
  const SharedProgress progress(name);
  FakeClock clock;
  FakeHostServices services;
  services.moduleFolder = PathOf(folder);
  const platform::Override override({&clock, nullptr, nullptr, &services});
  progress->started = true;
  try {
    EveningOnDisk(folder, PathOf(folder)).Play(clock, [&](int step, bool isDone) {
      progress->inSave = !isDone;
      if (isDone) progress->step = step + 1;
    });
  } catch (...) {
    progress->failed = true;
  }
  return 0;
}

class Killer {
 public:
  explicit Killer(std::wstring folder) : folder_(std::move(folder)), evening_(folder_, PathOf(folder_)) {}

  void Kill(int kills) {
    int killed = 0;
    int inside = 0;
    Recover();
    for (int round = 1; killed < kills && round < 3 * kills && host::failedChecks == 0; ++round) {
      if (round % 100 == 0) Recover();
      evening_.PutFirstFiles();
      const HANDLE process = Start();
      WaitForARandomMoment();
      TerminateProcess(process, kKilled);
      if (EndOf(process) != kKilled) continue;
      ++killed;
      inside += progress_->inSave ? 1 : 0;
      Judge(evening_.FaultsAfter(progress_->step));
    }
    CHECK_EQ(killed, kills);
    CHECK(inside * 2 >= killed);
    std::printf("%d ended, %d of them inside a save\n", killed, inside);
  }

 private:
  HANDLE Start() {
    progress_->started = progress_->inSave = progress_->failed = false;
    progress_->step = 0;
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring line = L"\"" + std::wstring(program) + L"\" \"" + folder_ + L"\" evening " + name_;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    CHECK(CreateProcessW(program, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                         &process));
    CloseHandle(process.hThread);
    return process.hProcess;
  }

  static DWORD EndOf(HANDLE process) {
    CHECK(WaitForSingleObject(process, kLongest) == WAIT_OBJECT_0);
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    CloseHandle(process);
    return code;
  }

  void Judge(const std::string& faults) {
    CHECK(!progress_->failed);
    host::Checked(faults.empty(), "every file is old or new", __FILE__, __LINE__, faults);
  }

  // An evening to its end over what was left.
  void Recover() {
    evening_.PutFirstFiles();
    CHECK_EQ(EndOf(Start()), DWORD{0});
    Judge(evening_.FaultsOfAWholeEvening());
  }

  // A moment inside a step, whatever the machine's speed.
  void WaitForARandomMoment() {
    const int step = std::uniform_int_distribution<int>(0, Evening::kSteps - 1)(random_);
    const ULONGLONG begin = GetTickCount64();
    while ((!progress_->started || progress_->step < step) && !progress_->failed) {
      if (GetTickCount64() - begin > kLongest) break;
      Sleep(0);
    }
    for (int turns = std::uniform_int_distribution<int>(0, 50)(random_); turns > 0; --turns) Sleep(0);
  }

  std::wstring folder_;
  std::wstring name_ = L"vestrel-evening-" + std::to_wstring(GetCurrentProcessId());
  SharedProgress progress_{name_};
  EveningOnDisk evening_;
  std::mt19937 random_{7};
};

}  // namespace
}  // namespace vestrel::test

int wmain(int count, wchar_t** arguments) {
  if (count == 4) return vestrel::test::RunEvening(arguments[1], arguments[3]);
  if (count != 3) return 2;
  vestrel::test::Killer(arguments[1]).Kill(static_cast<int>(std::wcstol(arguments[2], nullptr, 10)));
  return host::Totals("Killed");
}
