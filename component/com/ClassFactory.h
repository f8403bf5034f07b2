// Makes objects of one class for hosts. Factories are part of the module and not counted; a host that must
// keep the module locks it.
#pragma once

#include "component/com/Windows.h"

namespace vestrel::component {

// The factory of the class, as the interface asked for.
HRESULT GetClassFactory(const CLSID& classId, const IID& id, void** result) noexcept;

}  // namespace vestrel::component
