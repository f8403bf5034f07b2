#include "bench/calls/Plain.h"

#include <string>

namespace vestrel::bench {
namespace {

class Holder final : public Plain {
 public:
  Holder(LONG value, const wchar_t* words) : value_(value), words_(words) {}

  HRESULT STDMETHODCALLTYPE Value(LONG* result) override {
    *result = value_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OneMore(LONG* number, LONG* result) override {
    *result = *number + 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Words(BSTR* result) override {
    *result = SysAllocStringLen(words_.data(), static_cast<UINT>(words_.size()));
    return *result == nullptr ? E_OUTOFMEMORY : S_OK;
  }

 private:
  LONG value_;
  std::wstring words_;
};

}  // namespace

std::unique_ptr<Plain> MakePlain(LONG value, const wchar_t* words) {
  return std::make_unique<Holder>(value, words);
}

}  // namespace vestrel::bench
