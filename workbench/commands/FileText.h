// Paths and contents of files as text.
#pragma once

#include <filesystem>
#include <string>

namespace vestrel::workbench {

// With "/", UTF-8.
std::string PathText(const std::filesystem::path& path);
// All bytes; none of a file that cannot be read.
std::string FileContents(const std::filesystem::path& file);

}  // namespace vestrel::workbench
