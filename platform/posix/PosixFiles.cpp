#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "platform/System.h"

namespace vestrel::platform {
namespace {

constexpr unsigned kWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;

FileStatus StatusOf(int error) {
  switch (error) {
    case ENOENT:
      return FileStatus::NotFound;
    case ENOTDIR:
      return FileStatus::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ELOOP:
      return FileStatus::AccessDenied;
    case EBUSY:
    case ETXTBSY:
    case EWOULDBLOCK:
      return FileStatus::Busy;
    case EEXIST:
      return FileStatus::Exists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return FileStatus::DiskFull;
    case EINTR:
      return FileStatus::Interrupted;
    case ENAMETOOLONG:
    case EILSEQ:
      return FileStatus::BadName;
    default:
      return FileStatus::IoError;
  }
}

FileStatus StatusOfCall(int result) {
  return result == 0 ? FileStatus::Ok : StatusOf(errno);
}

bool HasDoubledSeparator(std::string_view name) {
  unsigned found = 0;
  for (std::size_t i = 1; i < name.size(); ++i)
    found |= static_cast<unsigned>(name[i - 1] == '/') & static_cast<unsigned>(name[i] == '/');
  return found != 0;
}

// The system's form of a path: "/" for every run of separators. Empty for a path that it cannot hold.
std::string SystemPath(std::u16string_view path) {
  bool lossy = false;
  std::string name = SystemEncoding().Narrow(path, lossy);
  if (lossy || name.find('\0') != std::string::npos) return {};
  for (char& byte : name) byte = byte == '\\' ? '/' : byte;
  if (HasDoubledSeparator(name)) {
    const auto bothSeparate = [](char a, char b) { return a == '/' && b == '/'; };
    name.erase(std::unique(name.begin(), name.end(), bothSeparate), name.end());
  }
  return name;
}

bool FolderOfExists(const std::string& path) {
  const std::size_t end = path.rfind('/');
  if (end == std::string::npos || end == 0) return true;
  struct stat folder {};
  return stat(path.substr(0, end).c_str(), &folder) == 0 && S_ISDIR(folder.st_mode);
}

FileStatus StatusOfPathCall(int result, const std::string& path) {
  if (result >= 0) return FileStatus::Ok;
  const FileStatus status = StatusOf(errno);
  return status == FileStatus::NotFound && !FolderOfExists(path) ? FileStatus::PathNotFound : status;
}

// With a number that is the same as long as it is the same file, to notice that a path now names another.
struct KnownFile {
  FileInfo info;
  std::uint64_t identity = 0;
};

KnownFile KnownBy(std::uint64_t size, std::uint64_t number, std::uint64_t device, mode_t mode) {
  KnownFile file;
  file.info.size = size;
  file.info.readOnly = (mode & kWriteBits) == 0;
  file.info.directory = S_ISDIR(mode);
  file.identity = number ^ (device * 0x9E3779B97F4A7C15U);
  return file;
}

// Both answer as the system does: 0, or -1 and errno. An empty name stands for the descriptor itself.
int AskForAll(int descriptor, const char* name, KnownFile& file) {
  struct stat data {};
  const int result = *name == '\0' ? fstat(descriptor, &data) : stat(name, &data);
  if (result == 0)
    file = KnownBy(static_cast<std::uint64_t>(data.st_size), data.st_ino, data.st_dev, data.st_mode);
  return result;
}

#ifdef STATX_SIZE
// Without the times: a file system that was asked for them notes the time of the next write exactly, and that
// write takes several times as long.
int Ask(int descriptor, const char* name, KnownFile& file) {
  struct statx data {};
  const int result =
      statx(descriptor, name, AT_EMPTY_PATH, STATX_TYPE | STATX_MODE | STATX_INO | STATX_SIZE, &data);
  // Some sandboxes lack the call.
  if (result != 0 && (errno == ENOSYS || errno == EPERM)) return AskForAll(descriptor, name, file);
  if (result != 0) return result;
  file = KnownBy(data.stx_size, data.stx_ino, makedev(data.stx_dev_major, data.stx_dev_minor), data.stx_mode);
  return 0;
}
#else
int Ask(int descriptor, const char* name, KnownFile& file) {
  return AskForAll(descriptor, name, file);
}
#endif

class PosixFile final : public File {
 public:
  explicit PosixFile(bool append) : append_(append) {}
  ~PosixFile() override {
    if (descriptor_ >= 0) close(descriptor_);
  }

  // The open file that this one stands for.
  void Take(int descriptor) { descriptor_ = descriptor; }

  FileStatus ReadAt(std::uint64_t offset, std::span<char> buffer, std::size_t& done) override {
    const ssize_t count = pread(descriptor_, buffer.data(), buffer.size(), static_cast<off_t>(offset));
    return Transferred(count, done);
  }

  FileStatus WriteAt(std::uint64_t offset, std::span<const char> bytes, std::size_t& done) override {
    const ssize_t count = append_
                              ? write(descriptor_, bytes.data(), bytes.size())
                              : pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(offset));
    return Transferred(count, done);
  }

  FileStatus Truncate(std::uint64_t size) override {
    return StatusOfCall(ftruncate(descriptor_, static_cast<off_t>(size)));
  }

  FileStatus Info(FileInfo& info) override {
    KnownFile own;
    const FileStatus status = StatusOfCall(Ask(descriptor_, "", own));
    if (status == FileStatus::Ok) info = own.info;
    return status;
  }

  FileStatus InfoByName(std::u16string_view path, FileInfo& info) override {
    const std::string name = SystemPath(path);
    KnownFile named;
    const FileStatus status = StatusOfPathCall(Ask(AT_FDCWD, name.c_str(), named), name);
    if (status != FileStatus::Ok) return status;
    info = named.info;
    return named.identity == identity_ ? FileStatus::Ok : FileStatus::NotFound;
  }

  // The superuser may open everything; the library still honours a file that nobody may write, and a folder
  // is no file.
  FileStatus CheckOpened(OpenMode mode) {
    KnownFile own;
    const FileStatus status = StatusOfCall(Ask(descriptor_, "", own));
    if (status != FileStatus::Ok) return status;
    identity_ = own.identity;
    const bool refused = own.info.directory || (mode != OpenMode::Read && own.info.readOnly);
    if (refused) return FileStatus::AccessDenied;
    return mode == OpenMode::Create && own.info.size > 0 ? Truncate(0) : FileStatus::Ok;
  }

  FileStatus CopyAccess(File& like) override {
    struct stat model {};
    struct stat own {};
    if (fstat(static_cast<PosixFile&>(like).descriptor_, &model) != 0) return StatusOf(errno);
    if (fstat(descriptor_, &own) != 0) return StatusOf(errno);
    const bool foreign = own.st_uid != model.st_uid || own.st_gid != model.st_gid;
    // Another's file may be handed on by the superuser only; its permissions matter more than its owner.
    const int ignored = foreign ? fchown(descriptor_, model.st_uid, model.st_gid) : 0;
    static_cast<void>(ignored);
    if (!foreign && own.st_mode == model.st_mode) return FileStatus::Ok;
    return StatusOfCall(fchmod(descriptor_, model.st_mode & 07777U));
  }

  FileStatus Sync() override { return StatusOfCall(fsync(descriptor_)); }
  FileStatus Lock(LockMode mode) override {
    switch (mode) {
      case LockMode::Shared:
        return StatusOfCall(flock(descriptor_, LOCK_SH));
      case LockMode::Exclusive:
        return StatusOfCall(flock(descriptor_, LOCK_EX));
      default:
        return StatusOfCall(flock(descriptor_, LOCK_EX | LOCK_NB));
    }
  }
  FileStatus Unlock() override { return StatusOfCall(flock(descriptor_, LOCK_UN)); }
  FileStatus LetGo() override { return FileStatus::Ok; }

  FileStatus Close() override {
    const int descriptor = std::exchange(descriptor_, -1);
    return descriptor < 0 ? FileStatus::Ok : StatusOfCall(close(descriptor));
  }

 private:
  static FileStatus Transferred(ssize_t count, std::size_t& done) {
    done = count > 0 ? static_cast<std::size_t>(count) : 0;
    return count < 0 ? StatusOf(errno) : FileStatus::Ok;
  }

  int descriptor_ = -1;
  bool append_;
  std::uint64_t identity_ = 0;
};

int FlagsOf(OpenMode mode) {
  switch (mode) {
    case OpenMode::ReadWrite:
      return O_RDWR;
    case OpenMode::Create:
      return O_RDWR | O_CREAT;
    case OpenMode::CreateNew:
      return O_RDWR | O_CREAT | O_EXCL;
    case OpenMode::Append:
    case OpenMode::AppendOn:
      return O_WRONLY | O_CREAT | O_APPEND;
    case OpenMode::Scratch:
      return O_RDWR | O_CREAT | O_NOFOLLOW;
    default:
      return O_RDONLY;
  }
}

bool Appends(OpenMode mode) {
  return mode == OpenMode::Append || mode == OpenMode::AppendOn;
}

class PosixFiles final : public Files {
 public:
  FileStatus Open(std::u16string_view path, OpenMode mode, std::unique_ptr<File>& file) override {
    const std::string name = SystemPath(path);
    if (name.empty()) return FileStatus::BadName;
    // Before the file is open, since memory may run out.
    auto opened = std::make_unique<PosixFile>(Appends(mode));
    const int descriptor = open(name.c_str(), FlagsOf(mode) | O_CLOEXEC, 0666);
    if (descriptor < 0) return StatusOfPathCall(descriptor, name);
    opened->Take(descriptor);
    const FileStatus status = mode == OpenMode::AppendOn ? FileStatus::Ok : opened->CheckOpened(mode);
    if (status == FileStatus::Ok) file = std::move(opened);
    return status;
  }

  FileStatus Info(std::u16string_view path, FileInfo& info) override {
    const std::string name = SystemPath(path);
    if (name.empty()) return FileStatus::BadName;
    KnownFile named;
    const FileStatus status = StatusOfPathCall(Ask(AT_FDCWD, name.c_str(), named), name);
    if (status == FileStatus::Ok) info = named.info;
    return status;
  }

  bool IsThere(std::u16string_view path) override {
    const std::string name = SystemPath(path);
    KnownFile ignored;
    return !name.empty() && Ask(AT_FDCWD, name.c_str(), ignored) == 0;
  }

  FileStatus Resolve(std::u16string_view path, std::u16string& real) override {
    const std::string name = SystemPath(path);
    if (name.empty()) return FileStatus::BadName;
    char resolved[PATH_MAX];
    if (realpath(name.c_str(), resolved) == nullptr) {
      real = path;
      return errno == ENOENT ? FileStatus::Ok : StatusOf(errno);
    }
    real = SystemEncoding().Widen(resolved);
    std::replace(real.begin(), real.end(), u'/', u'\\');
    return FileStatus::Ok;
  }

  FileStatus Replace(std::u16string_view from, std::u16string_view to) override {
    const std::string source = SystemPath(from);
    const std::string target = SystemPath(to);
    if (source.empty() || target.empty()) return FileStatus::BadName;
    return StatusOfPathCall(rename(source.c_str(), target.c_str()), target);
  }

  FileStatus Remove(std::u16string_view path) override {
    return OnPath(path, [](const char* name) { return unlink(name); });
  }

  FileStatus MakeDirectory(std::u16string_view path) override {
    return OnPath(path, [](const char* name) { return mkdir(name, 0777); });
  }

  FileStatus SyncDirectory(std::u16string_view path) override {
    return OnPath(path, [](const char* name) {
      const int folder = open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
      if (folder < 0) return folder;
      int result = fsync(folder);
      if (result != 0 && errno == EINVAL) result = 0;  // this file system has no such thing
      const int error = errno;
      close(folder);
      errno = error;
      return result;
    });
  }

  FileStatus List(std::u16string_view path, std::vector<std::u16string>& names) override {
    const std::string name = SystemPath(path);
    if (name.empty()) return FileStatus::BadName;
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(name.c_str()), closedir);
    if (folder == nullptr) return StatusOfPathCall(-1, name);
    names.clear();
    while (const dirent* entry = readdir(folder.get())) {
      const std::string_view found = entry->d_name;
      if (found != "." && found != "..") names.push_back(SystemEncoding().Widen(found));
    }
    return FileStatus::Ok;
  }

 private:
  template <class Call>
  static FileStatus OnPath(std::u16string_view path, Call call) {
    const std::string name = SystemPath(path);
    return name.empty() ? FileStatus::BadName : StatusOfPathCall(call(name.c_str()), name);
  }
};

}  // namespace

Files& SystemFiles() {
  static PosixFiles files;
  return files;
}

}  // namespace vestrel::platform
