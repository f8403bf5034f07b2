#include "storage/ScratchFile.h"

#include "platform/Platform.h"
#include "storage/FileIo.h"

namespace vestrel {

using platform::File;
using platform::FileInfo;
using platform::files;
using platform::FileStatus;
using platform::LockMode;
using platform::OpenMode;

namespace {

constexpr int kAttempts = 100;

std::u16string ScratchPath(std::u16string_view target, std::u16string_view suffix) {
  std::u16string path;
  path.reserve(target.size() + suffix.size());
  return path.append(target).append(suffix);
}

}  // namespace

FileStatus ScratchFile::Open(std::u16string_view target, LockMode lock) {
  const FileStatus status = Uninterrupted([&] { return files().Resolve(target, target_); });
  if (status != FileStatus::Ok) return status;
  path_ = ScratchPath(target_, suffix_);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    bool again = false;
    const FileStatus opened = OpenOnce(lock, again);
    if (opened != FileStatus::Ok) file_.reset();
    if (!again) return opened;
  }
  return FileStatus::Busy;
}

// The writer before us put the file we opened in place, or dropped it, while we waited for its lock: then the
// name no longer stands for it and we start over. A link or a read-only file under our name is none of ours
// and goes.
FileStatus ScratchFile::OpenOnce(LockMode lock, bool& again) {
  FileStatus status =
      Uninterrupted([&] { return files().OpenLocked(path_, OpenMode::Scratch, lock, file_); });
  if (status == FileStatus::AccessDenied) {
    again = files().Remove(path_) == FileStatus::Ok;
    return status;
  }
  FileInfo info;
  if (status == FileStatus::Ok) status = Uninterrupted([&] { return file_->InfoByName(path_, info); });
  again = status == FileStatus::NotFound;
  if (again) status = FileStatus::Busy;
  size_ = 0;
  return status == FileStatus::Ok && info.size > 0 ? Uninterrupted([&] { return file_->Truncate(0); })
                                                   : status;
}

FileStatus ScratchFile::Append(std::string_view bytes) {
  std::size_t done = 0;
  const FileStatus status = WriteAll(*file_, size_, bytes, done);
  size_ += done;
  return status;
}

FileStatus ScratchFile::CopyAccess(File& old) {
  return Uninterrupted([&] { return file_->CopyAccess(old); });
}

FileStatus ScratchFile::PutInPlace(bool sync) {
  FileStatus status = FileStatus::Ok;
  if (sync) status = Uninterrupted([&] { return file_->Sync(); });
  if (status == FileStatus::Ok) status = Uninterrupted([&] { return files().Replace(path_, target_); });
  if (status != FileStatus::Ok) return status;
  file_.reset();
  return sync ? Uninterrupted([&] { return files().SyncDirectory(FolderOf(target_)); }) : status;
}

// The name goes while the lock is held, so that no one else's file goes with it.
void ScratchFile::Discard() noexcept {
  if (file_ == nullptr) return;
  try {
    files().Remove(path_);
  } catch (...) {
    // Out of memory.
  }
  file_.reset();
}

// Whoever makes a file that another has just made may hold a scratch file without the target's lock.
void ScratchFile::RemoveLeftover(std::u16string_view target, std::u16string_view suffix) {
  if (!files().IsThere(ScratchPath(target, suffix))) return;
  ScratchFile leftover(suffix);
  leftover.Open(target, LockMode::TryExclusive);
}

}  // namespace vestrel
