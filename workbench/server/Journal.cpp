#include "workbench/server/Journal.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <vector>

#include "core/Convert.h"
#include "core/Version.h"
#include "workbench/Options.h"
#include "workbench/commands/FileText.h"
#include "workbench/host/SimulatedHost.h"
#include "workbench/server/Names.h"

namespace vestrel::workbench {

using nlohmann::json;
namespace fs = std::filesystem;

namespace {

constexpr int kFormat = 1;

fs::path PathFrom(const std::string& utf8) {
  return FromUtf8(utf8);
}

// Each byte as the character of its number, so that files of text stay readable.
std::string BytesAsText(const std::string& bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) text += static_cast<char16_t>(static_cast<unsigned char>(byte));
  return ToUtf8(text);
}

std::string TextAsBytes(const std::string& text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const char16_t unit : FromUtf8(text)) bytes += static_cast<char>(unit);
  return bytes;
}

}  // namespace

// ---- Writing ----

JournalWriter::JournalWriter(fs::path file, const JournalLimits& limits)
    : file_(std::move(file)), limits_(limits) {}

JournalWriter::~JournalWriter() {
  Close();
}

void JournalWriter::Close() noexcept {
  if (descriptor_ >= 0) ::close(descriptor_);
  descriptor_ = -1;
}

void JournalWriter::Begin(const fs::path& dataFolder, const ClockStart& start) {
  Close();
  written_ = 0;
  if (fs::exists(file_)) fs::rename(file_, file_.string() + ".1");
  descriptor_ = ::open(file_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600);
  const int error = errno;
  if (descriptor_ < 0) throw std::system_error(error, std::generic_category(), file_.string());
  Write({{"journal", kFormat},
         {"version", ToUtf8(Version())},
         {"ticks", start.ticks},
         {"local", start.local.time_since_epoch().count()}});
  WriteFiles(dataFolder);
  Write({{"begin", true}});
  // The data does not count: a folder of any size can be kept.
  written_ = 0;
}

void JournalWriter::WriteFiles(const fs::path& dataFolder) {
  const fs::path log = dataFolder / SimulatedHost::kLogFile;
  std::uint64_t left = limits_.snapshot;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(dataFolder)) {
    const std::string name = PathText(entry.path().lexically_relative(dataFolder));
    std::error_code same;
    if (entry.path() == log || fs::equivalent(entry.path(), file_, same)) continue;
    if (entry.is_directory()) {
      Write({{"folder", name}});
    } else if (entry.is_regular_file() && entry.file_size() <= left) {
      left -= entry.file_size();
      Write({{"file", name}, {"bytes", BytesAsText(FileContents(entry.path()))}});
    } else {
      Write({{"left", name}});
    }
  }
}

void JournalWriter::Write(const json& line) {
  if (descriptor_ < 0) return;
  std::string text = line.dump(-1, ' ', false, json::error_handler_t::replace) + '\n';
  if (written_ > 2 * limits_.bytes) text = "{\"full\":true}\n";
  std::string_view rest = text;
  while (!rest.empty()) {
    const ssize_t done = ::write(descriptor_, rest.data(), rest.size());
    if (done < 0 && errno == EINTR) continue;
    // A disk that is full ends the journal, not the evening.
    if (done <= 0) return Close();
    rest.remove_prefix(static_cast<std::size_t>(done));
  }
  if (written_ > 2 * limits_.bytes) return Close();
  written_ += text.size();
}

// ---- Reading ----

JournalReader::JournalReader(const fs::path& file) : stream_(file, std::ios::binary) {
  const json* first = stream_ && !fs::is_directory(file) ? Peek() : nullptr;
  if (first == nullptr || !first->contains("journal")) {
    throw BadUsage("this is no journal that can be read: " + file.string());
  }
  if ((*first)["journal"] != kFormat) throw BadUsage("the journal has another format: " + file.string());
  start_ = {first->value("ticks", std::uint64_t{0}),
            std::chrono::sys_seconds{std::chrono::seconds{first->value("local", std::int64_t{0})}}};
  Take();
}

void JournalReader::RestoreFiles(const fs::path& folder) {
  for (const json* line = Peek(); line != nullptr && !line->contains("begin"); line = Peek()) {
    RestoreOne(folder, *line);
    filesLeftOut_ += line->contains("left") ? 1U : 0U;
    Take();
  }
  Take();
}

void JournalReader::SkipFiles() {
  for (const json* line = Peek(); line != nullptr && !line->contains("begin"); line = Peek()) Take();
  Take();
}

void JournalReader::RestoreOne(const fs::path& folder, const json& line) const {
  const bool isFile = line.contains("file");
  if (!isFile && !line.contains("folder")) return;
  const std::string name = line.value(isFile ? "file" : "folder", "");
  // A journal may come from anywhere.
  if (name.empty() || !PathProblem(name, folder).empty())
    throw BadUsage("the journal holds a file outside its data folder");
  const fs::path path = folder / PathFrom(name);
  fs::create_directories(isFile ? path.parent_path() : path);
  if (!isFile) return;
  std::ofstream stream(path, std::ios::binary);
  stream << TextAsBytes(line.value("bytes", ""));
}

const json* JournalReader::Peek() {
  if (next_) return &*next_;
  std::string text;
  if (!std::getline(stream_, text)) return nullptr;
  // Without its line end the line is torn.
  if (stream_.eof()) return nullptr;
  json line = json::parse(text, nullptr, false);
  if (!line.is_object()) return nullptr;
  ++lineNumber_;
  next_ = std::move(line);
  return &*next_;
}

}  // namespace vestrel::workbench
