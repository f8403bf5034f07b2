// What a C++ host wants in order to use the component server through the virtual tables of Vestrel.h: counted
// pointers, texts, arguments by reference, failures as exceptions, and a base for the host's own objects.
#pragma once

#include <Vestrel.h>
#include <oleauto.h>

#include <string>
#include <type_traits>
#include <utility>

namespace com {

// What a failing call answered: its result code, and the description that came with it.
struct Failure {
  HRESULT code;
  std::wstring description;

  // The number of an error of the library's, which travels as 0x800A0000 + number.
  int number() const { return static_cast<int>(code & 0xFFFF); }
};

// A counted interface pointer.
template <class I>
class Pointer {
 public:
  Pointer() = default;
  // Takes a reference of its own.
  explicit Pointer(I* borrowed) : pointer_(borrowed) {
    if (pointer_ != nullptr) pointer_->AddRef();
  }
  Pointer(const Pointer& other) : Pointer(other.pointer_) {}
  Pointer& operator=(Pointer other) {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ~Pointer() {
    if (pointer_ != nullptr) pointer_->Release();
  }

  I* operator->() const { return pointer_; }
  I* get() const { return pointer_; }
  // For a result: lets go of what was held.
  I** out() {
    *this = Pointer();
    return &pointer_;
  }
  // For an argument, which travels by reference.
  I** by() { return &pointer_; }

 private:
  I* pointer_ = nullptr;
};

// A text that travels.
class Text {
 public:
  Text() = default;
  explicit Text(const std::wstring& text) : text_(SysAllocString(text.c_str())) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { SysFreeString(text_); }

  BSTR* by() { return &text_; }
  BSTR* out() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  std::wstring str() const { return text_ == nullptr ? L"" : text_; }

 private:
  BSTR text_ = nullptr;
};

// A number or enumeration by reference, for the length of the call that it is written in.
template <class T>
std::remove_reference_t<T>* By(T&& value) {
  return &value;
}

inline void Check(HRESULT code) {
  if (SUCCEEDED(code)) return;
  Text description;
  Pointer<IErrorInfo> information;
  if (GetErrorInfo(0, information.out()) == S_OK) information->GetDescription(description.out());
  throw Failure{code, description.str()};
}

// A new object of the class, through the class's own interface.
template <class Class, class I>
Pointer<I> Create() {
  Pointer<I> result;
  Check(CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, __uuidof(I),
                         reinterpret_cast<void**>(result.out())));
  return result;
}

// The same object through another of its interfaces.
template <class J, class I>
Pointer<J> As(const Pointer<I>& object) {
  Pointer<J> result;
  Check(object->QueryInterface(__uuidof(J), reinterpret_cast<void**>(result.out())));
  return result;
}

// Component interfaces have no virtual destructors: objects go when their last reference does.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// A host's object that implements I. The library calls it through the virtual table, so the late-bound half
// of the dual interface need not be there.
template <class Self, class I>
class HostObject : public I {
 public:
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  // A new one, held by its result alone.
  template <class... A>
  static Pointer<I> Make(A&&... arguments) {
    Pointer<I> result;
    *result.by() = new Self(std::forward<A>(arguments)...);
    return result;
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(I);
    *result = known ? static_cast<I*>(this) : nullptr;
    if (known) ++references_;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete static_cast<Self*>(this);
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* /*count*/) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* /*names*/, UINT /*count*/,
                                          LCID /*locale*/, DISPID* /*ids*/) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID /*id*/, REFIID /*reserved*/, LCID /*locale*/, WORD /*flags*/,
                                   DISPPARAMS* /*parameters*/, VARIANT* /*result*/,
                                   EXCEPINFO* /*information*/, UINT* /*argument*/) override {
    return E_NOTIMPL;
  }

 protected:
  HostObject() = default;

 private:
  ULONG references_ = 1;
};

#pragma GCC diagnostic pop

}  // namespace com
