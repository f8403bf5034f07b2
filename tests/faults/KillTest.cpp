// A process that saves is killed: every file then holds exactly the bytes after some commit, and whatever
// returned before is there.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <new>
#include <random>
#include <thread>

#include "core/Convert.h"
#include "platform/System.h"
#include "tests/faults/Evening.h"
#include "tests/faults/Faults.h"
#include "tests/support/TempFolder.h"

namespace vestrel::test {
namespace {

namespace fs = std::filesystem;

// Seen by both processes.
struct Progress {
  std::atomic<bool> started{false};
  std::atomic<bool> inSave{false};
  std::atomic<int> step{0};  // the one under way; those before have returned
  std::atomic<bool> failed{false};
};

// In memory where the system has that: being killed is the same there, and forcing to the disk takes no time.
// VESTREL_KILL_FOLDER names another place.
fs::path WhereToSave() {
  const char* const given = std::getenv("VESTREL_KILL_FOLDER");
  if (given != nullptr) return given;
  return fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
}

class KillTest : public testing::Test {
 protected:
  KillTest() {
    void* const memory =
        mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    progress_ = new (memory) Progress;
  }
  ~KillTest() override { munmap(progress_, sizeof(Progress)); }

  fs::path RealOf(const std::u16string& name) const {
    std::u16string path = name;
    for (char16_t& unit : path) unit = unit == u'\\' ? u'/' : unit;
    return folder_.Real() / path;
  }

  // The files of the beginning; what a crash left beside them stays.
  void PutFirstFiles() {
    for (const std::u16string& name : record_.Names()) fs::remove(RealOf(name));
    for (const auto& [name, bytes] : Evening::FirstFiles()) {
      fs::create_directories(RealOf(name).parent_path());
      std::ofstream(RealOf(name), std::ios::binary) << bytes;
    }
    fs::remove_all(RealOf(u"Sequences\\Gala\\Guest"));
  }

  // An evening in a process of its own; with `endAtCall` it kills itself before that file call.
  pid_t Start(int endAtCall = 0) {
    progress_->started = progress_->inSave = progress_->failed = false;
    progress_->step = 0;
    const pid_t child = fork();
    if (child != 0) return child;
    try {
      RunEvening(endAtCall);
    } catch (...) {
      progress_->failed = true;
    }
    _exit(0);
  }

  void RunEvening(int endAtCall) {
    FakeClock clock;
    FakeHostServices services;
    services.moduleFolder = folder_.Path();
    SeamFiles seam(platform::SystemFiles());
    int calls = 0;
    seam.before = [&calls, endAtCall](FileCall&) {
      if (++calls == endAtCall) raise(SIGKILL);
      return platform::FileStatus::Ok;
    };
    platform::Files& files = endAtCall != 0 ? static_cast<platform::Files&>(seam) : platform::SystemFiles();
    const platform::Override override({&clock, &files, nullptr, &services});
    progress_->started = true;
    Evening evening(folder_.Path(), clock);
    for (int step = 0; step < Evening::kSteps; ++step) {
      progress_->inSave = true;
      evening.Step(step);
      progress_->inSave = false;
      progress_->step = step + 1;
    }
  }

  static bool WasKilled(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

  std::string Read(const std::u16string& name) const {
    std::ifstream file(RealOf(name), std::ios::binary);
    if (!file) return "<none>";
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::vector<fs::path> Leftovers() const {
    std::vector<fs::path> result;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.Real())) {
      if (entry.path().string().ends_with('~')) result.push_back(entry.path());
    }
    return result;
  }

  // What an undisturbed evening leaves; the log names the folder.
  std::string Whole(const std::u16string& name) const {
    static constexpr std::string_view kModel = "C:\\app";
    std::string bytes = record_.Versions(name).back().bytes;
    const std::string here = ToUtf8(folder_.Path());
    for (std::size_t at = 0; (at = bytes.find(kModel, at)) != std::string::npos; at += here.size()) {
      bytes.replace(at, kModel.size(), here);
    }
    return bytes;
  }

  // A killed writer may leave the front of a line of the log; nothing else is ever out of step.
  std::string FaultOf(const std::u16string& name, int step) const {
    const std::string bytes = Read(name);
    if (name != u"log.txt") return record_.Fault(name, bytes, step);
    const std::string whole = Whole(name);
    const bool isFront = bytes == "<none>" || whole.starts_with(bytes);
    return isFront ? "" : "the log is no front of the whole log";
  }

  void Judge() {
    EXPECT_FALSE(progress_->failed);
    EXPECT_LE(Leftovers().size(), kept_ + 1) << "a crash leaves one file beside its target at most";
    for (const std::u16string& name : record_.Names()) {
      const std::string fault = FaultOf(name, progress_->step);
      EXPECT_EQ(fault, "");
    }
    for (const fs::path& leftover : Leftovers()) {
      if (turn_++ % 8 != 0) fs::remove(leftover);
    }
    kept_ = Leftovers().size();
  }

  // An evening to its end over what was left.
  void Recover() {
    PutFirstFiles();
    EXPECT_FALSE(WasKilled(Start()));
    EXPECT_FALSE(progress_->failed);
    EXPECT_EQ(progress_->step, Evening::kSteps);
    EXPECT_TRUE(Leftovers().empty());
    kept_ = 0;
    for (const std::u16string& name : record_.Names()) {
      EXPECT_EQ(Read(name), Whole(name)) << ToUtf8(name);
    }
  }

  // A moment inside a step, whatever the machine's speed.
  void WaitForARandomMoment(std::mt19937& random) const {
    const int step = std::uniform_int_distribution<int>(0, Evening::kSteps - 1)(random);
    while ((!progress_->started || progress_->step < step) && !progress_->failed) std::this_thread::yield();
    std::this_thread::sleep_for(
        std::chrono::microseconds(std::uniform_int_distribution<int>(0, 300)(random)));
  }

  const EveningRecord& record_ = EveningRecord::Get();
  TempFolder folder_{WhereToSave()};
  Progress* progress_ = nullptr;

 private:
  int turn_ = 0;
  std::size_t kept_ = 0;
};

TEST_F(KillTest, AnUndisturbedEveningWritesTheSameOnDiskAsInMemory) {
  Recover();
}

TEST_F(KillTest, BeforeAnyFileCallLeavesOldOrNew) {
  const int points = RunsLong() ? record_.Calls() : 30;
  for (int i = 1; i <= points && !HasFailure(); ++i) {
    PutFirstFiles();
    EXPECT_TRUE(WasKilled(Start(i * record_.Calls() / points)));
    Judge();
  }
  Recover();
}

// A few, or as many as VESTREL_KILLS says.
TEST_F(KillTest, AtRandomMomentsLosesNothing) {
  const int kills = Times("VESTREL_KILLS", 30);
  std::mt19937 random(7);
  int killed = 0;
  int inside = 0;
  int round = 0;
  for (; killed < kills && round < 3 * kills && !HasFailure(); ++round) {
    if (round % 100 == 99) Recover();
    PutFirstFiles();
    const pid_t child = Start();
    WaitForARandomMoment(random);
    kill(child, SIGKILL);
    if (!WasKilled(child)) continue;
    ++killed;
    inside += progress_->inSave ? 1 : 0;
    Judge();
  }
  EXPECT_EQ(killed, kills) << "of " << round;
  EXPECT_GE(inside * 2, killed);
  RecordProperty("killed", killed);
  RecordProperty("inside a save", inside);
}

}  // namespace
}  // namespace vestrel::test
