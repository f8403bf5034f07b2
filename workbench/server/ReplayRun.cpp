#include "workbench/server/ReplayRun.h"

#include <ostream>
#include <system_error>

#include "workbench/DataFolder.h"
#include "workbench/Options.h"
#include "workbench/server/Journal.h"
#include "workbench/server/Replay.h"
#include "workbench/server/WorkSession.h"

namespace vestrel::workbench {

namespace fs = std::filesystem;

namespace {

// A temporary folder that goes with all it holds.
class CopyFolder {
 public:
  CopyFolder() : path_(OpenDataFolder({})) {}
  CopyFolder(const CopyFolder&) = delete;
  CopyFolder& operator=(const CopyFolder&) = delete;
  ~CopyFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  const fs::path& path() const noexcept { return path_; }

 private:
  fs::path path_;
};

void FillFrom(JournalReader& reader, const fs::path& data, const fs::path& folder) {
  if (data.empty()) return reader.RestoreFiles(folder);
  reader.SkipFiles();
  std::error_code error;
  if (!fs::is_directory(data, error)) throw BadUsage("there is no data folder " + data.string());
  fs::copy(data, folder, fs::copy_options::recursive, error);
  if (error) throw BadUsage("the data folder cannot be copied: " + error.message());
}

void Report(const ReplayReport& report, std::ostream& out) {
  out << "Replayed " << report.calls << " calls with " << report.callbacks << " callbacks: ";
  if (report.same) {
    out << "the same\n";
    return;
  }
  out << "different\n"
      << "  line " << report.line << " of the journal: " << report.expected << '\n'
      << "  happened instead: " << report.happened << '\n';
}

}  // namespace

bool ReplayJournal(const fs::path& journal, const fs::path& data, std::ostream& out) {
  JournalReader reader(journal);
  const CopyFolder copy;
  FillFrom(reader, data, copy.path());
  if (reader.filesLeftOut() > 0) {
    out << reader.filesLeftOut()
        << " files were too large for the journal; give the data folder with --data\n";
  }
  WorkSession session(copy.path(), reader.start());
  const ReplayReport report = Replay(reader, session).Run();
  Report(report, out);
  return report.same;
}

}  // namespace vestrel::workbench
