// A process that saves is killed: every file then holds exactly the bytes after some commit, and whatever
// returned before is there.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <new>
#include <random>
#include <thread>

#include "platform/Platform.h"
#include "platform/System.h"
#include "tests/faults/EveningOnDisk.h"
#include "tests/faults/Faults.h"
#include "tests/support/TempFolder.h"

namespace vestrel::test {
namespace {

// Seen by both processes.
struct Progress {
  std::atomic<bool> started{false};
  std::atomic<bool> inSave{false};
  std::atomic<int> step{0};  // the one under way; those before have returned
  std::atomic<bool> failed{false};
};

class KillTest : public testing::Test {
 protected:
  KillTest() {
    void* const memory =
        mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    progress_ = new (memory) Progress;
  }
  ~KillTest() override { munmap(progress_, sizeof(Progress)); }

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
    evening_.Play(clock, [this](int step, bool isDone) {
      progress_->inSave = !isDone;
      if (isDone) progress_->step = step + 1;
    });
  }

  static bool WasKilled(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

  void Judge() {
    EXPECT_FALSE(progress_->failed);
    EXPECT_EQ(evening_.FaultsAfter(progress_->step), "");
  }

  // An evening to its end over what was left.
  void Recover() {
    evening_.PutFiles();
    EXPECT_FALSE(WasKilled(Start()));
    EXPECT_FALSE(progress_->failed);
    EXPECT_EQ(progress_->step, Evening::kSteps);
    EXPECT_EQ(evening_.FaultsOfAWholeEvening(), "");
  }

  // A moment inside a step, whatever the machine's speed.
  void WaitForARandomMoment(std::mt19937& random) const {
    const int step = std::uniform_int_distribution<int>(0, Evening::kSteps - 1)(random);
    while ((!progress_->started || progress_->step < step) && !progress_->failed) std::this_thread::yield();
    std::this_thread::sleep_for(
        std::chrono::microseconds(std::uniform_int_distribution<int>(0, 300)(random)));
  }

  TempFolder folder_{FolderInMemory()};
  EveningOnDisk evening_{folder_.Real(), folder_.Path()};
  Progress* progress_ = nullptr;
};

TEST_F(KillTest, AnUndisturbedEveningWritesTheSameOnDiskAsInMemory) {
  Recover();
}

TEST_F(KillTest, BeforeAnyFileCallLeavesOldOrNew) {
  const int calls = EveningRecord::Get().Calls();
  const int points = RunsLong() ? calls : 30;
  for (int i = 1; i <= points && !HasFailure(); ++i) {
    evening_.PutFiles();
    EXPECT_TRUE(WasKilled(Start(i * calls / points)));
    Judge();
  }
  Recover();
}

// A few, or as many as VESTREL_KILLS says; 100,000 in the long form. VESTREL_SEED gives other moments.
TEST_F(KillTest, AtRandomMomentsLosesNothing) {
  const int kills = Times("VESTREL_KILLS", RunsLong() ? 100'000 : 30);
  std::mt19937 random(static_cast<unsigned>(Times("VESTREL_SEED", 7)));
  int killed = 0;
  int inside = 0;
  int round = 0;
  for (; killed < kills && round < 3 * kills && !HasFailure(); ++round) {
    if (round % 100 == 99) Recover();
    evening_.PutFiles();
    const pid_t child = Start();
    WaitForARandomMoment(random);
    kill(child, SIGKILL);
    if (!WasKilled(child)) continue;
    ++killed;
    inside += progress_->inSave ? 1 : 0;
    Judge();
    if (killed % 1000 == 0) std::printf("%d killed, %d inside a save\n", killed, inside);
  }
  EXPECT_EQ(killed, kills) << "of " << round;
  EXPECT_GE(inside * 2, killed);
  RecordProperty("killed", killed);
  RecordProperty("inside a save", inside);
}

}  // namespace
}  // namespace vestrel::test
