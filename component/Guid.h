// The 128-bit ids of the component system, without its headers.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace vestrel::component {

struct Guid {
  std::uint32_t data1;
  std::uint16_t data2;
  std::uint16_t data3;
  std::array<std::uint8_t, 8> data4;

  friend bool operator==(const Guid&, const Guid&) = default;
};

// "0C733A30-2A1C-11CE-ADE5-00AA0044773D", without braces.
std::string ToText(const Guid& guid);

}  // namespace vestrel::component
