#include "workbench/host/ItemFiles.h"

#include <array>
#include <span>
#include <system_error>

namespace vestrel::workbench {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 3> kSequenceFiles{"ASQ", "BMP", "UQF"};
constexpr std::array<std::string_view, 1> kMultiFiles{"MUL"};
constexpr std::array<std::string_view, 1> kTimelineFiles{"TLN"};
constexpr std::array<std::string_view, 1> kAutoFiles{"AUT"};

std::span<const std::string_view> ExtensionsOf(ButtonTypeEnum type) {
  switch (type) {
    case ButtonType_Sequence:
      return kSequenceFiles;
    case ButtonType_Multi:
      return kMultiFiles;
    case ButtonType_Timeline:
      return kTimelineFiles;
    case ButtonType_Auto:
      return kAutoFiles;
    default:
      return {};
  }
}

bool IsFileName(std::u16string_view name) {
  return !name.empty() && name != u"." && name != u".." &&
         name.find_first_of(u"\\/:*?\"<>|") == std::u16string_view::npos;
}

}  // namespace

bool ItemFiles::Exists(ButtonTypeEnum type, const ItemName& item) const {
  bool exists = false;
  ForEach(type, item, item, [&](const fs::path&, const fs::path&, std::error_code&) { exists = true; });
  return exists;
}

void ItemFiles::Copy(ButtonTypeEnum type, const ItemName& from, const ItemName& to) const {
  ForEach(type, from, to, [](const fs::path& source, const fs::path& target, std::error_code& error) {
    fs::copy_file(source, target, fs::copy_options::overwrite_existing, error);
  });
}

void ItemFiles::Move(ButtonTypeEnum type, const ItemName& from, const ItemName& to) const {
  ForEach(type, from, to, [](const fs::path& source, const fs::path& target, std::error_code& error) {
    fs::rename(source, target, error);
  });
}

void ItemFiles::Delete(ButtonTypeEnum type, const ItemName& item) const {
  ForEach(type, item, item,
          [](const fs::path& file, const fs::path&, std::error_code& error) { fs::remove(file, error); });
}

template <class Action>
void ItemFiles::ForEach(ButtonTypeEnum type, const ItemName& from, const ItemName& to, Action action) const {
  if (!CanBeFile(from) || !CanBeFile(to)) return;
  for (const std::string_view extension : ExtensionsOf(type)) {
    std::error_code ignored;
    const fs::path source = PathOf(from, extension);
    if (fs::exists(source, ignored)) action(source, PathOf(to, extension), ignored);
  }
}

fs::path ItemFiles::PathOf(const ItemName& item, std::string_view extension) const {
  fs::path path = dataFolder_ / "Sequences" / showName_ / item.page / item.name;
  path += ".";
  path += extension;
  return path;
}

bool ItemFiles::CanBeFile(const ItemName& item) const {
  return IsFileName(showName_) && IsFileName(item.page) && IsFileName(item.name);
}

}  // namespace vestrel::workbench
