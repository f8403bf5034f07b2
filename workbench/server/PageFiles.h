// The files of the page, built into the program (cmake/EmbedFiles.cmake).
#pragma once

#include <span>
#include <string_view>

namespace vestrel::workbench {

struct PageFile {
  // As in the address: "/app.js"; the page itself is "/".
  std::string_view path;
  std::string_view type;
  std::string_view bytes;
};

std::span<const PageFile> PageFiles();

// Null when there is none of that path.
const PageFile* FindPageFile(std::string_view path);

}  // namespace vestrel::workbench
