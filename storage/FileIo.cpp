#include "storage/FileIo.h"

#include <algorithm>
#include <limits>
#include <span>

#include "platform/Platform.h"

namespace vestrel {

using platform::File;
using platform::FileStatus;

FileStatus ReadAll(File& file, std::uint64_t size, FileBytes& bytes) {
  if (size > std::numeric_limits<std::ptrdiff_t>::max()) return FileStatus::IoError;
  const auto length = static_cast<std::size_t>(size);
  bytes.data = std::make_unique_for_overwrite<char[]>(length);
  bytes.size = 0;
  while (bytes.size < length) {
    std::size_t done = 0;
    const FileStatus status = Uninterrupted([&] {
      return file.ReadAt(bytes.size, std::span(bytes.data.get() + bytes.size, length - bytes.size), done);
    });
    if (status != FileStatus::Ok) return status;
    if (done == 0) break;
    bytes.size += done;
  }
  return FileStatus::Ok;
}

FileStatus WriteAll(File& file, std::uint64_t offset, std::string_view bytes, std::size_t& done) {
  done = 0;
  while (done < bytes.size()) {
    std::size_t count = 0;
    const FileStatus status = Uninterrupted([&] {
      return file.WriteAt(offset + done, std::span(bytes.data() + done, bytes.size() - done), count);
    });
    done += count;
    if (status != FileStatus::Ok) return status;
    if (count == 0) return FileStatus::DiskFull;
  }
  return FileStatus::Ok;
}

FileStatus ReadWholeFile(std::u16string_view path, FileBytes& bytes) {
  std::unique_ptr<File> file;
  FileStatus status =
      Uninterrupted([&] { return platform::files().Open(path, platform::OpenMode::Read, file); });
  if (status != FileStatus::Ok) return status;
  // A file system without locks still reads.
  Uninterrupted([&] { return file->Lock(platform::LockMode::Shared); });
  platform::FileInfo info;
  status = Uninterrupted([&] { return file->Info(info); });
  return status == FileStatus::Ok ? ReadAll(*file, info.size, bytes) : status;
}

std::u16string_view FolderOf(std::u16string_view path) {
  const std::size_t end = path.find_last_of(u"\\/");
  if (end == std::u16string_view::npos) return u".";
  return end == 0 ? path.substr(0, 1) : path.substr(0, end);
}

}  // namespace vestrel
