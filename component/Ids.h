// The ids of the type library, of every class with its interface, of every enumeration and of the fader
// record. They are fixed for ever: compiled hosts carry them. New classes get new ids; none is ever changed
// or used again.
#pragma once

#include <string_view>

#include "component/Guid.h"

namespace vestrel::component {

struct ClassIds {
  std::string_view name;
  Guid interfaceId;  // of the class's dual interface, which hosts implement where it is a callback interface
  Guid classId;
};

// The type library and its version, which counts incompatible changes of the interfaces: none are planned.
const Guid& LibraryId() noexcept;
inline constexpr int kLibraryMajor = 1;
inline constexpr int kLibraryMinor = 0;

const ClassIds& IdsOf(std::string_view className);
// Of an enumeration or of the record TUIFaderValues.
const Guid& IdOfType(std::string_view typeName);

}  // namespace vestrel::component
