// The published enumerations with their members and values, for the type library and the reference.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace vestrel::component {

struct EnumerationMember {
  std::string_view name;
  std::int32_t value;
};

struct EnumerationDescription {
  std::string_view name;
  std::string_view help;
  std::span<const EnumerationMember> members;
};

std::span<const EnumerationDescription> AllEnumerations() noexcept;

// The member of the enumeration with that value, or an empty text.
std::string_view NameOfValue(std::string_view enumeration, std::int32_t value) noexcept;

}  // namespace vestrel::component
