// The flight recorder's file: one JSON object a line (docs/workbench-protocol.md, "The journal"). It begins
// with when the host was started and what its data folder held, and goes on with every call, callback, dialog
// and result in order. Each line is handed to the system as it happens, so that a crash of the program loses
// none; a last line that is torn is not read.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "workbench/host/SimulatedClock.h"
#include "workbench/server/JournalLines.h"

namespace vestrel::workbench {

// When a part is full, and how much of the data folder's files it keeps, in bytes.
struct JournalLimits {
  std::uint64_t bytes = 256ULL * 1024 * 1024;
  std::uint64_t snapshot = 64ULL * 1024 * 1024;
};

// Writes a journal. Owned by the front end.
class JournalWriter : public JournalLines {
 public:
  // Nothing is written before Begin.
  explicit JournalWriter(std::filesystem::path file, const JournalLimits& limits = {});
  ~JournalWriter() override;

  // Starts a part: what stands in the file moves to "<file>.1" (in place of what was there), and the clock
  // and the folder's files are written. To be called before the first command of a host. Raises
  // std::filesystem or std::system errors when the file cannot be written.
  void Begin(const std::filesystem::path& dataFolder, const ClockStart& start);

  // Whether the part has reached its size: the host should be started anew at a quiet moment, with Begin. At
  // twice its size the part ends with a line that says so, and nothing more is written.
  bool IsFull() const noexcept { return written_ >= limits_.bytes; }

 private:
  void Happened(const nlohmann::json& line) override { Write(line); }
  void Write(const nlohmann::json& line);
  void WriteFiles(const std::filesystem::path& dataFolder);
  void Close() noexcept;

  std::filesystem::path file_;
  JournalLimits limits_;
  int descriptor_ = -1;
  std::uint64_t written_ = 0;
};

// Reads a journal, line after line.
class JournalReader {
 public:
  // Raises BadUsage when the file cannot be read or is no journal.
  explicit JournalReader(const std::filesystem::path& file);

  const ClockStart& start() const noexcept { return start_; }
  // Puts the files that the journal's host began with into an empty folder; to be called once, first.
  void RestoreFiles(const std::filesystem::path& folder);
  // The same place in the journal, and no files.
  void SkipFiles();
  // Files that were too large to be kept.
  std::size_t filesLeftOut() const noexcept { return filesLeftOut_; }

  // The next line, or null at the end or at a line that is torn. Stays until it is taken.
  const nlohmann::json* Peek();
  void Take() { next_.reset(); }
  // The number, from 1, of the line that Peek answers.
  std::uint64_t lineNumber() const noexcept { return lineNumber_; }

 private:
  void RestoreOne(const std::filesystem::path& folder, const nlohmann::json& line) const;

  std::ifstream stream_;
  ClockStart start_;
  std::optional<nlohmann::json> next_;
  std::uint64_t lineNumber_ = 0;
  std::size_t filesLeftOut_ = 0;
};

}  // namespace vestrel::workbench
