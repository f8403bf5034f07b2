// What registration writes, and writing and removing it: for the machine, or for the user where rights lack.
#pragma once

#include <string>
#include <vector>

#include "component/com/Windows.h"

namespace vestrel::component {

// One value under the classes key; an empty name is the key's default value.
struct RegistryValue {
  std::u16string key;
  std::u16string name;
  std::u16string text;
};

// All values for the library at `modulePath`.
std::vector<RegistryValue> RegistrationValues(const std::u16string& modulePath);

HRESULT RegisterModule() noexcept;
// Removes everything for the machine and for the user. What another build of the library (of the other
// bitness) shares with this one stays until that is unregistered too.
HRESULT UnregisterModule() noexcept;

}  // namespace vestrel::component
