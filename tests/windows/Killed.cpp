// A process that saves is ended at random moments: every file then holds exactly the bytes after some commit,
// and whatever returned before is there. The program runs itself as that process.
//
//   Killed FOLDER KILLS [SEED]
#include <windows.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cwchar>
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

enum class Phase : std::uint8_t { Starting, Ready, MayGoOn, GoesOn };

// Seen by both processes.
struct Progress {
  std::atomic<int> first;  // the first step on the disk
  std::atomic<Phase> phase;
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

// Starting a process takes so long that the other one sets its watch only now.
void Begin(const SharedProgress& progress) {
  progress->phase = Phase::Ready;
  while (progress->phase != Phase::MayGoOn) Sleep(0);
  progress->phase = Phase::GoesOn;
}

int RunEvening(const std::wstring& folder, const std::wstring& name) {
  const SharedProgress progress(name);
  const int first = progress->first;
  FakeClock clock;
  FakeHostServices services;
  services.moduleFolder = PathOf(folder);
  const platform::Override override({&clock, nullptr, nullptr, &services});
  try {
    const EveningOnDisk evening(folder, PathOf(folder));
    if (first == 0) Begin(progress);
    const auto onStep = [&](int step, bool isDone) {
      if (step == first && first > 0 && !isDone) Begin(progress);
      progress->inSave = !isDone;
      if (isDone) progress->step = step + 1;
    };
    evening.Play(clock, onStep, first);
  } catch (...) {
    progress->failed = true;
  }
  return 0;
}

class Killer {
 public:
  Killer(std::wstring folder, unsigned seed)
      : folder_(std::move(folder)), evening_(folder_, PathOf(folder_)), random_(seed) {}

  void Kill(int kills) {
    int killed = 0;
    int inside = 0;
    Recover();
    for (int round = 1; killed < kills && round < 3 * kills && host::failedChecks == 0; ++round) {
      if (round % 100 == 0) Recover();
      const HANDLE process = Start(std::uniform_int_distribution<int>(0, Evening::kSteps - 1)(random_));
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
  // An evening of which the steps from `first` on are on the disk.
  HANDLE Start(int first) {
    evening_.PutFiles(first);
    progress_->phase = Phase::Starting;
    progress_->inSave = progress_->failed = false;
    progress_->first = progress_->step = first;
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring line = L"\"" + std::wstring(program) + L"\" \"" + folder_ + L"\" evening " + name_;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    CHECK(CreateProcessW(program, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                         &process));
    CloseHandle(process.hThread);
    WaitFor(Phase::Ready, 1);
    progress_->phase = Phase::MayGoOn;
    WaitFor(Phase::GoesOn, 0);
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
    CHECK_EQ(EndOf(Start(0)), DWORD{0});
    Judge(evening_.FaultsOfAWholeEvening());
  }

  void WaitFor(Phase phase, DWORD pause) {
    const ULONGLONG begin = GetTickCount64();
    while (progress_->phase != phase && !progress_->failed && GetTickCount64() - begin < kLongest)
      Sleep(pause);
  }

  // As likely between ten and a hundred microseconds as between one and ten milliseconds: a save takes the
  // one or the other.
  void WaitForARandomMoment() {
    const double seconds = std::pow(10.0, std::uniform_real_distribution<double>(-5, -1.5)(random_));
    const auto moment = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (std::chrono::steady_clock::now() < moment) Sleep(0);
  }

  std::wstring folder_;
  std::wstring name_ = L"vestrel-evening-" + std::to_wstring(GetCurrentProcessId());
  SharedProgress progress_{name_};
  EveningOnDisk evening_;
  std::mt19937 random_;
};

}  // namespace
}  // namespace vestrel::test

int wmain(int count, wchar_t** arguments) {
  if (count < 3) return 2;
  if (std::wcscmp(arguments[2], L"evening") == 0)
    return vestrel::test::RunEvening(arguments[1], arguments[3]);
  const auto number = [&](int at) { return std::wcstol(arguments[at], nullptr, 10); };
  const auto seed = static_cast<unsigned>(count > 3 ? number(3) : 7);
  vestrel::test::Killer(arguments[1], seed).Kill(static_cast<int>(number(2)));
  return host::Totals("Killed");
}
