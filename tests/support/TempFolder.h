// A fresh folder on the real disk, removed with all it holds at the end of the test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace vestrel::test {

class TempFolder {
 public:
  explicit TempFolder(const std::filesystem::path& where = std::filesystem::temp_directory_path()) {
    std::string name = (where / "vestrel-XXXXXX").string();
    root_ = mkdtemp(name.data());
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  std::filesystem::path Real(std::string_view name = {}) const { return name.empty() ? root_ : root_ / name; }
  // As the library names it, with "\".
  std::u16string Path(std::string_view name = {}) const {
    std::u16string path = Real(name).u16string();
    for (char16_t& unit : path) {
      if (unit == u'/') unit = u'\\';
    }
    return path;
  }
  void Put(std::string_view name, std::string_view bytes) const {
    std::ofstream(Real(name), std::ios::binary) << bytes;
  }
  std::string Get(std::string_view name) const {
    std::ifstream file(Real(name), std::ios::binary);
    if (!file) return "<none>";
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path root_;
};

}  // namespace vestrel::test
