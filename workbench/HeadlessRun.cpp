#include "workbench/HeadlessRun.h"

#include <ostream>

#include "core/Convert.h"
#include "workbench/commands/CommandSession.h"
#include "workbench/commands/FileWatch.h"
#include "workbench/commands/Player.h"
#include "workbench/commands/Printer.h"
#include "workbench/host/SimulatedHost.h"

namespace vestrel::workbench {

std::size_t PlayHeadless(const std::filesystem::path& dataFolder, std::istream& commands, std::ostream& out,
                         RunStyle style) {
  FileWatch watch(dataFolder);
  SimulatedHost host(dataFolder);
  Printer printer(out, ToUtf8(host.appPath()));
  host.calls().SetListener(&printer);
  CommandSession session(host, &watch);
  Player player(session, printer, style == RunStyle::Story);
  player.Play(commands);
  if (style == RunStyle::Story) {
    printer.Plain("");
    printer.Plain("Files:");
    for (const FileChange& change : watch.TakeChanges()) {
      printer.Plain("  " + std::string(FileChangeText(change.kind)) + " " + change.path);
    }
  }
  return player.failures();
}

void ListOperations(std::ostream& out) {
  const OperationTable table;
  for (const auto& [name, operation] : table.all()) out << operation.Usage() << '\n';
}

}  // namespace vestrel::workbench
