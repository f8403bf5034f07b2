#include "workbench/host/ShowFolders.h"

#include <string>
#include <system_error>

#include "core/Error.h"

namespace vestrel::workbench {

namespace fs = std::filesystem;

namespace {

constexpr std::u16string_view kSource = u"ShowFolders";

const std::u16string_view& ExpectName(const std::u16string_view& name) {
  const bool plain = !name.empty() && name != u"." && name != u".." &&
                     name.find_first_of(u"/\\") == std::u16string_view::npos;
  if (!plain) RaiseError(Error_BadFileNameOrNumber, kSource, name);
  return name;
}

void MoveFolder(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (!fs::is_directory(from, error)) RaiseError(Error_PathNotFound, kSource, from.u16string());
  if (fs::exists(to, error)) {
    throw Error(Error_PathFileAccess, std::u16string(kSource), u"There is one of that name already");
  }
  fs::create_directories(to.parent_path(), error);
  fs::rename(from, to, error);
  if (error) RaiseError(Error_PathFileAccess, kSource, from.u16string());
}

}  // namespace

fs::path ShowFolders::Show(std::u16string_view name) const {
  return dataFolder_ / "Sequences" / ExpectName(name);
}

fs::path ShowFolders::Page(std::u16string_view show, std::u16string_view page) const {
  return Show(show) / ExpectName(page);
}

bool ShowFolders::Exists(std::u16string_view name) const {
  std::error_code ignored;
  return fs::exists(Show(name), ignored);
}

std::u16string ShowFolders::FirstShowBut(std::u16string_view name) const {
  std::u16string first;
  std::error_code error;
  for (fs::directory_iterator at(dataFolder_ / "Sequences", error), end; !error && at != end;
       at.increment(error)) {
    const std::u16string show = at->path().filename().u16string();
    if (at->is_directory() && show != name && (first.empty() || show < first)) first = show;
  }
  return first;
}

void ShowFolders::RenameShow(std::u16string_view from, std::u16string_view to) const {
  MoveFolder(Show(from), Show(to));
}

void ShowFolders::PutShowAside(std::u16string_view name) const {
  PutAside(Show(name), std::u16string(name));
}

void ShowFolders::MovePage(std::u16string_view show, std::u16string_view from, std::u16string_view to) const {
  std::error_code error;
  const fs::path source = Page(show, from);
  const fs::path target = Page(show, to);
  if (!fs::is_directory(source, error)) return;
  fs::create_directories(target, error);
  fs::copy(source, target, fs::copy_options::recursive | fs::copy_options::overwrite_existing, error);
  // The old folder goes only when all of it stands in the new one.
  if (error) RaiseError(Error_PathFileAccess, kSource, source.u16string());
  fs::remove_all(source, error);
}

void ShowFolders::PutPageAside(std::u16string_view show, std::u16string_view page) const {
  std::error_code error;
  const fs::path folder = Page(show, page);
  if (fs::is_directory(folder, error)) PutAside(folder, std::u16string(show) + u" - " + std::u16string(page));
}

void ShowFolders::PutAside(const fs::path& folder, const std::u16string& name) const {
  std::error_code error;
  fs::path target = dataFolder_ / "Deleted" / name;
  for (int number = 2; fs::exists(target, error); ++number) {
    target = dataFolder_ / "Deleted" / name;
    target += " (" + std::to_string(number) + ")";
  }
  MoveFolder(folder, target);
}

}  // namespace vestrel::workbench
