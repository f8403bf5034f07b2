#include "workbench/server/Names.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "core/Convert.h"

namespace vestrel::workbench {

namespace fs = std::filesystem;

namespace {

// A button's line holds 254 bytes, of which its other six fields take up to 54.
constexpr std::size_t kLongestButtonName = 200;
// With the show's name, the page's name and an extension well within what file systems take.
constexpr std::size_t kLongestFolderName = 120;
constexpr std::string_view kNoName = "\\/:*?\"<>|";
constexpr std::array<std::u16string_view, 4> kDevices{u"con", u"prn", u"aux", u"nul"};

bool IsControl(char byte) {
  return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

bool IsDevice(std::string_view name) {
  const std::u16string stem = LowerCase(FromUtf8(name.substr(0, name.find('.'))));
  if (std::find(kDevices.begin(), kDevices.end(), stem) != kDevices.end()) return true;
  return stem.size() == 4 && (stem.starts_with(u"com") || stem.starts_with(u"lpt")) && stem[3] >= u'1' &&
         stem[3] <= u'9';
}

std::string CharacterProblem(std::string_view name) {
  if (std::any_of(name.begin(), name.end(), IsControl)) return "a name cannot have line breaks or tabs";
  const std::size_t bad = name.find_first_of(kNoName);
  if (bad != std::string_view::npos) return std::string("a name cannot have the character ") + name[bad];
  return {};
}

std::string NameProblem(std::string_view name, std::size_t longest) {
  if (name.empty()) return "a name is needed";
  if (name.size() > longest) return "the name is longer than " + std::to_string(longest) + " bytes";
  if (std::string problem = CharacterProblem(name); !problem.empty()) return problem;
  if (name.front() == ' ' || name.back() == ' ') return "a name cannot begin or end with a blank";
  if (name.back() == '.') return "a name cannot end with a dot";
  if (IsDevice(name)) return "\"" + std::string(name) + "\" is the name of a device on some systems";
  return {};
}

bool LiesIn(const fs::path& path, const fs::path& folder) {
  const auto [end, rest] = std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
  return end == folder.end();
}

}  // namespace

std::string FolderNameProblem(std::string_view name) {
  if (name.starts_with("$$")) return "names that begin with $$ are kept for the program itself";
  return NameProblem(name, kLongestFolderName);
}

std::string ButtonNameProblem(std::string_view name) {
  return NameProblem(name, kLongestButtonName);
}

std::string PathProblem(std::string_view path, const fs::path& dataFolder) {
  std::string text(path);
  std::replace(text.begin(), text.end(), '\\', '/');
  if (std::any_of(text.begin(), text.end(), IsControl)) return "a path cannot have line breaks or tabs";
  if (text.starts_with('/') || text.find(':') != std::string::npos) {
    return "only paths inside the data folder are allowed";
  }
  const fs::path relative(text);
  if (std::find(relative.begin(), relative.end(), "..") != relative.end()) {
    return "a path cannot leave the data folder";
  }
  std::error_code error;
  const fs::path real = fs::weakly_canonical(dataFolder / relative, error);
  if (error || !LiesIn(real, dataFolder)) return "the path leaves the data folder";
  return {};
}

}  // namespace vestrel::workbench
