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

FileStatus InfoOf(HANDLE handle, FileInfo& info) {
  BY_HANDLE_FILE_INFORMATION data{};
  if (GetFileInformationByHandle(handle, &data) == FALSE) return StatusOf(GetLastError());
  info.size = (std::uint64_t{data.nFileSizeHigh} << 32U) | data.nFileSizeLow;
  info.identity = ((std::uint64_t{data.nFileIndexHigh} << 32U) | data.nFileIndexLow) ^
                  (std::uint64_t{data.dwVolumeSerialNumber} * 0x9E3779B97F4A7C15U);
  info.readOnly = (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  info.directory = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return FileStatus::Ok;
}

OVERLAPPED At(std::uint64_t offset) {
  OVERLAPPED position{};
  position.Offset = static_cast<DWORD>(offset);
  position.OffsetHigh = static_cast<DWORD>(offset >> 32U);
  return position;
}

constexpr std::uint64_t kEndOfFile = 0xFFFFFFFF'FFFFFFFFU;

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
    OVERLAPPED position = At(offset);
    DWORD count = 0;
    const BOOL succeeded =
        ReadFile(handle_.get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count, &position);
    done = count;
    const bool atEnd = succeeded == FALSE && GetLastError() == ERROR_HANDLE_EOF;
    return atEnd ? FileStatus::Ok : StatusOfCall(succeeded);
  }

  FileStatus WriteAt(std::uint64_t offset, std::span<const char> bytes, std::size_t& done) override {
    const bool appends = mode_ == OpenMode::Append || mode_ == OpenMode::AppendOn;
    OVERLAPPED position = At(appends ? kEndOfFile : offset);
    DWORD count = 0;
    const BOOL succeeded =
        WriteFile(handle_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, &position);
    done = count;
    return StatusOfCall(succeeded);
  }

  FileStatus Truncate(std::uint64_t size) override {
    LARGE_INTEGER position{};
    position.QuadPart = static_cast<LONGLONG>(size);
    if (SetFilePointerEx(handle_.get(), position, nullptr, FILE_BEGIN) == FALSE)
      return StatusOf(GetLastError());
    return StatusOfCall(SetEndOfFile(handle_.get()));
  }

  FileStatus Info(FileInfo& info) override { return InfoOf(handle_.get(), info); }
  std::uint64_t Identity() const noexcept override { return identity_; }

  FileStatus CopyAccess(File& like) override {
    const HANDLE model = static_cast<WindowsFile&>(like).handle_.get();
    CopyAccessList(model);
    BY_HANDLE_FILE_INFORMATION data{};
    if (GetFileInformationByHandle(model, &data) == FALSE) return StatusOf(GetLastError());
    FILE_BASIC_INFO attributes{};
    attributes.FileAttributes =
        data.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                 FILE_ATTRIBUTE_NOT_CONTENT_INDEXED);
    if (attributes.FileAttributes == 0) attributes.FileAttributes = FILE_ATTRIBUTE_NORMAL;
    return StatusOfCall(
        SetFileInformationByHandle(handle_.get(), FileBasicInfo, &attributes, sizeof attributes));
  }

  FileStatus Sync() override { return StatusOfCall(FlushFileBuffers(handle_.get())); }

  // Who waits has the file closed, or its replacement could not be put in place; afterwards the handle stands
  // for the file that has the name now.
  FileStatus Lock(LockMode mode) override {
    FileStatus status = lock_.Try(path_);
    if (status != FileStatus::Busy || mode == LockMode::TryExclusive) return status;
    handle_.Close();
    status = lock_.Wait();
    return status == FileStatus::Ok ? Open() : status;
  }

  FileStatus Unlock() override { return lock_.Release(); }
  FileStatus LetGo() override { return handle_.Close(); }

  FileStatus Close() override {
    lock_.Release();
    return handle_.Close();
  }

 private:
  // Emulations of the system let some users write read-only files; the library never does.
  FileStatus OpenOnce() {
    const OpenArguments arguments = ArgumentsOf(mode_);
    handle_.Reset(CreateFileW(path_.c_str(), arguments.access, kShareAll, nullptr, arguments.disposition,
                              arguments.flags, nullptr));
    if (!handle_.IsOpen()) return StatusOf(GetLastError());
    if (mode_ == OpenMode::AppendOn) return FileStatus::Ok;
    FileInfo info;
    const FileStatus status = Info(info);
    if (status != FileStatus::Ok) return status;
    identity_ = info.identity;
    const bool refused = info.directory || (mode_ != OpenMode::Read && info.readOnly);
    if (refused) return FileStatus::AccessDenied;
    return mode_ == OpenMode::Create && info.size > 0 ? Truncate(0) : FileStatus::Ok;
  }

  // File systems without access lists have none to copy.
  void CopyAccessList(HANDLE model) {
    DWORD size = 0;
    GetKernelObjectSecurity(model, DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    if (size == 0) return;
    std::string descriptor(size, '\0');
    if (GetKernelObjectSecurity(model, DACL_SECURITY_INFORMATION, descriptor.data(), size, &size) == FALSE)
      return;
    SetKernelObjectSecurity(handle_.get(), DACL_SECURITY_INFORMATION, descriptor.data());
  }

  std::wstring path_;
  OpenMode mode_;
  std::uint64_t identity_ = 0;
  Handle handle_{INVALID_HANDLE_VALUE};
  PathLock lock_;
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

// Newer systems replace a file that is open; its readers keep the old one.
bool ReplaceOpenFile(const std::wstring& from, const std::wstring& to) {
  const Handle source(
      CreateFileW(from.c_str(), DELETE | SYNCHRONIZE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!source.IsOpen()) return false;
  const std::wstring target = FullPath(to);
  const std::size_t nameBytes = target.size() * sizeof(wchar_t);
  std::string buffer(sizeof(RenameRequest) + nameBytes, '\0');
  auto* request = reinterpret_cast<RenameRequest*>(buffer.data());  // NOLINT: a record with a tail
  request->flags = kReplaceExisting | kPosixSemantics;
  request->nameBytes = static_cast<DWORD>(nameBytes);
  target.copy(request->name, target.size());
  return SetFileInformationByHandle(source.get(), kRenameInfoEx, request,
                                    static_cast<DWORD>(buffer.size())) != FALSE;
}

// Both ways are one step of the file system. There are calls that can do more, but they move the old file
// away first, and for a moment there is none.
FileStatus ReplaceOnce(const std::wstring& from, const std::wstring& to) {
  if (ReplaceOpenFile(from, to)) return FileStatus::Ok;
  return StatusOfCall(
      MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
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
