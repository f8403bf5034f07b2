// What a C++ host needs to use the server through the virtual tables of the generated header: counted
// pointers, texts, values by reference, and a base for objects that implement one of the library's interfaces
// by the interface itself.
#pragma once

#include <Vestrel.h>
#include <oaidl.h>
#include <oleauto.h>

#include <string>
#include <type_traits>
#include <utility>

namespace host {

template <class I>
class Pointer {
 public:
  Pointer() = default;
  Pointer(I* borrowed) : pointer_(borrowed) {  // NOLINT: a plain pointer is borrowed
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

  I* get() const { return pointer_; }
  I* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }
  // For results: lets go of what was held.
  I** out() {
    *this = Pointer();
    return &pointer_;
  }
  // For arguments, which travel by reference.
  I** by() { return &pointer_; }
  template <class J>
  Pointer<J> As() const {
    Pointer<J> result;
    if (pointer_ != nullptr) pointer_->QueryInterface(__uuidof(J), reinterpret_cast<void**>(result.out()));
    return result;
  }

 private:
  I* pointer_ = nullptr;
};

// A new object of the class through the class's own interface.
template <class Class, class I>
Pointer<I> New() {
  Pointer<I> result;
  CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, __uuidof(I),
                   reinterpret_cast<void**>(result.out()));
  return result;
}

class Text {
 public:
  Text() = default;
  Text(const wchar_t* text) : text_(SysAllocString(text)) {}               // NOLINT
  Text(const std::wstring& text) : text_(SysAllocString(text.c_str())) {}  // NOLINT
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { SysFreeString(text_); }

  BSTR* by() { return &text_; }
  BSTR* out() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  BSTR get() const { return text_; }
  std::wstring str() const { return text_ == nullptr ? L"" : text_; }

 private:
  BSTR text_ = nullptr;
};

// A value by reference, for the length of the call it is written in.
template <class T>
std::remove_reference_t<T>* By(T&& value) {
  return &value;
}
inline VARIANT_BOOL* By(bool truth) {
  static thread_local VARIANT_BOOL values[8];
  static thread_local int next = 0;
  next = (next + 1) % 8;
  values[next] = truth ? VARIANT_TRUE : VARIANT_FALSE;
  return &values[next];
}

// Component interfaces have no virtual destructors: objects are never deleted through them.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// A host's object that implements I through its virtual table and counts calls that came by name instead,
// which it refuses.
template <class I>
class EarlyHost : public I {
 public:
  ULONG references = 1;
  int lateCalls = 0;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(I);
    *result = known ? static_cast<I*>(this) : nullptr;
    if (known) ++references;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* /*names*/, UINT /*count*/,
                                          LCID /*locale*/, DISPID* /*ids*/) override {
    ++lateCalls;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID /*id*/, REFIID /*reserved*/, LCID /*locale*/, WORD /*flags*/,
                                   DISPPARAMS* /*parameters*/, VARIANT* /*result*/,
                                   EXCEPINFO* /*information*/, UINT* /*argument*/) override {
    ++lateCalls;
    return E_NOTIMPL;
  }
};

#pragma GCC diagnostic pop

}  // namespace host
