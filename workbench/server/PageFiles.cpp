#include "workbench/server/PageFiles.h"

namespace vestrel::workbench {

const PageFile* FindPageFile(std::string_view path) {
  for (const PageFile& file : PageFiles()) {
    if (file.path == path) return &file;
  }
  return nullptr;
}

}  // namespace vestrel::workbench
