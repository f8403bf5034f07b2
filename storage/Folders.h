// Where settings files lie, whether files are there, and the making of folders. Stateless.
#pragma once

#include <string>
#include <string_view>

namespace vestrel {

class clsObjectList;

namespace modUtils {

// appPath\Sequences\showName
std::u16string ShowFolder(std::u16string_view appPath, std::u16string_view showName);
// appPath\Sequences\showName\pageSetting.ini: the show's list of pages.
std::u16string ShowSettingsPath(std::u16string_view appPath, std::u16string_view showName);
// appPath\Sequences\showName\pageName\pageSetting.ini: the page's groups and buttons.
std::u16string PageSettingsPath(std::u16string_view appPath, std::u16string_view showName,
                                std::u16string_view pageName);

// Whether there is a file of that name; a folder is none. Raises 52 for a name that no file can have and 57,
// 70 or 75 where the system cannot tell.
bool FileExists(std::u16string_view path);
// Whether there is a file or folder of that name. The empty path, which stands before a leading separator,
// is.
bool PathExists(std::u16string_view path);
// Raises 52, 53, 57, 70, 75 (also for a read-only file) or 76.
void RemoveFile(std::u16string_view path);

// Deletes the page's settings file if it is there; its folder stays. Raises 52, 57, 70 or 75 when it cannot
// be deleted.
void deleteINI(std::u16string_view appPath, std::u16string_view showName, std::u16string_view pageName);

// Makes the folder whose path is the boxed strings of `dirParts` joined with "\", and every folder on the
// way. A file of a wanted name counts as that folder. Logs each level at SPEW and each folder made at INFO.
// Raises 13 for an item that is no clsString, 91 without a log, and 52, 57, 61, 75 or 76 for a folder that
// cannot be made.
void CreateDirs(clsObjectList& dirParts);

}  // namespace modUtils
}  // namespace vestrel
