// A whole evening of an operator: the sample evening's commands through the host that has no screen, on a
// data folder of its own, with all that it loads and saves.
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

#include "bench/support/Bench.h"
#include "bench/support/Folder.h"
#include "workbench/DataFolder.h"
#include "workbench/HeadlessRun.h"

namespace {

using namespace vestrel;

struct Evening {
  Evening() {
    std::ifstream file(std::string(VESTREL_EXAMPLES) + "/evening.txt", std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    commands = text.str();
    if (commands.empty()) throw std::runtime_error("there is no evening.txt");
  }

  void Prepare() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    workbench::CopyShows(std::filesystem::path(VESTREL_EXAMPLES) / "shows", folder);
  }
  void Play() {
    std::istringstream in(commands);
    std::ostringstream out;
    if (workbench::PlayHeadless(folder, in, out, workbench::RunStyle::Commands) != 0) {
      throw std::runtime_error("the evening failed");
    }
    bench::Keep(out.str().size());
  }

  std::string commands;
  const std::filesystem::path folder = bench::Folder() + "/evening";
};

}  // namespace

void AddCases() {
  const auto evening = std::make_shared<Evening>();
  const auto play = [=] { evening->Play(); };
  const auto prepare = [=] { evening->Prepare(); };
  bench::Add(bench::Case{"evening, processor", "Vestrel", 1, 1, play, prepare});
  bench::Add(bench::Case{"evening, with the disk", "Vestrel", 1, 1, play, prepare, true});
  bench::Add(bench::Claim{"a whole operator evening, processor", "evening, processor", 1, ""});
  bench::Add(bench::Claim{"a whole operator evening, with the disk", "evening, with the disk", 1, ""});
}
