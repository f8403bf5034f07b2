#include "workbench/server/WrittenFiles.h"

#include <algorithm>
#include <utility>

#include "core/Convert.h"
#include "storage/ScratchFile.h"
#include "workbench/host/SimulatedHost.h"

namespace vestrel::workbench {

using platform::File;
using platform::FileStatus;
using platform::OpenMode;

namespace {

// Whether opening alone changes the file.
bool IsWritten(OpenMode mode) {
  return mode == OpenMode::Create || mode == OpenMode::CreateNew || mode == OpenMode::Append ||
         mode == OpenMode::AppendOn;
}

std::string WithSlashes(std::u16string_view path) {
  std::string name = ToUtf8(path);
  std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

class NotedFile : public PassedFile {
 public:
  NotedFile(std::unique_ptr<File> inner, std::string name, std::shared_ptr<std::set<std::string>> written)
      : PassedFile(std::move(inner)), name_(std::move(name)), written_(std::move(written)) {}

  FileStatus WriteAt(std::uint64_t offset, std::span<const char> bytes, std::size_t& done) override {
    const FileStatus status = PassedFile::WriteAt(offset, bytes, done);
    // Also what was cut short.
    if (done > 0) Note();
    return status;
  }
  FileStatus Truncate(std::uint64_t size) override {
    const FileStatus status = PassedFile::Truncate(size);
    if (status == FileStatus::Ok) Note();
    return status;
  }

 private:
  void Note() {
    if (!name_.empty()) written_->insert(name_);
  }

  std::string name_;
  std::shared_ptr<std::set<std::string>> written_;
};

}  // namespace

WrittenFiles::WrittenFiles(std::u16string_view folder, platform::Files& inner)
    : PassedFiles(inner), folder_(WithSlashes(folder) + "/") {}

std::vector<std::string> WrittenFiles::Take() {
  std::vector<std::string> taken(written_->begin(), written_->end());
  written_->clear();
  return taken;
}

std::string WrittenFiles::NameOf(std::u16string_view path) const {
  if (path.ends_with(ScratchFile::kSettings) || path.ends_with(ScratchFile::kText)) return {};
  std::string name = WithSlashes(path);
  if (name.starts_with(folder_)) name.erase(0, folder_.size());
  return name == ToUtf8(SimulatedHost::kLogFile) ? std::string() : name;
}

FileStatus WrittenFiles::Noted(FileStatus status, std::u16string_view path) {
  std::string name = NameOf(path);
  if (status == FileStatus::Ok && !name.empty()) written_->insert(std::move(name));
  return status;
}

FileStatus WrittenFiles::Open(std::u16string_view path, OpenMode mode, std::unique_ptr<File>& file) {
  const FileStatus status = PassedFiles::Open(path, mode, file);
  if (status != FileStatus::Ok) return status;
  file = std::make_unique<NotedFile>(std::move(file), NameOf(path), written_);
  return IsWritten(mode) ? Noted(status, path) : status;
}

FileStatus WrittenFiles::Replace(std::u16string_view from, std::u16string_view to) {
  return Noted(PassedFiles::Replace(from, to), to);
}

FileStatus WrittenFiles::Remove(std::u16string_view path) {
  return Noted(PassedFiles::Remove(path), path);
}

FileStatus WrittenFiles::MakeDirectory(std::u16string_view path) {
  return Noted(PassedFiles::MakeDirectory(path), path);
}

}  // namespace vestrel::workbench
