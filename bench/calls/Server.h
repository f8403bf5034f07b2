// The component server, loaded from its file: nothing needs to be registered.
#pragma once

#include <Vestrel.h>
#include <oaidl.h>
#include <windows.h>

namespace vestrel::bench {

// Ends the program, with a word on what went wrong, when the code is one of failure or a finding does not
// hold.
void Must(HRESULT code, const char* what);
void MustHold(bool holds, const char* what);

class Server {
 public:
  explicit Server(const wchar_t* file);

  // A new object of the class through the class's own interface. Lives as long as the program.
  template <class Class, class I>
  I* New() const {
    return static_cast<I*>(Create(__uuidof(Class), __uuidof(I)));
  }

 private:
  using GetClassObject = HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**);

  void* Create(REFCLSID classId, REFIID id) const;

  GetClassObject getClassObject_ = nullptr;
};

// The type library's description of the object's interface. Lives as long as the program.
ITypeInfo* TypeOf(IDispatch* object);

}  // namespace vestrel::bench
