#include "component/com/Module.h"

#include <atomic>

#include "component/com/Wrapper.h"

namespace vestrel::component {
namespace {

HINSTANCE moduleInstance = nullptr;
std::atomic<long> locks{0};

}  // namespace

HINSTANCE ModuleInstance() noexcept {
  return moduleInstance;
}

void SetModuleInstance(HINSTANCE instance) noexcept {
  moduleInstance = instance;
}

std::u16string ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(moduleInstance, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return std::u16string(ViewOf(path.data(), length));
    path.resize(path.size() * 2);
  }
}

void LockModule(bool lock) noexcept {
  locks += lock ? 1 : -1;
}

bool ModuleIsIdle() noexcept {
  return locks == 0 && Wrapper::Count() == 0;
}

}  // namespace vestrel::component

// The linker leads every registration of a destructor for a thread's own value here. It runs when the thread
// ends, and then the runtime lets go of the module from within: where that was the last hold on it, nothing
// would be left to return to. So a module with such values stays.
extern "C" int __real___cxa_thread_atexit(void* destructor, void* value, void* module);
extern "C" int __wrap___cxa_thread_atexit(void* destructor, void* value, void* module) {
  HMODULE pinned = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<LPCWSTR>(vestrel::component::moduleInstance), &pinned);
  return __real___cxa_thread_atexit(destructor, value, module);
}
