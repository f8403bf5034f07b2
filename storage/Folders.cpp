#include "storage/Folders.h"

#include "core/FileError.h"
#include "core/clsObjectList.h"
#include "platform/Platform.h"
#include "storage/FileIo.h"
#include "util/modLog.h"

namespace vestrel::modUtils {

using platform::FileStatus;

namespace {

FileStatus InfoOf(std::u16string_view path, platform::FileInfo& info) {
  return Uninterrupted([&] { return platform::files().Info(path, info); });
}

constexpr std::u16string_view kSettingsFile = u"\\pageSetting.ini";

void CreateLevel(std::u16string_view path) {
  modLog::LogFormat(LogLevel_4_SPEW, u"checking dir [%s]", path);
  if (PathExists(path)) {
    modLog::LogFormat(LogLevel_4_SPEW, u"dir [%s] already existed", path);
    return;
  }
  const FileStatus status = Uninterrupted([&] { return platform::files().MakeDirectory(path); });
  CheckFileStatus(status, u"modUtils.CreateDirs()", path);
  // What is saved in a folder is as safe as the folder's own entry. Where that cannot be forced the folder is
  // there all the same.
  Uninterrupted([&] { return platform::files().SyncDirectory(FolderOf(path)); });
  modLog::LogFormat(LogLevel_3_INFO, u"CreateDirs() created dir [%s]", path);
}

}  // namespace

std::u16string ShowFolder(std::u16string_view appPath, std::u16string_view showName) {
  return std::u16string(appPath).append(u"\\Sequences\\").append(showName);
}

std::u16string ShowSettingsPath(std::u16string_view appPath, std::u16string_view showName) {
  return ShowFolder(appPath, showName).append(kSettingsFile);
}

std::u16string PageSettingsPath(std::u16string_view appPath, std::u16string_view showName,
                                std::u16string_view pageName) {
  return ShowFolder(appPath, showName).append(u"\\").append(pageName).append(kSettingsFile);
}

bool FileExists(std::u16string_view path) {
  platform::FileInfo info;
  const FileStatus status = InfoOf(path, info);
  if (IsAbsent(status)) return false;
  CheckFileStatus(status, u"modUtils.FileExists()", path);
  return !info.directory;
}

bool PathExists(std::u16string_view path) {
  platform::FileInfo info;
  return path.empty() || InfoOf(path, info) == FileStatus::Ok;
}

// Not every system refuses to remove a read-only file.
void RemoveFile(std::u16string_view path) {
  platform::FileInfo info;
  FileStatus status = InfoOf(path, info);
  if (status == FileStatus::Ok) {
    status = info.readOnly ? FileStatus::AccessDenied
                           : Uninterrupted([&] { return platform::files().Remove(path); });
  }
  CheckFileStatus(status, u"modUtils.RemoveFile()", path);
}

void deleteINI(std::u16string_view appPath, std::u16string_view showName, std::u16string_view pageName) {
  const std::u16string path = PageSettingsPath(appPath, showName, pageName);
  if (FileExists(path)) RemoveFile(path);
}

void CreateDirs(clsObjectList& dirParts) {
  for (std::int32_t count = 1; count <= dirParts.Size(); ++count) {
    CreateLevel(dirParts.JoinStrings(u"\\", count));
  }
}

}  // namespace vestrel::modUtils
