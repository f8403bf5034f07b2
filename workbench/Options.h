// The command line of the workbench, read. Does nothing about it.
#pragma once

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

enum class Task : char { PlayEvening, PlayCommands, ShowHelp, ListOperations };

struct Options {
  Task task = Task::PlayEvening;
  // File of commands; "-" for standard input.
  std::string commands;
  // Empty: a new folder among the system's temporary ones.
  std::string dataFolder;
  // Whether the data folder begins with the sample show.
  bool withSample = true;
  // Where the sample show and the evening are.
  std::string examples;
};

// Reads the arguments after the program's name. Raises BadUsage.
Options ReadOptions(std::span<const std::string_view> arguments);

std::string_view HelpText();

}  // namespace vestrel::workbench
