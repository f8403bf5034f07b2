#include "workbench/server/WrittenFiles.h"

#include <algorithm>

#include "core/Convert.h"

namespace vestrel::workbench {

using platform::FileStatus;
using platform::OpenMode;

namespace {

constexpr std::string_view kLogFile = "vestrel.log";

bool IsWritten(OpenMode mode) {
  return mode == OpenMode::Create || mode == OpenMode::CreateNew || mode == OpenMode::Append;
}

}  // namespace

std::vector<std::string> WrittenFiles::Take() {
  std::vector<std::string> taken(written_.begin(), written_.end());
  written_.clear();
  return taken;
}

FileStatus WrittenFiles::Noted(FileStatus status, std::u16string_view path) {
  if (status != FileStatus::Ok) return status;
  std::string name = ToUtf8(path);
  std::replace(name.begin(), name.end(), '\\', '/');
  std::string folder = ToUtf8(folder_) + "/";
  std::replace(folder.begin(), folder.end(), '\\', '/');
  if (name.starts_with(folder)) name.erase(0, folder.size());
  if (name != kLogFile) written_.insert(std::move(name));
  return status;
}

FileStatus WrittenFiles::Open(std::u16string_view path, OpenMode mode,
                              std::unique_ptr<platform::File>& file) {
  const FileStatus status = inner_.Open(path, mode, file);
  return IsWritten(mode) ? Noted(status, path) : status;
}

FileStatus WrittenFiles::Info(std::u16string_view path, platform::FileInfo& info) {
  return inner_.Info(path, info);
}

FileStatus WrittenFiles::Resolve(std::u16string_view path, std::u16string& real) {
  return inner_.Resolve(path, real);
}

FileStatus WrittenFiles::Replace(std::u16string_view from, std::u16string_view to) {
  return Noted(inner_.Replace(from, to), to);
}

FileStatus WrittenFiles::Remove(std::u16string_view path) {
  return Noted(inner_.Remove(path), path);
}

FileStatus WrittenFiles::MakeDirectory(std::u16string_view path) {
  return Noted(inner_.MakeDirectory(path), path);
}

FileStatus WrittenFiles::SyncDirectory(std::u16string_view path) {
  return inner_.SyncDirectory(path);
}

FileStatus WrittenFiles::List(std::u16string_view path, std::vector<std::u16string>& names) {
  return inner_.List(path, names);
}

}  // namespace vestrel::workbench
