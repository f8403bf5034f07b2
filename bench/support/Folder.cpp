#include "bench/support/Folder.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace vestrel::bench {
namespace {

class TemporaryFolder {
 public:
  TemporaryFolder() : path_((std::filesystem::current_path() / "bench-XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no folder for the benchmark");
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace

const std::string& Folder() {
  static const TemporaryFolder folder;
  return folder.path();
}

}  // namespace vestrel::bench
