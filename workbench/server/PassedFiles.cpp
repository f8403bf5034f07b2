#include "workbench/server/PassedFiles.h"

namespace vestrel::workbench {

using platform::File;
using platform::FileInfo;
using platform::FileStatus;
using platform::LockMode;
using platform::OpenMode;

FileStatus PassedFile::ReadAt(std::uint64_t offset, std::span<char> buffer, std::size_t& done) {
  return inner_->ReadAt(offset, buffer, done);
}

FileStatus PassedFile::WriteAt(std::uint64_t offset, std::span<const char> bytes, std::size_t& done) {
  return inner_->WriteAt(offset, bytes, done);
}

FileStatus PassedFile::Truncate(std::uint64_t size) {
  return inner_->Truncate(size);
}

FileStatus PassedFile::Info(FileInfo& info) {
  return inner_->Info(info);
}

FileStatus PassedFile::InfoByName(std::u16string_view path, FileInfo& info) {
  return inner_->InfoByName(path, info);
}

FileStatus PassedFile::CopyAccess(File& like) {
  return inner_->CopyAccess(*static_cast<PassedFile&>(like).inner_);
}

FileStatus PassedFile::Sync() {
  return inner_->Sync();
}

FileStatus PassedFile::Lock(LockMode mode) {
  return inner_->Lock(mode);
}

FileStatus PassedFile::Unlock() {
  return inner_->Unlock();
}

FileStatus PassedFile::LetGo() {
  return inner_->LetGo();
}

FileStatus PassedFile::Close() {
  return inner_->Close();
}

FileStatus PassedFiles::Open(std::u16string_view path, OpenMode mode, std::unique_ptr<File>& file) {
  return inner_.Open(path, mode, file);
}

FileStatus PassedFiles::Info(std::u16string_view path, FileInfo& info) {
  return inner_.Info(path, info);
}

FileStatus PassedFiles::Resolve(std::u16string_view path, std::u16string& real) {
  return inner_.Resolve(path, real);
}

FileStatus PassedFiles::Replace(std::u16string_view from, std::u16string_view to) {
  return inner_.Replace(from, to);
}

FileStatus PassedFiles::Remove(std::u16string_view path) {
  return inner_.Remove(path);
}

FileStatus PassedFiles::MakeDirectory(std::u16string_view path) {
  return inner_.MakeDirectory(path);
}

FileStatus PassedFiles::SyncDirectory(std::u16string_view path) {
  return inner_.SyncDirectory(path);
}

FileStatus PassedFiles::List(std::u16string_view path, std::vector<std::u16string>& names) {
  return inner_.List(path, names);
}

}  // namespace vestrel::workbench
