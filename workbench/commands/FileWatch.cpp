#include "workbench/commands/FileWatch.h"

#include <algorithm>

#include "workbench/commands/FileText.h"

namespace vestrel::workbench {

namespace fs = std::filesystem;

std::string_view FileChangeText(FileChangeKind kind) {
  switch (kind) {
    case FileChangeKind::Made:
      return "new";
    case FileChangeKind::Changed:
      return "changed";
    default:
      return "deleted";
  }
}

FileWatch::FileWatch(fs::path folder) : folder_(std::move(folder)), seen_(Look()) {}

std::vector<FileChange> FileWatch::TakeChanges() {
  Picture now = Look();
  std::vector<FileChange> changes;
  for (const auto& [path, contents] : now) {
    const auto before = seen_.find(path);
    if (before == seen_.end()) {
      changes.push_back({path, FileChangeKind::Made});
    } else if (before->second != contents) {
      changes.push_back({path, FileChangeKind::Changed});
    }
  }
  for (const auto& [path, contents] : seen_) {
    if (!now.contains(path)) changes.push_back({path, FileChangeKind::Deleted});
  }
  std::sort(changes.begin(), changes.end(), [](const auto& a, const auto& b) { return a.path < b.path; });
  seen_ = std::move(now);
  return changes;
}

FileWatch::Picture FileWatch::Look() const {
  Picture picture;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder_)) {
    if (entry.is_regular_file())
      picture.emplace(PathText(entry.path().lexically_relative(folder_)), FileContents(entry));
  }
  return picture;
}

}  // namespace vestrel::workbench
