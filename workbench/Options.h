// The command line of the workbench, read. Does nothing about it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vestrel::workbench {

// What is wrong with the command line, for the operator.
class BadUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class Task : char { ServePage, PlayCommands, Replay, ShowHelp, ListOperations };

struct Options {
  Task task = Task::ServePage;
  // File of commands; "-" for standard input.
  std::string commands;
  // Empty: "data" for the page; otherwise a new folder among the system's temporary ones.
  std::string dataFolder;
  // With commands: whether the data folder begins with the sample show, and whether the run is told as a
  // story.
  bool withSample = false;
  bool tellsStory = false;
  // Where the sample show and the evening are.
  std::string examples;
  // The page's port; none: the first free one from 8420 on.
  std::optional<std::uint16_t> port;
  // The address that the page is served on, and what its visitors must know.
  std::string listen = "127.0.0.1";
  std::string token;
  bool opensBrowser = true;
  // The file that every call is written to; empty: none.
  std::string journal;
  std::uint64_t journalBytes = 256ULL * 1024 * 1024;
  // The journal that is performed again.
  std::string replay;
};

// Reads the arguments after the program's name. Raises BadUsage.
Options ReadOptions(std::span<const std::string_view> arguments);

std::string_view HelpText();

}  // namespace vestrel::workbench
