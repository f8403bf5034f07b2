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
