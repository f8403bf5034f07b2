// Whole shows: any show file and page files are loaded and operated; the pages stay in order, only the
// library's errors come, and a show that was saved and loaded saves the same bytes from then on.
#include <iterator>

#include "core/Cast.h"
#include "core/Error.h"
#include "fuzz/Check.h"
#include "fuzz/MemoryWorld.h"
#include "fuzz/ShowActions.h"
#include "tests/scenarios/PageFaults.h"

namespace vestrel::fuzz {
namespace {

// From here on a value is cut when it is read.
constexpr std::size_t kLongestLine = 250;

std::string FaultsOf(clsPageManager& manager, test::ListOrder order) {
  if (manager.IsLoading()) return "still loading";
  for (Object* item : manager.PageList()->Snapshot()) {
    const std::string faults = test::FaultsOf(Cast<clsPage>(item), order);
    if (!faults.empty()) return faults;
  }
  return test::FaultsOf(*manager.CurrentPage(), order);
}

void ExpectSound(const ShowStage& stage, test::ListOrder order) {
  const std::string faults = FaultsOf(*stage.controller->PageManager(), order);
  Expect(faults.empty(), faults);
}

template <class Work>
bool Succeeds(Work work) {
  try {
    work();
  } catch (const Error& error) {
    // The controller's own numbers begin with 0.
    Expect(error.number() >= 0, error.what());
    return false;
  }
  return true;
}

// All files of the shows with their paths.
std::string Saved(const test::MemoryFiles& files) {
  std::string all;
  for (const std::u16string& path : files.Paths()) {
    if (!path.ends_with(u".ini")) continue;
    bool lossy = false;
    all += platform::encoding().Narrow(path, lossy) + "\n" + files.Get(path);
  }
  return all;
}

bool HasLongLine(std::string_view text) {
  for (const std::string_view line : Split(text, '\n')) {
    if (line.size() > kLongestLine) return true;
  }
  return false;
}

// Loads the show as it is on disk and saves all of it.
std::string LoadedAndSaved(MemoryWorld& world) {
  const std::string before = Saved(world.files);
  ShowStage stage;
  const bool loaded = Succeeds([&] { stage.controller->LoadShow(kShow); });
  Expect(loaded || HasLongLine(before), "a show that was saved does not load");
  ExpectSound(stage, test::ListOrder::AsRead);
  if (loaded) stage.controller->PageManager()->saveToINI();
  return Saved(world.files);
}

void Run(const std::vector<std::string_view>& pieces) {
  MemoryWorld world;
  static constexpr std::u16string_view kFiles[] = {u"C:\\data\\Sequences\\Show\\pageSetting.ini",
                                                   u"C:\\data\\Sequences\\Show\\One\\pageSetting.ini",
                                                   u"C:\\data\\Sequences\\Show\\Two\\pageSetting.ini"};
  for (std::size_t i = 0; i < std::size(kFiles) && i + 1 < pieces.size(); ++i)
    world.files.Put(kFiles[i], pieces[i]);
  {
    ShowStage stage;
    const bool loaded = Succeeds([&] { stage.controller->LoadShow(kShow); });
    ExpectSound(stage, test::ListOrder::AsRead);
    // A page that a broken load did not come to is read when it is shown.
    const bool inOrder =
        loaded && FaultsOf(*stage.controller->PageManager(), test::ListOrder::ByIndex).empty();
    const auto order = inOrder ? test::ListOrder::ByIndex : test::ListOrder::AsRead;
    Choices choices(pieces.back());
    while (!choices.AtEnd()) {
      Succeeds([&] { Act(stage, world.clock, choices); });
      ExpectSound(stage, order);
    }
    if (!loaded) return;
    stage.controller->PageManager()->saveToINI();
  }
  LoadedAndSaved(world);
  const std::string second = LoadedAndSaved(world);
  ExpectSame(LoadedAndSaved(world), second, "the show saved again");
  Expect(world.files.OpenFiles() == 0, "a file stays open");
}

}  // namespace
}  // namespace vestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vestrel::fuzz;
  Run(Split(AsText(data, size), kPieceEnd));
  return 0;
}
