// A component for scripts that play a whole evening: it turns the clock and the message boxes of the loaded
// Vestrel.dll aside, so that the script decides what time it is and sees what is shown.
//   Attach()              from now on
//   Now                   the milliseconds since the system's start that the library sees
//   MessageBox            a function of the script, called with text and caption
#include <oaidl.h>
#include <objbase.h>
#include <oleauto.h>
#include <windows.h>

#include <array>
#include <string>

#include "tests/component/host/Registry.h"

namespace host {
namespace {

constexpr CLSID kClassId = {0x0F6B7B9C, 0x3A57, 0x4E0C, {0x9C, 0x1B, 0x64, 0x2E, 0x8A, 0x90, 0x5D, 0x13}};
constexpr const wchar_t* kName = L"VestrelTests.Stagehand";

HINSTANCE instance = nullptr;
DWORD now = 0;
IDispatch* messageBox = nullptr;

DWORD WINAPI TickCount() {
  return now;
}

int WINAPI ShowMessageBox(HWND /*owner*/, LPCWSTR text, LPCWSTR caption, UINT /*kind*/) {
  if (messageBox == nullptr) return IDOK;
  std::array<VARIANT, 2> arguments{};
  V_VT(&arguments[0]) = VT_BSTR;
  V_BSTR(&arguments[0]) = SysAllocString(caption);
  V_VT(&arguments[1]) = VT_BSTR;
  V_BSTR(&arguments[1]) = SysAllocString(text);
  DISPPARAMS parameters{arguments.data(), nullptr, 2, 0};
  messageBox->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                     nullptr, nullptr);
  for (VARIANT& argument : arguments) VariantClear(&argument);
  return IDOK;
}

HRESULT Attach() {
  HMODULE library = GetModuleHandleW(L"Vestrel.dll");
  if (library == nullptr) return E_UNEXPECTED;
  const bool found = TurnAside(library, "GetTickCount", reinterpret_cast<void*>(&TickCount)) != nullptr &&
                     TurnAside(library, "MessageBoxW", reinterpret_cast<void*>(&ShowMessageBox)) != nullptr;
  return found ? S_OK : E_FAIL;
}

HRESULT SetMessageBox(const VARIANT& value) {
  if (V_VT(&value) != VT_DISPATCH || V_DISPATCH(&value) == nullptr) return DISP_E_TYPEMISMATCH;
  messageBox = V_DISPATCH(&value);
  messageBox->AddRef();
  return S_OK;
}

HRESULT SetNow(const VARIANT& value) {
  VARIANT number;
  VariantInit(&number);
  const HRESULT code = VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_I4);
  if (SUCCEEDED(code)) now = static_cast<DWORD>(V_I4(&number));
  return code;
}

// Component interfaces have no virtual destructors: objects are never deleted through them. This one is there
// once.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
class Stagehand final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    const bool known = id == IID_IUnknown || id == IID_IDispatch;
    *result = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count, LCID /*locale*/,
                                          DISPID* ids) override {
    static const std::array<std::wstring, 3> kNames{L"Attach", L"Now", L"MessageBox"};
    for (std::size_t i = 0; count == 1 && i < kNames.size(); ++i) {
      if (CompareStringOrdinal(kNames[i].c_str(), -1, names[0], -1, TRUE) != CSTR_EQUAL) continue;
      ids[0] = static_cast<DISPID>(i + 1);
      return S_OK;
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID /*reserved*/, LCID /*locale*/, WORD /*flags*/,
                                   DISPPARAMS* parameters, VARIANT* /*result*/, EXCEPINFO* /*information*/,
                                   UINT* /*argument*/) override {
    if (id == 1) return Attach();
    if (parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
    return id == 2 ? SetNow(parameters->rgvarg[0]) : SetMessageBox(parameters->rgvarg[0]);
  }
};

class Factory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    const bool known = id == IID_IUnknown || id == IID_IClassFactory;
    *result = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* /*outer*/, REFIID id, void** result) override {
    static Stagehand stagehand;
    return stagehand.QueryInterface(id, result);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL /*lock*/) override { return S_OK; }
};
#pragma GCC diagnostic pop

LONG Write(const std::wstring& key, const std::wstring& text) {
  const std::wstring path = L"Software\\Classes\\" + key;
  return RegSetKeyValueW(HKEY_LOCAL_MACHINE, path.c_str(), nullptr, REG_SZ, text.c_str(),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

}  // namespace
}  // namespace host

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) host::instance = module;
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, LPVOID* result) {
  static host::Factory factory;
  return classId == host::kClassId ? factory.QueryInterface(id, result) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
  return S_FALSE;
}

STDAPI DllRegisterServer() {
  std::array<wchar_t, 1024> path{};
  std::array<wchar_t, 40> id{};
  GetModuleFileNameW(host::instance, path.data(), static_cast<DWORD>(path.size()));
  StringFromGUID2(host::kClassId, id.data(), static_cast<int>(id.size()));
  const std::wstring key = std::wstring(L"CLSID\\") + id.data();
  const bool written = host::Write(std::wstring(host::kName) + L"\\CLSID", id.data()) == ERROR_SUCCESS &&
                       host::Write(key + L"\\InprocServer32", path.data()) == ERROR_SUCCESS;
  return written ? S_OK : E_FAIL;
}
