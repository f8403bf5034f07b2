// Two processes at one settings file, and a disk that is really full.
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <functional>

#include "storage/IniBatch.h"
#include "storage/clsIniFile.h"
#include "storage/clsMultiFile.h"
#include "tests/faults/Faults.h"
#include "tests/faults/RisingNumbers.h"
#include "tests/support/Errors.h"
#include "tests/support/TempFolder.h"

namespace vestrel::test {
namespace {

namespace fs = std::filesystem;

// Runs in a process of its own; what it answers is its exit status.
pid_t InAnother(const std::function<int()>& action) {
  const pid_t child = fork();
  if (child != 0) return child;
  int status = 99;
  try {
    status = action();
  } catch (...) {
    status = 98;
  }
  _exit(status);
}

int StatusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 100;
}

Ref<clsIniFile> Settings(const TempFolder& folder) {
  auto file = MakeRef<clsIniFile>();
  file->UseFile(folder.Path("pageSetting.ini"));
  return file;
}

// VESTREL_WRITES says how many writes each process makes; those of the long form take about a minute on two
// idle cores.
TEST(SharedFileTest, TwoProcessesLoseNothingOfEachOther) {
  const std::int32_t count = Times("VESTREL_WRITES", RunsLong() ? 300'000 : 300);
  const TempFolder folder;
  folder.Put("pageSetting.ini", "[Kept]\r\nk=1\r\n");
  const std::u16string path = folder.Path("pageSetting.ini");
  const pid_t one = InAnother([&] { return WriteRising(path, 1, count); });
  const pid_t two = InAnother([&] { return WriteRising(path, 2, count); });
  const pid_t reader = InAnother([&] { return ReadRising(path, count); });
  EXPECT_EQ(StatusOf(one), 0);
  EXPECT_EQ(StatusOf(two), 0);
  EXPECT_EQ(StatusOf(reader), 0) << "3: a torn read, 4: an update was lost";
  EXPECT_EQ(LastRising(path, 1), count);
  EXPECT_EQ(LastRising(path, 2), count);
  EXPECT_NE(folder.Get("pageSetting.ini").find("[Kept]\r\nk=1\r\n"), std::string::npos);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Real()), fs::directory_iterator()), 1);
}

// ---- A file system of 64 KB, mounted where only this process sees it ----

constexpr int kCannotMount = 77;

void Tell(const char* file, const std::string& text) {
  std::ofstream(file) << text;
}

// A namespace of mounts that no one else sees; for others than the superuser where the system lets them be it
// in a namespace of their own.
bool EnterANamespace() {
  const std::string user = std::to_string(getuid());
  const std::string group = std::to_string(getgid());
  if (unshare(CLONE_NEWNS) == 0) return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
  Tell("/proc/self/setgroups", "deny");
  Tell("/proc/self/uid_map", "0 " + user + " 1");
  Tell("/proc/self/gid_map", "0 " + group + " 1");
  return true;
}

bool MountASmallDisk(const fs::path& where) {
  return EnterANamespace() && mount("tmpfs", where.c_str(), "tmpfs", 0, "size=64k") == 0;
}

std::string Filled(const TempFolder& folder) {
  std::ofstream filler(folder.Real("filler"), std::ios::binary);
  const std::string block(1024, 'x');
  while (filler.write(block.data(), 1024) && filler.flush()) {
  }
  return folder.Get("pageSetting.ini");
}

bool SavesAPage(const Ref<clsIniFile>& file, std::size_t length) {
  std::u16string value(length, u'v');
  IniBatch batch(*file, Sync::Yes);
  file->WriteString(u"long", value);
  return batch.Commit();
}

std::int32_t SaveMulti(const TempFolder& folder) {
  const auto multi = MakeRef<clsMultiFile>();
  multi->Init(folder.Path(), u"Gala", u"Act 1", u"Calm");
  for (int i = 0; i < 200; ++i) multi->AddSequence(MakeRef<clsSequence>().get());
  return RaisedNumber([&] { multi->Save(); });
}

int FillTheDisk(const TempFolder& folder, int rounds) {
  if (!MountASmallDisk(folder.Real())) return kCannotMount;
  fs::create_directories(folder.Real("Sequences/Gala/Act 1"));
  folder.Put("Sequences/Gala/Act 1/Calm.MUL", "1,1\r\n0\r\n");
  const Ref<clsIniFile> file = Settings(folder);
  for (int round = 0; round < rounds; ++round) {
    if (!SavesAPage(file, static_cast<std::size_t>(100 + round % 50))) return 1;
    const std::string before = Filled(folder);
    if (SavesAPage(file, 5000)) return 2;
    if (folder.Get("pageSetting.ini") != before) return 3;
    if (SaveMulti(folder) != Error_DiskFull) return 4;
    if (folder.Get("Sequences/Gala/Act 1/Calm.MUL") != "1,1\r\n0\r\n") return 5;
    fs::remove(folder.Real("filler"));
    if (!SavesAPage(file, 5000)) return 6;
    if (fs::exists(folder.Real("pageSetting.ini.new~"))) return 7;
  }
  return 0;
}

// ---- A system that lets no file grow beyond 4 KB, which every system can be ----

bool LetFilesGrowTo(rlim_t bytes) {
  rlimit limit{};
  if (getrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
  limit.rlim_cur = std::min(bytes, limit.rlim_max);
  return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

int ReachTheLimit(const TempFolder& folder, int rounds) {
  std::signal(SIGXFSZ, SIG_IGN);
  fs::create_directories(folder.Real("Sequences/Gala/Act 1"));
  folder.Put("Sequences/Gala/Act 1/Calm.MUL", "1,1\r\n0\r\n");
  const Ref<clsIniFile> file = Settings(folder);
  for (int round = 0; round < rounds; ++round) {
    if (!LetFilesGrowTo(4096)) return 1;
    if (!SavesAPage(file, static_cast<std::size_t>(100 + round % 50))) return 2;
    const std::string before = folder.Get("pageSetting.ini");
    if (SavesAPage(file, 5000)) return 3;
    if (folder.Get("pageSetting.ini") != before) return 4;
    if (SaveMulti(folder) != Error_DiskFull) return 5;
    if (folder.Get("Sequences/Gala/Act 1/Calm.MUL") != "1,1\r\n0\r\n") return 6;
    if (!LetFilesGrowTo(RLIM_INFINITY)) return 7;
    if (!SavesAPage(file, 5000)) return 8;
    if (fs::exists(folder.Real("pageSetting.ini.new~"))) return 9;
  }
  return 0;
}

TEST(FullDiskTest, AFileThatMayNotGrowFailsTellsAndChangesNothing) {
  const TempFolder folder(FolderInMemory());
  const int rounds = RunsLong() ? 1000 : 20;
  EXPECT_EQ(StatusOf(InAnother([&] { return ReachTheLimit(folder, rounds); })), 0);
}

TEST(FullDiskTest, FailsTellsAndChangesNothing) {
  const TempFolder folder;
  const int rounds = RunsLong() ? 1000 : 20;
  const int status = StatusOf(InAnother([&] { return FillTheDisk(folder, rounds); }));
  if (status == kCannotMount) GTEST_SKIP() << "this system lets us mount no file system";
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace vestrel::test
