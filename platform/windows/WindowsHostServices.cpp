#include "platform/Platform.h"
#include "platform/System.h"
#include "platform/windows/WindowsText.h"

namespace vestrel::platform {
namespace {

const char insideThisModule = 0;

HMODULE ThisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&insideThisModule),  // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
      &module);
  return module;
}

std::wstring PathOf(HMODULE module) {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

class WindowsHostServices final : public HostServices {
 public:
  void ShowMessageBox(std::u16string_view text, std::u16string_view caption) override {
    MessageBoxW(GetActiveWindow(), ToWide(text).c_str(), ToWide(caption).c_str(), MB_OK | MB_TASKMODAL);
  }

  void PumpMessages() override {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));  // it is the host's own loop that must end
        return;
      }
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }

  std::u16string ModuleFolder() override {
    const std::wstring path = PathOf(ThisModule());
    const std::size_t end = path.find_last_of(L'\\');
    return FromWide(std::wstring_view(path).substr(0, end == std::wstring::npos ? 0 : end));
  }
};

}  // namespace

HostServices& SystemHostServices() {
  static WindowsHostServices services;
  return services;
}

void SetMessageBoxFunction(MessageBoxFunction /*function*/, void* /*context*/) {}

void SetPumpFunction(PumpFunction /*function*/, void* /*context*/) {}

}  // namespace vestrel::platform
