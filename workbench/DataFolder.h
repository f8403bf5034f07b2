// The folder that a run works in.
#pragma once

#include <filesystem>
#include <string>

namespace vestrel::workbench {

// Makes the folder `wanted`, or a new one among the temporary ones when it is empty, and answers its absolute
// path. Raises BadUsage when that is not possible.
std::filesystem::path OpenDataFolder(const std::string& wanted);

// Copies the shows that the data folder does not have. Raises BadUsage when there are none.
void AddMissingShows(const std::filesystem::path& shows, const std::filesystem::path& dataFolder);

// Copies every show of `shows` into the data folder. Raises BadUsage when there are none or a show of that
// name is there already: what an operator has there is never overwritten.
void CopyShows(const std::filesystem::path& shows, const std::filesystem::path& dataFolder);

}  // namespace vestrel::workbench
