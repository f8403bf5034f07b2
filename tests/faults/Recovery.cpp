#include "tests/faults/Recovery.h"

#include <new>

#include "core/Convert.h"
#include "core/Error.h"

namespace vestrel::test {
namespace {

const std::u16string kApp = u"C:\\app";

Paths FirstFiles() {
  Paths files;
  for (const auto& [name, bytes] : Evening::FirstFiles()) files[kApp + u"\\" + name] = bytes;
  return files;
}

// What lies on the disk before each file call of an evening.
const std::vector<Paths>& LeftByKilledEvenings() {
  static const std::vector<Paths> all = [] {
    std::vector<Paths> left;
    Recovery world(FirstFiles());
    world.seam.before = [&](FileCall&) {
      Paths files = world.Files();
      if (left.empty() || left.back() != files) left.push_back(std::move(files));
      return platform::FileStatus::Ok;
    };
    for (int step = 0; step < Evening::kSteps; step += Recovery::kSteps) world.Run(step);
    return left;
  }();
  return all;
}

// Whether a file can be written is tried with a section of its own, which stays.
std::string WithoutTrial(std::string bytes) {
  const std::size_t at = bytes.find("[Test Section]\r\n");
  if (at == std::string::npos) return bytes;
  const std::size_t end = bytes.find("\r\n[", at);
  return bytes.erase(at, end == std::string::npos ? end : end + 2 - at);
}

// What the processes answer for: no files on the way to their names.
Paths Judged(const Recovery& recovery) {
  Paths files;
  for (const auto& [path, bytes] : recovery.Files()) {
    if (!IsScratch(path)) files[path] = WithoutTrial(bytes);
  }
  return files;
}

template <class Work>
int ErrorsOf(Work work) {
  try {
    work();
    return 0;
  } catch (const Error&) {
    return 1;
  } catch (const std::bad_alloc&) {
    return 1;
  }
}

}  // namespace

Recovery::Recovery(const Paths& left) {
  services_.moduleFolder = kApp;
  memory.PutFolder(kApp);
  for (const auto& [path, bytes] : left) memory.Put(path, bytes);
  seam.before = [this](FileCall& call) { return point(call); };
}

int Recovery::Run(int firstStep, int without) {
  Evening evening(kApp, clock);
  if (ErrorsOf([&] { evening.Begin(); }) != 0) return 1;
  int errors = ErrorsOf([&] { evening.Load(); });
  for (int step = firstStep; step < firstStep + kSteps; ++step) {
    if (step != without) errors += ErrorsOf([&] { evening.Step(step); });
  }
  return errors;
}

Paths Recovery::Files() const {
  Paths files;
  for (const std::u16string& path : memory.Paths()) {
    if (!path.ends_with(u"log.txt")) files[path] = memory.Get(path);
  }
  return files;
}

void Recovery::NoteInto(History& history) {
  const auto noteAll = [this, &history](bool isNew) {
    for (const auto& [path, bytes] : Judged(*this)) history.Note(path, bytes, isNew);
  };
  noteAll(false);
  seam.after = [noteAll](const FileCall& call) {
    if (call.name == "WriteAt" || call.name == "Replace" || call.name == "Close") noteAll(true);
  };
}

KilledEvening::KilledEvening(std::mt19937& random) {
  const auto any = [&random](std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
  };
  const std::vector<Paths>& all = LeftByKilledEvenings();
  left = &all[any(all.size())];
  firstStep = static_cast<int>(any(10)) * Recovery::kSteps;
  // A step that fails does nothing, and the next ones go on from there.
  for (int without = firstStep; without < firstStep + Recovery::kSteps; ++without) NoteARun(without);
  calls = NoteARun(-1);
  // A take where the page could not be read has no events.
  history_.Note(kApp + u"\\take.txt", "0\r\n", false);
}

int KilledEvening::NoteARun(int without) {
  Recovery recovery(*left);
  recovery.NoteInto(history_);
  recovery.point.Begin(0, kFaults[0]);
  recovery.Run(firstStep, without);
  return recovery.point.Calls();
}

std::string KilledEvening::StrangeFile(const Recovery& recovery) const {
  for (const auto& [path, bytes] : Judged(recovery)) {
    const std::string strange = history_.Strange(path, bytes);
    if (!strange.empty()) return ToUtf8(path) + " " + strange;
  }
  return {};
}

std::string KilledEvening::FaultsOf(Recovery& recovery) const {
  if (recovery.seam.OpenFiles() != 0) return "a file stays open";
  if (std::string strange = StrangeFile(recovery); !strange.empty()) return strange;
  // Two processes, since every other one has no guest page.
  int errors = recovery.Run(firstStep);
  errors += recovery.Run(firstStep + Recovery::kSteps);
  if (errors != 0) return "the processes after it cannot work";
  for (const auto& [path, bytes] : recovery.Files()) {
    if (IsScratch(path)) return ToUtf8(path) + " stays";
  }
  return {};
}

}  // namespace vestrel::test
