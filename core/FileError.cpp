#include "core/FileError.h"

#include "core/Error.h"

namespace vestrel {

std::int32_t ErrorNumberOf(platform::FileStatus status) noexcept {
  switch (status) {
    case platform::FileStatus::Ok:
      return 0;
    case platform::FileStatus::NotFound:
      return Error_FileNotFound;
    case platform::FileStatus::PathNotFound:
      return Error_PathNotFound;
    case platform::FileStatus::AccessDenied:
    case platform::FileStatus::Exists:
      return Error_PathFileAccess;
    case platform::FileStatus::Busy:
      return Error_PermissionDenied;
    case platform::FileStatus::DiskFull:
      return Error_DiskFull;
    case platform::FileStatus::BadName:
      return Error_BadFileNameOrNumber;
    case platform::FileStatus::Interrupted:
    case platform::FileStatus::IoError:
      break;
  }
  return Error_DeviceIO;
}

bool IsAbsent(platform::FileStatus status) noexcept {
  return status == platform::FileStatus::NotFound || status == platform::FileStatus::PathNotFound;
}

void CheckFileStatus(platform::FileStatus status, std::u16string_view source, std::u16string_view path) {
  if (status != platform::FileStatus::Ok) RaiseError(ErrorNumberOf(status), source, path);
}

}  // namespace vestrel
