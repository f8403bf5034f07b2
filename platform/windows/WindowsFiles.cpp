#include <string>
#include <utility>

#include "platform/System.h"
#include "platform/windows/PathLock.h"
#include "platform/windows/WindowsText.h"

namespace vestrel::platform {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

FileStatus StatusOf(DWORD error) {
  switch (error) {
    case ERROR_SUCCESS:
      return FileStatus::Ok;
    case ERROR_FILE_NOT_FOUND:
      return FileStatus::NotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY:
      return FileStatus::PathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_CANT_ACCESS_FILE:
      return FileStatus::AccessDenied;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_IO_PENDING:
    case ERROR_USER_MAPPED_FILE:
      return FileStatus::Busy;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return FileStatus::Exists;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return FileStatus::DiskFull;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return FileStatus::BadName;
    default:
      return FileStatus::IoError;
  }
}

FileStatus StatusOfCall(BOOL succeeded) {
  return succeeded != FALSE ? FileStatus::Ok : StatusOf(GetLastError());
}

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { Close(); }

  HANDLE get() const { return handle_; }
  void Reset(HANDLE handle) {
    Close();
    handle_ = handle;
  }
  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  FileStatus Close() {
    const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
    return handle == INVALID_HANDLE_VALUE ? FileStatus::Ok : StatusOfCall(CloseHandle(handle));
  }

 private:
  HANDLE handle_;
};

// All at once would ask for the volume's number as well, which emulations of the system ask another process.
FileStatus InfoOf(HANDLE handle, FileInfo& info) {
  FILE_BASIC_INFO basic{};
  FILE_STANDARD_INFO standard{};
  const bool isTold =
      GetFileInformationByHandleEx(handle, FileBasicInfo, &basic, sizeof basic) != FALSE &&
      GetFileInformationByHandleEx(handle, FileStandardInfo, &standard, sizeof standard) != FALSE;
  if (!isTold) return StatusOf(GetLastError());
  info.size = static_cast<std::uint64_t>(standard.EndOfFile.QuadPart);
  info.readOnly = (basic.FileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  info.directory = standard.Directory != FALSE;
  return FileStatus::Ok;
}

struct OpenArguments {
  DWORD access;
  DWORD disposition;
  DWORD flags = FILE_ATTRIBUTE_NORMAL;
};

OpenArguments ArgumentsOf(OpenMode mode) {
  constexpr DWORD readWrite = GENERIC_READ | GENERIC_WRITE;
  switch (mode) {
    case OpenMode::ReadWrite:
      return {readWrite, OPEN_EXISTING};
    case OpenMode::Create:
      return {readWrite, OPEN_ALWAYS};
    case OpenMode::CreateNew:
      return {readWrite, CREATE_NEW};
    case OpenMode::Append:
    case OpenMode::AppendOn:
      return {FILE_APPEND_DATA | FILE_READ_ATTRIBUTES, OPEN_ALWAYS};
    case OpenMode::Scratch:
      return {readWrite | WRITE_DAC, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT};
    default:
      return {GENERIC_READ, OPEN_EXISTING};
  }
}

constexpr DWORD kCopiedAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                    FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
constexpr DWORD kUsualAccessList = 1024;  // bytes

// About a quarter of a second in all.
constexpr DWORD kAttempts = 32;

// Makes a call again that met a reader or a virus scanner at the file, which lets go within moments.
template <class Call, class Test>
FileStatus Patiently(Call call, Test mayPass) {
  FileStatus status = call();
  for (DWORD attempt = 0; mayPass(status) && attempt < kAttempts; ++attempt) {
    Sleep(attempt / 2);
    status = call();
  }
  return status;
}

class WindowsFile final : public File {
 public:
  WindowsFile(std::wstring path, OpenMode mode) : path_(std::move(path)), mode_(mode) {}

  // Who only reads is told at once that the file is held: many single values may be read one after the other.
  FileStatus Open() {
    if (mode_ == OpenMode::Read) return OpenOnce();
    return Patiently([this] { return OpenOnce(); },
                     [](FileStatus status) { return status == FileStatus::Busy; });
  }

  FileStatus ReadAt(std::uint64_t offset, std::span<char> buffer, std::size_t& done) override {
    done = 0;
    DWORD count = 0;
    const bool succeeded = MoveTo(offset) && ReadFile(handle_.get(), buffer.data(),
                                                      static_cast<DWORD>(buffer.size()), &count, nullptr);
    done = count;
    return StatusOfCall(succeeded);
  }

  FileStatus WriteAt(std::uint64_t offset, std::span<const char> bytes, std::size_t& done) override {
    // A file that may only be appended to is written at its end wherever we are.
    const bool appends = mode_ == OpenMode::Append || mode_ == OpenMode::AppendOn;
    DWORD count = 0;
    const bool succeeded =
        (appends || MoveTo(offset)) &&
        WriteFile(handle_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    done = count;
    return StatusOfCall(succeeded);
  }

  FileStatus Truncate(std::uint64_t size) override {
    return StatusOfCall(MoveTo(size) && SetEndOfFile(handle_.get()));
  }

  FileStatus Info(FileInfo& info) override { return InfoOf(handle_.get(), info); }
  // Opened under the lock of its name, so that the name stands for it and it is as it was then.
  FileStatus InfoByName(std::u16string_view /*path*/, FileInfo& info) override {
    info = opened_;
    return FileStatus::Ok;
  }

  FileStatus CopyAccess(File& like) override {
    const HANDLE model = static_cast<WindowsFile&>(like).handle_.get();
    CopyAccessList(model);
    FILE_BASIC_INFO theirs{};
    if (GetFileInformationByHandleEx(model, FileBasicInfo, &theirs, sizeof theirs) == FALSE)
      return StatusOf(GetLastError());
    FILE_BASIC_INFO own{};
    own.FileAttributes = theirs.FileAttributes & kCopiedAttributes;
    if (own.FileAttributes == 0) own.FileAttributes = FILE_ATTRIBUTE_NORMAL;
    return StatusOfCall(SetFileInformationByHandle(handle_.get(), FileBasicInfo, &own, sizeof own));
  }

  FileStatus Sync() override { return StatusOfCall(FlushFileBuffers(handle_.get())); }

  // Opened anew under the lock, so that the handle stands for the file that has the name now; for who only
  // reads the old one will do. Who waits has the file closed, or its replacement could not be put in place.
  FileStatus Lock(LockMode mode) override {
    if (mode == LockMode::Shared && lock_.Try(path_) == FileStatus::Ok) return FileStatus::Ok;
    handle_.Close();
    return OpenLocked(mode);
  }

  FileStatus OpenLocked(LockMode mode) {
    FileStatus status = lock_.Try(path_);
    if (status == FileStatus::Busy && mode != LockMode::TryExclusive) status = lock_.Wait();
    return status == FileStatus::Ok ? Open() : status;
  }

  FileStatus Unlock() override { return lock_.Release(); }
  FileStatus LetGo() override { return handle_.Close(); }

  FileStatus Close() override {
    const FileStatus status = handle_.Close();
    lock_.Release();
    return status;
  }

 private:
  // Emulations of the system let some users write read-only files; the library never does.
  FileStatus OpenOnce() {
    const OpenArguments arguments = ArgumentsOf(mode_);
    handle_.Reset(CreateFileW(path_.c_str(), arguments.access, kShareAll, nullptr, arguments.disposition,
                              arguments.flags, nullptr));
    if (!handle_.IsOpen()) return StatusOf(GetLastError());
    if (mode_ == OpenMode::AppendOn) return FileStatus::Ok;
    const FileStatus status = Info(opened_);
    if (status != FileStatus::Ok) return status;
    const bool refused = opened_.directory || (mode_ != OpenMode::Read && opened_.readOnly);
    if (refused) return FileStatus::AccessDenied;
    return mode_ == OpenMode::Create && opened_.size > 0 ? Truncate(0) : FileStatus::Ok;
  }

  bool MoveTo(std::uint64_t offset) {
    LARGE_INTEGER position{};
    position.QuadPart = static_cast<LONGLONG>(offset);
    return SetFilePointerEx(handle_.get(), position, nullptr, FILE_BEGIN) != FALSE;
  }

  // File systems without access lists have none to copy.
  void CopyAccessList(HANDLE model) {
    DWORD size = kUsualAccessList;
    std::string descriptor(size, '\0');
    const auto get = [&] {
      return GetKernelObjectSecurity(model, DACL_SECURITY_INFORMATION, descriptor.data(), size, &size);
    };
    BOOL isTold = get();
    if (isTold == FALSE && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
      descriptor.resize(size);
      isTold = get();
    }
    if (isTold != FALSE) SetKernelObjectSecurity(handle_.get(), DACL_SECURITY_INFORMATION, descriptor.data());
  }

  std::wstring path_;
  OpenMode mode_;
  FileInfo opened_;  // as it was found on opening
  PathLock lock_;    // goes after the handle: whoever waits for it is to find the file closed
  Handle handle_{INVALID_HANDLE_VALUE};
};

bool Holds(std::u16string_view path) {
  return !path.empty() && path.find(u'\0') == std::u16string_view::npos;
}

// The layout that the system's rename call takes, which older headers do not declare.
struct RenameRequest {
  DWORD flags;
  HANDLE root;
  DWORD nameBytes;
  wchar_t name[1];
};

constexpr DWORD kReplaceExisting = 1;
constexpr DWORD kPosixSemantics = 2;
constexpr auto kRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);

bool Rename(HANDLE source, FILE_INFO_BY_HANDLE_CLASS kind, DWORD flags, const std::wstring& target) {
  const std::size_t nameBytes = target.size() * sizeof(wchar_t);
  std::string buffer(sizeof(RenameRequest) + nameBytes, '\0');
  auto* request = reinterpret_cast<RenameRequest*>(buffer.data());  // NOLINT: a record with a tail
  request->flags = flags;
  request->nameBytes = static_cast<DWORD>(nameBytes);
  target.copy(request->name, target.size());
  return SetFileInformationByHandle(source, kind, request, static_cast<DWORD>(buffer.size())) != FALSE;
}

// Newer systems replace a file that is open; its readers keep the old one. Both ways are one step of the file
// system, which is on the disk when the call returns. There are calls that can do more, but they move the old
// file away first, and for a moment there is none.
FileStatus ReplaceOnce(const std::wstring& from, const std::wstring& to) {
  const Handle source(CreateFileW(from.c_str(), DELETE | SYNCHRONIZE, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_WRITE_THROUGH, nullptr));
  if (!source.IsOpen()) return StatusOf(GetLastError());
  const std::wstring target = FullPath(to);
  const bool isDone = Rename(source.get(), kRenameInfoEx, kReplaceExisting | kPosixSemantics, target) ||
                      Rename(source.get(), FileRenameInfo, kReplaceExisting, target);
  return StatusOfCall(isDone);
}

struct SearchCloser {
  void operator()(HANDLE search) const { FindClose(search); }
};

class WindowsFiles final : public Files {
 public:
  FileStatus Open(std::u16string_view path, OpenMode mode, std::unique_ptr<File>& file) override {
    if (!Holds(path)) return FileStatus::BadName;
    auto opened = std::make_unique<WindowsFile>(ToWide(path), mode);
    const FileStatus status = opened->Open();
    if (status == FileStatus::Ok) file = std::move(opened);
    return status;
  }

  // The lock comes first, as it is the path's.
  FileStatus OpenLocked(std::u16string_view path, OpenMode mode, LockMode lock,
                        std::unique_ptr<File>& file) override {
    if (!Holds(path)) return FileStatus::BadName;
    auto opened = std::make_unique<WindowsFile>(ToWide(path), mode);
    const FileStatus status = opened->OpenLocked(lock);
    if (status == FileStatus::Ok) file = std::move(opened);
    return status;
  }

  FileStatus Info(std::u16string_view path, FileInfo& info) override {
    if (!Holds(path)) return FileStatus::BadName;
    const Handle handle(CreateFileW(ToWide(path).c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return handle.IsOpen() ? InfoOf(handle.get(), info) : StatusOf(GetLastError());
  }

  FileStatus Resolve(std::u16string_view path, std::u16string& real) override {
    if (!Holds(path)) return FileStatus::BadName;
    real = path;
    const std::wstring name = ToWide(path);
    const DWORD attributes = GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
      return FileStatus::Ok;
    }
    return FollowLink(name, real);
  }

  FileStatus Replace(std::u16string_view from, std::u16string_view to) override {
    if (!Holds(from) || !Holds(to)) return FileStatus::BadName;
    const std::wstring source = ToWide(from);
    const std::wstring target = ToWide(to);
    return Patiently(
        [&] { return ReplaceOnce(source, target); },
        [](FileStatus status) { return status == FileStatus::Busy || status == FileStatus::AccessDenied; });
  }

  FileStatus Remove(std::u16string_view path) override {
    return Holds(path) ? StatusOfCall(DeleteFileW(ToWide(path).c_str())) : FileStatus::BadName;
  }

  FileStatus MakeDirectory(std::u16string_view path) override {
    return Holds(path) ? StatusOfCall(CreateDirectoryW(ToWide(path).c_str(), nullptr)) : FileStatus::BadName;
  }

  FileStatus SyncDirectory(std::u16string_view /*path*/) override { return FileStatus::Ok; }

  FileStatus List(std::u16string_view path, std::vector<std::u16string>& names) override {
    if (!Holds(path)) return FileStatus::BadName;
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((ToWide(path) + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return StatusOf(GetLastError());
    const std::unique_ptr<void, SearchCloser> closing(search);
    names.clear();
    do {
      const std::wstring_view found = entry.cFileName;
      if (found != L"." && found != L"..") names.push_back(FromWide(found));
    } while (FindNextFileW(search, &entry) != FALSE);
    return FileStatus::Ok;
  }

 private:
  static FileStatus FollowLink(const std::wstring& name, std::u16string& real) {
    const Handle handle(CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!handle.IsOpen()) return StatusOf(GetLastError());
    std::wstring path(32768, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(handle.get(), path.data(), static_cast<DWORD>(path.size()),
                                                   FILE_NAME_NORMALIZED);
    if (length == 0) return StatusOf(GetLastError());
    real = FromWide(std::wstring_view(path).substr(0, length));
    return FileStatus::Ok;
  }
};

}  // namespace

Files& SystemFiles() {
  static WindowsFiles files;
  return files;
}

}  // namespace vestrel::platform
