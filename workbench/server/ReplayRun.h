// A replay as the program does it: on a copy of the data that is thrown away, with a report for the reader.
#pragma once

#include <filesystem>
#include <iosfwd>

namespace vestrel::workbench {

// Replays the journal on the files that it holds or, when `data` is not empty, on a copy of that folder.
// Answers whether everything was the same. Raises BadUsage when the journal or the folder cannot be read.
bool ReplayJournal(const std::filesystem::path& journal, const std::filesystem::path& data,
                   std::ostream& out);

}  // namespace vestrel::workbench
