// The library's version, major.minor.patch. It is written once, in the root CMakeLists.txt.
#pragma once

#include <string_view>

namespace vestrel {

std::u16string_view Version() noexcept;

}  // namespace vestrel
