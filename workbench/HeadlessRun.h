// One run without a screen: a data folder, the simulated host in it, commands from a stream, everything
// printed to another.
#pragma once

#include <cstddef>
#include <filesystem>
#include <iosfwd>

namespace vestrel::workbench {

enum class RunStyle : char {
  Commands,  // only what the commands do
  Story,     // comments as well, and at the end which files changed
};

// Plays `commands` in the folder, which exists and whose path is absolute. The result is how many commands
// were bad or failed. Raises what the host raises when it cannot start.
std::size_t PlayHeadless(const std::filesystem::path& dataFolder, std::istream& commands, std::ostream& out,
                         RunStyle style);

// Writes every operation with its arguments.
void ListOperations(std::ostream& out);

}  // namespace vestrel::workbench
