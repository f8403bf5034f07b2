#pragma once

#include <string>
#include <string_view>

namespace vestrel::bench {

// A path as the library names it.
std::u16string LibraryPath(std::string_view path);

}  // namespace vestrel::bench
