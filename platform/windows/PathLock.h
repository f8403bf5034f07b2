// A lock on a path, for all processes of this machine. It is no lock of the file itself: that would need the
// file open, and an open file cannot be replaced everywhere. A process that dies lets go of its locks. Locked
// and released by one thread.
#pragma once

#include <string>

#include "platform/Files.h"

namespace vestrel::platform {

class PathLock {
 public:
  PathLock() = default;
  PathLock(const PathLock&) = delete;
  PathLock& operator=(const PathLock&) = delete;
  ~PathLock();

  // Takes the lock of the path, or answers Busy when another holder has it; this thread may be that holder.
  FileStatus Try(const std::wstring& path);
  // After a Try that answered Busy: waits. Busy when this thread holds the lock itself.
  FileStatus Wait();
  FileStatus Release();

 private:
  FileStatus Take(unsigned long milliseconds);

  void* mutex_ = nullptr;
  std::wstring name_;
  bool held_ = false;
};

}  // namespace vestrel::platform
