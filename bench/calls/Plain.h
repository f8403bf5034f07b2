// What a call through a virtual table costs when nothing stands between caller and object.
#pragma once

#include <objbase.h>
#include <oleauto.h>
#include <windows.h>

#include <memory>

namespace vestrel::bench {

class Plain {
 public:
  virtual ~Plain() = default;
  virtual HRESULT STDMETHODCALLTYPE Value(LONG* result) = 0;
  virtual HRESULT STDMETHODCALLTYPE OneMore(LONG* number, LONG* result) = 0;
  // A new text, as the caller of a component gets one.
  virtual HRESULT STDMETHODCALLTYPE Words(BSTR* result) = 0;
};

std::unique_ptr<Plain> MakePlain(LONG value, const wchar_t* words);

}  // namespace vestrel::bench
