// Files and directories as the library uses them: a thin layer over the system's own calls, so that tests can
// replace it whole and make any single call fail. Paths use "\" as separator (repeated ones count as one);
// the POSIX side maps them at the last moment. Operations answer a status and throw nothing but
// std::bad_alloc.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vestrel::platform {

enum class FileStatus : std::uint8_t {
  Ok,
  NotFound,      // the file is absent
  PathNotFound,  // a folder on the way is absent
  AccessDenied,  // no rights, a read-only file or a folder where a file is wanted
  Busy,          // held by another program without sharing
  Exists,
  DiskFull,
  Interrupted,
  IoError,
  BadName,
};

enum class OpenMode : std::uint8_t {
  Read,       // must exist
  ReadWrite,  // must exist; refused for a read-only file
  Create,     // made when absent, emptied when present
  CreateNew,  // must be absent
  Append,     // made when absent, written at its end
  AppendOn,   // as Append, for a file that was opened so before: what the system permits is not looked into
              // again
  Scratch,    // made when absent, kept as it is when present; a link in its place is refused, not followed
};

enum class LockMode : std::uint8_t {
  Shared,        // with other shared ones
  Exclusive,     // alone
  TryExclusive,  // alone, answering Busy instead of waiting
};

struct FileInfo {
  std::uint64_t size = 0;
  bool readOnly = false;  // no write permission bit is set, whoever asks
  bool directory = false;
};

// An open file. Closing reports a late failure; the destructor closes without reporting.
class File {
 public:
  File() = default;
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  virtual ~File() = default;

  // Reads up to buffer.size() bytes at `offset`; `done` says how many (0 at the end of the file).
  virtual FileStatus ReadAt(std::uint64_t offset, std::span<char> buffer, std::size_t& done) = 0;
  // Writes at `offset` (Append and AppendOn files: at the end, whatever `offset` says); `done` may be short.
  virtual FileStatus WriteAt(std::uint64_t offset, std::span<const char> bytes, std::size_t& done) = 0;
  virtual FileStatus Truncate(std::uint64_t size) = 0;
  virtual FileStatus Info(FileInfo& info) = 0;
  // As Info, for a file that Files::OpenLocked opened by `path`: NotFound when that name stands for another
  // file since, or for none.
  virtual FileStatus InfoByName(std::u16string_view path, FileInfo& info) = 0;
  // Gives this file the permissions of `like` (a file of the same Files), and its owner as far as the system
  // lets us.
  virtual FileStatus CopyAccess(File& like) = 0;
  // Forces what was written to the disk.
  virtual FileStatus Sync() = 0;
  // Waits for the lock on this file, which other processes' locks respect; reading and writing do not. The
  // lock goes with Unlock or Close. Two handles in one process exclude each other as well. Where the file was
  // replaced meanwhile, the handle may stand for the old or the new one.
  virtual FileStatus Lock(LockMode mode) = 0;
  virtual FileStatus Unlock() = 0;
  // Makes ready for another file to be put in this one's place, which some systems refuse while it is open:
  // the lock stays, and nothing but Unlock and Close may follow.
  virtual FileStatus LetGo() = 0;
  virtual FileStatus Close() = 0;
};

class Files {
 public:
  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  virtual ~Files() = default;

  virtual FileStatus Open(std::u16string_view path, OpenMode mode, std::unique_ptr<File>& file) = 0;
  // Opens the file and takes its lock. Who had the lock before may have put another file in its place, which
  // File::InfoByName tells.
  virtual FileStatus OpenLocked(std::u16string_view path, OpenMode mode, LockMode lock,
                                std::unique_ptr<File>& file) {
    std::unique_ptr<File> opened;
    FileStatus status = Open(path, mode, opened);
    if (status == FileStatus::Ok) status = opened->Lock(lock);
    if (status == FileStatus::Ok) file = std::move(opened);
    return status;
  }
  // Follows nothing that is not there: NotFound or PathNotFound for an absent one.
  virtual FileStatus Info(std::u16string_view path, FileInfo& info) = 0;
  // Whether Info would answer Ok: quicker where all that matters is that there is nothing.
  virtual bool IsThere(std::u16string_view path) {
    FileInfo ignored;
    return Info(path, ignored) == FileStatus::Ok;
  }
  // The path with links followed: the file that a write through `path` would change. An absent file is
  // answered as it was named.
  virtual FileStatus Resolve(std::u16string_view path, std::u16string& real) = 0;
  // Puts `from` in the place of `to` in one step: a reader sees the old or the new file, whole. `from` may be
  // open and locked; where `to` is open, it is made ready with LetGo first.
  virtual FileStatus Replace(std::u16string_view from, std::u16string_view to) = 0;
  virtual FileStatus Remove(std::u16string_view path) = 0;
  virtual FileStatus MakeDirectory(std::u16string_view path) = 0;
  // Forces the entries of a folder (a replaced or removed name) to the disk; Ok where the system has no such
  // thing.
  virtual FileStatus SyncDirectory(std::u16string_view path) = 0;
  // The names in a folder, in no defined order, without "." and "..".
  virtual FileStatus List(std::u16string_view path, std::vector<std::u16string>& names) = 0;
};

}  // namespace vestrel::platform
