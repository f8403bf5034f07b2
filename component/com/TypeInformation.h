// The type library that the module carries.
#pragma once

#include "component/com/ComPtr.h"

namespace vestrel::component {

// The description of the class or interface of that id.
HRESULT TypeInformationOf(const GUID& id, ITypeInfo** result) noexcept;

// An id in the component system's own form.
struct Guid;
GUID SystemGuid(const Guid& guid) noexcept;

}  // namespace vestrel::component
