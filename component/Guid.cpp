#include "component/Guid.h"

#include <array>
#include <cstdio>

namespace vestrel::component {

std::string ToText(const Guid& guid) {
  const auto& d = guid.data4;
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X",
                static_cast<unsigned>(guid.data1), static_cast<unsigned>(guid.data2),
                static_cast<unsigned>(guid.data3), static_cast<unsigned>(d[0]), static_cast<unsigned>(d[1]),
                static_cast<unsigned>(d[2]), static_cast<unsigned>(d[3]), static_cast<unsigned>(d[4]),
                static_cast<unsigned>(d[5]), static_cast<unsigned>(d[6]), static_cast<unsigned>(d[7]));
  return text.data();
}

}  // namespace vestrel::component
