// The four entry points of a component server, and the module's own.
#include "component/com/ClassFactory.h"
#include "component/com/Module.h"
#include "component/com/Registration.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) vestrel::component::SetModuleInstance(instance);
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, LPVOID* result) {
  if (result == nullptr) return E_POINTER;
  return vestrel::component::GetClassFactory(classId, id, result);
}

STDAPI DllCanUnloadNow() {
  return vestrel::component::ModuleIsIdle() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return vestrel::component::RegisterModule();
}

STDAPI DllUnregisterServer() {
  return vestrel::component::UnregisterModule();
}
