#include "bench/calls/Server.h"

#include <cstdio>
#include <cstdlib>

namespace vestrel::bench {

void Must(HRESULT code, const char* what) {
  if (SUCCEEDED(code)) return;
  std::printf("failed: %s, 0x%08lX\n", what, static_cast<unsigned long>(code));
  std::exit(2);
}

void MustHold(bool holds, const char* what) {
  Must(holds ? S_OK : E_FAIL, what);
}

Server::Server(const wchar_t* file) {
  const HMODULE module = LoadLibraryW(file);
  MustHold(module != nullptr, "loading the component server");
  getClassObject_ =
      reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
  MustHold(getClassObject_ != nullptr, "finding its entry point");
}

void* Server::Create(REFCLSID classId, REFIID id) const {
  IClassFactory* factory = nullptr;
  Must(getClassObject_(classId, IID_IClassFactory, reinterpret_cast<void**>(&factory)), "asking for a class");
  void* object = nullptr;
  Must(factory->CreateInstance(nullptr, id, &object), "making an object");
  factory->Release();
  return object;
}

ITypeInfo* TypeOf(IDispatch* object) {
  ITypeInfo* type = nullptr;
  Must(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), "asking for the type library's description");
  return type;
}

}  // namespace vestrel::bench
