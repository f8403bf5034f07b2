// The library as a loaded module: its handle, and whether it is still in use.
#pragma once

#include <string>

#include "component/com/Windows.h"

namespace vestrel::component {

HINSTANCE ModuleInstance() noexcept;
// Called once, when the module is loaded.
void SetModuleInstance(HINSTANCE instance) noexcept;
// The full name of the module's file.
std::u16string ModulePath();

// Locks that hosts hold on the server.
void LockModule(bool lock) noexcept;
// Whether no host holds an object or a lock.
bool ModuleIsIdle() noexcept;

}  // namespace vestrel::component
