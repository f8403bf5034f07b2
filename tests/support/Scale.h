// How much of a long test runs.
#pragma once

#include <cstdlib>
#include <string_view>

namespace vestrel::test {

// The whole of a test, with VESTREL_SCALE=long in the environment; a part of it otherwise.
inline bool RunsLong() {
  const char* const scale = std::getenv("VESTREL_SCALE");
  return scale != nullptr && std::string_view(scale) == "long";
}

}  // namespace vestrel::test
