// Notices which files under a folder were made, changed or deleted since the last look, by their contents.
// Owned by the front end.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vestrel::workbench {

enum class FileChangeKind : std::uint8_t { Made, Changed, Deleted };

// "new", "changed" or "deleted".
std::string_view FileChangeText(FileChangeKind kind);

struct FileChange {
  // Below the folder, with "/", UTF-8.
  std::string path;
  FileChangeKind kind;
};

class FileWatch {
 public:
  // What is there now counts as seen.
  explicit FileWatch(std::filesystem::path folder);

  // What happened since the last call, by path.
  std::vector<FileChange> TakeChanges();

 private:
  // Path below the folder and contents.
  using Picture = std::map<std::string, std::string>;
  Picture Look() const;

  std::filesystem::path folder_;
  Picture seen_;
};

}  // namespace vestrel::workbench
