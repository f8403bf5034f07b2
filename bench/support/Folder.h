// A fresh folder on the real disk for one run of a program, removed at its end.
#pragma once

#include <string>
#include <string_view>

namespace vestrel::bench {

// The folder, made when first asked for; without a separator at its end.
const std::string& Folder();

// A path as the library names it.
std::u16string LibraryPath(std::string_view path);

}  // namespace vestrel::bench
