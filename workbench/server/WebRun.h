// The workbench as a program: the page is served until the operator or the system ends it.
#pragma once

#include <filesystem>
#include <iosfwd>

#include "workbench/Options.h"

namespace vestrel::workbench {

// Serves the page on the data folder, which exists and whose path is absolute, and tells on `out` where it is
// reached ("Vestrel workbench: http://127.0.0.1:8420/"). Returns when SIGINT or SIGTERM came and the host has
// saved and shut down. Raises BadUsage when the address or port cannot be used.
void ServePage(const std::filesystem::path& dataFolder, const Options& options, std::ostream& out);

}  // namespace vestrel::workbench
