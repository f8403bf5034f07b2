// The workbench program: reads its command line and starts what it asks for.
#include <exception>
#include <fstream>
#include <iostream>
#include <string_view>
#include <vector>

#include "workbench/DataFolder.h"
#include "workbench/HeadlessRun.h"
#include "workbench/Options.h"
#ifdef VESTREL_WEB
#include "workbench/server/ReplayRun.h"
#include "workbench/server/WebRun.h"
#endif

namespace vestrel::workbench {

namespace {

constexpr int kCommandsFailed = 1;
constexpr int kBadUsage = 2;

std::filesystem::path Examples(const Options& options) {
  return options.examples.empty() ? "examples" : options.examples;
}

std::ifstream OpenCommands(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream || std::filesystem::is_directory(file)) {
    throw BadUsage("the commands cannot be read: " + file.string());
  }
  return stream;
}

std::size_t Play(const std::filesystem::path& dataFolder, const Options& options) {
  const RunStyle style = options.tellsStory ? RunStyle::Story : RunStyle::Commands;
  if (options.commands == "-") return PlayHeadless(dataFolder, std::cin, std::cout, style);
  std::ifstream commands = OpenCommands(options.commands);
  return PlayHeadless(dataFolder, commands, std::cout, style);
}

int RunCommands(const Options& options) {
  if (options.commands != "-") OpenCommands(options.commands);
  const std::filesystem::path dataFolder = OpenDataFolder(options.dataFolder);
  std::cerr << "Data folder: " << dataFolder.string() << '\n';
  if (options.withSample) CopyShows(Examples(options) / "shows", dataFolder);
  return Play(dataFolder, options) == 0 ? 0 : kCommandsFailed;
}

#ifdef VESTREL_WEB

int RunPage(const Options& options) {
  const std::filesystem::path dataFolder =
      OpenDataFolder(options.dataFolder.empty() ? "data" : options.dataFolder);
  AddMissingShows(Examples(options) / "shows", dataFolder);
  ServePage(dataFolder, options, std::cout);
  return 0;
}

int RunReplay(const Options& options) {
  return ReplayJournal(options.replay, options.dataFolder, std::cout) ? 0 : kCommandsFailed;
}

#else

int RunPage(const Options&) {
  throw BadUsage("this build has no page; --headless plays commands");
}

int RunReplay(const Options&) {
  throw BadUsage("this build reads no journals; --headless plays commands");
}

#endif

int Run(const Options& options) {
  if (options.task == Task::ShowHelp) {
    std::cout << HelpText();
    return 0;
  }
  if (options.task == Task::ListOperations) {
    ListOperations(std::cout);
    return 0;
  }
  if (options.task == Task::PlayCommands) return RunCommands(options);
  return options.task == Task::Replay ? RunReplay(options) : RunPage(options);
}

}  // namespace

}  // namespace vestrel::workbench

int main(int count, char** values) {
  namespace workbench = vestrel::workbench;
  try {
    const std::vector<std::string_view> arguments(values + (count > 0 ? 1 : 0), values + count);
    return workbench::Run(workbench::ReadOptions(arguments));
  } catch (const workbench::BadUsage& bad) {
    std::cerr << "workbench: " << bad.what() << "\nTry --help.\n";
  } catch (const std::exception& failure) {
    std::cerr << "workbench: " << failure.what() << '\n';
  }
  return workbench::kBadUsage;
}
