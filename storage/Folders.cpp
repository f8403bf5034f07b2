#include "storage/Folders.h"

#include "core/FileError.h"
#include "core/clsObjectList.h"
#include "platform/Platform.h"
#include "util/modLog.h"

namespace vestrel::modUtils {
namespace {

constexpr std::u16string_view kSettingsFile = u"\\pageSetting.ini";

void CreateLevel(std::u16string_view path) {
  modLog::LogFormat(LogLevel_4_SPEW, u"checking dir [%s]", path);
  if (PathExists(path)) {
    modLog::LogFormat(LogLevel_4_SPEW, u"dir [%s] already existed", path);
    return;
  }
  CheckFileStatus(platform::files().MakeDirectory(path), u"modUtils.CreateDirs()", path);
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
  return platform::files().Info(path, info) == platform::FileStatus::Ok && !info.directory;
}

bool PathExists(std::u16string_view path) {
  platform::FileInfo info;
  return path.empty() || platform::files().Info(path, info) == platform::FileStatus::Ok;
}

void RemoveFile(std::u16string_view path) {
  CheckFileStatus(platform::files().Remove(path), u"modUtils.RemoveFile()", path);
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
