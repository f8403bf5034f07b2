#include "workbench/server/ProgressFiles.h"

#include <string>

namespace vestrel::workbench {

using platform::File;
using platform::FileInfo;
using platform::FileStatus;
using platform::OpenMode;

namespace {

class ToldFile : public PassedFile {
 public:
  ToldFile(std::unique_ptr<File> inner, std::u16string path, const ProgressFiles::Told& told)
      : PassedFile(std::move(inner)), path_(std::move(path)), told_(told) {
    FileInfo info;
    if (PassedFile::Info(info) == FileStatus::Ok) size_ = info.size;
  }

  FileStatus ReadAt(std::uint64_t offset, std::span<char> buffer, std::size_t& done) override {
    const FileStatus status = PassedFile::ReadAt(offset, buffer, done);
    if (status == FileStatus::Ok) Tell(offset + done);
    return status;
  }
  FileStatus WriteAt(std::uint64_t offset, std::span<const char> bytes, std::size_t& done) override {
    const FileStatus status = PassedFile::WriteAt(offset, bytes, done);
    if (status == FileStatus::Ok) Tell(offset + done);
    return status;
  }

 private:
  void Tell(std::uint64_t done) const {
    if (told_) told_(path_, done, size_);
  }

  std::u16string path_;
  const ProgressFiles::Told& told_;
  std::uint64_t size_ = 0;
};

}  // namespace

FileStatus ProgressFiles::Open(std::u16string_view path, OpenMode mode, std::unique_ptr<File>& file) {
  const FileStatus status = PassedFiles::Open(path, mode, file);
  if (status != FileStatus::Ok) return status;
  if (mode == OpenMode::Read || mode == OpenMode::Create) {
    file = std::make_unique<ToldFile>(std::move(file), std::u16string(path), told_);
  } else {
    file = std::make_unique<PassedFile>(std::move(file));
  }
  return status;
}

}  // namespace vestrel::workbench
