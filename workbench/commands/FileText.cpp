#include "workbench/commands/FileText.h"

#include <fstream>
#include <sstream>

namespace vestrel::workbench {

std::string PathText(const std::filesystem::path& path) {
  const std::u8string text = path.generic_u8string();
  return {text.begin(), text.end()};
}

std::string FileContents(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream contents;
  contents << stream.rdbuf();
  return contents.str();
}

}  // namespace vestrel::workbench
