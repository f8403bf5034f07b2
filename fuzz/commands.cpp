// Headless commands: any text plays to its end; only the library's own errors are told, the pages stay in
// order, and the same commands print the same a second time.
#include <sstream>

#include "core/Cast.h"
#include "core/Convert.h"
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "fuzz/WorkbenchFiles.h"
#include "tests/component/CallerPool.h"
#include "tests/scenarios/PageFaults.h"
#include "workbench/commands/Player.h"
#include "workbench/commands/Word.h"

namespace vestrel::fuzz {
namespace {

using namespace workbench;

// A run that waits for hours only counts ticks.
bool TakesLong(std::string_view line) {
  try {
    const std::vector<Word> words = SplitLine(line);
    if (words.size() < 2) return false;
    if (words[0].text == "host.interval") return words.back().text.size() < 3;
    return words[0].text == "wait" && words[1].text.size() > 4;
  } catch (const BadCommand&) {
    return false;
  }
}

std::string Played(std::string_view commands) {
  WorkbenchFiles files;
  std::ostringstream out;
  {
    SimulatedHost host(kDataFolder);
    Printer printer(out, ToUtf8(host.appPath()));
    host.calls().SetListener(&printer);
    CommandSession session(host, nullptr);
    Player player(session, printer);
    for (const std::string_view line : Split(commands, '\n')) {
      if (TakesLong(line)) continue;
      player.PlayLine(line);
      const std::string faults = test::FaultsOf(*host.controller().PageManager()->CurrentPage());
      Expect(faults.empty(), faults);
    }
    test::CloseTextFiles();
  }
  return std::move(out).str();
}

}  // namespace
}  // namespace vestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vestrel::fuzz;
  const std::string_view commands = AsText(data, size);
  const std::string printed = Played(commands);
  Expect(printed.find("\n  ! failure: ") == std::string::npos, "something else than an error: " + printed);
  ExpectSame(Played(commands), printed, "what is printed a second time");
  return 0;
}
