// What is wrong with names and paths that an operator gives: the library takes any, but not every folder,
// list or page file does. Pure functions; a problem is a sentence for the operator, the empty text none.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vestrel::workbench {

// Names of shows and pages, which become folders and stand in lists.
std::string FolderNameProblem(std::string_view name);
// Names of buttons, which become fields of a line and names of files.
std::string ButtonNameProblem(std::string_view name);
// Paths below the data folder, as they are written in commands: relative, with "/" or "\". Links are
// followed.
std::string PathProblem(std::string_view path, const std::filesystem::path& dataFolder);

}  // namespace vestrel::workbench
