#include "storage/ProfileFile.h"

#include <memory>

#include "platform/Platform.h"
#include "storage/FileIo.h"
#include "storage/ProfileChange.h"
#include "storage/ScratchFile.h"

namespace vestrel {

using platform::File;
using platform::FileInfo;
using platform::files;
using platform::FileStatus;
using platform::LockMode;
using platform::OpenMode;

namespace {

// Each of them waits for a writer that gets its work done meanwhile.
constexpr int kAttempts = 1000;

// Forces the file's bytes and its name to the disk, whoever wrote them: what a click wrote is not forced at
// the time, and the save that is to keep it may find nothing left to change.
FileStatus Settle(File& file, std::u16string_view path, Sync sync) {
  if (sync == Sync::No) return FileStatus::Ok;
  FileStatus status = Uninterrupted([&] { return file.Sync(); });
  std::u16string real;
  if (status == FileStatus::Ok) status = Uninterrupted([&] { return files().Resolve(path, real); });
  if (status != FileStatus::Ok) return status;
  return Uninterrupted([&] { return files().SyncDirectory(FolderOf(real)); });
}

// Overwrites a stretch of the file. Should the disk fail in the middle, what was written is taken back as far
// as the disk lets us.
FileStatus Overwrite(File& file, std::string_view old, const ProfileChange& change) {
  std::size_t done = 0;
  const FileStatus status = WriteAll(file, change.offset, change.bytes, done);
  if (status == FileStatus::Ok) return status;
  std::size_t restored = 0;
  WriteAll(file, change.offset, old.substr(change.offset, done), restored);
  return status;
}

}  // namespace

FileStatus ProfileFile::Commit(std::span<const ProfileEdit> edits, Sync sync) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    bool again = false;
    const FileStatus status = Try(edits, sync, again);
    if (!again) return status;
  }
  return FileStatus::Busy;
}

FileStatus ProfileFile::Try(std::span<const ProfileEdit> edits, Sync sync, bool& again) {
  std::unique_ptr<File> target;
  const FileStatus status = Uninterrupted(
      [&] { return files().OpenLocked(path_, OpenMode::ReadWrite, LockMode::Exclusive, target); });
  if (status == FileStatus::NotFound) return Create(edits, sync, again);
  return status == FileStatus::Ok ? Change(*target, edits, sync, again) : status;
}

// While we waited for the lock another writer may have put a new file in place; the one we hold is then no
// longer the file of that name.
FileStatus ProfileFile::Change(File& target, std::span<const ProfileEdit> edits, Sync sync, bool& again) {
  FileInfo info;
  FileStatus status = Uninterrupted([&] { return target.InfoByName(path_, info); });
  again = status == FileStatus::NotFound;
  if (status != FileStatus::Ok) return status;
  FileBytes bytes;
  status = ReadAll(target, info.size, bytes);
  if (status != FileStatus::Ok) return status;
  const ProfileChange change = PlanChange(bytes.view(), edits);
  if (change.kind == ProfileChange::Kind::Whole) return Replace(target, change.bytes, sync);
  ScratchFile::RemoveLeftover(path_, ScratchFile::kSettings);
  if (change.kind == ProfileChange::Kind::InPlace) status = Overwrite(target, bytes.view(), change);
  return status == FileStatus::Ok ? Settle(target, path_, sync) : status;
}

FileStatus ProfileFile::Replace(File& target, std::string_view bytes, Sync sync) {
  ScratchFile scratch(ScratchFile::kSettings);
  FileStatus status = scratch.Open(path_, LockMode::Exclusive);
  if (status == FileStatus::Ok) status = scratch.Append(bytes);
  if (status == FileStatus::Ok) status = scratch.CopyAccess(target);
  if (status == FileStatus::Ok) status = Uninterrupted([&] { return target.LetGo(); });
  return status == FileStatus::Ok ? scratch.PutInPlace(sync == Sync::Yes) : status;
}

// The scratch file's lock keeps two processes that make the same file apart; who comes second finds it made.
FileStatus ProfileFile::Create(std::span<const ProfileEdit> edits, Sync sync, bool& again) {
  const ProfileChange change = PlanChange({}, edits);
  if (change.kind == ProfileChange::Kind::None) return FileStatus::Ok;
  ScratchFile scratch(ScratchFile::kSettings);
  FileStatus status = scratch.Open(path_, LockMode::Exclusive);
  if (status != FileStatus::Ok) return status;
  FileInfo info;
  status = Uninterrupted([&] { return files().Info(path_, info); });
  again = status == FileStatus::Ok;
  if (status != FileStatus::NotFound) return status;
  status = scratch.Append(change.bytes);
  return status == FileStatus::Ok ? scratch.PutInPlace(sync == Sync::Yes) : status;
}

}  // namespace vestrel
