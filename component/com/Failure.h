// The one place where failures cross the boundary: exceptions become result codes with EXCEPINFO or
// IErrorInfo, and a host's failing callback becomes an error of the library.
#pragma once

#include "component/Call.h"
#include "component/com/Windows.h"

namespace vestrel::component {

// Thrown for a result code that is handed on as it is.
struct ComFailure {
  HRESULT code;
};

inline void Check(HRESULT code) {
  if (FAILED(code)) throw ComFailure{code};
}

// 0x800A0000 + number; a number that is a result code itself stays as it is.
HRESULT CodeOf(std::int32_t number) noexcept;
// The reverse, with the platform's own codes for missing members, arguments and conversions told as the
// classic numbers.
std::int32_t NumberOf(HRESULT code) noexcept;

// Hands a failing code on alone: what the thread's error information told of an earlier failure is dropped,
// so that callers do not take it for this one's.
HRESULT WithoutTexts(HRESULT code) noexcept;

// What the exception being handled is for a late-bound caller: DISP_E_EXCEPTION with `information` filled
// (where given) for an error of the library, which missing memory is too, otherwise the platform's own code;
// `argument` receives the position of the argument at fault and otherwise stays.
HRESULT ReportLateBound(EXCEPINFO* information, int* argument) noexcept;
// The same for a caller through the virtual table, with IErrorInfo set for an error of the library and none
// otherwise.
HRESULT ReportEarlyBound() noexcept;

// Runs `action` for a caller through the virtual table.
template <class Action>
HRESULT Guarded(Action&& action) noexcept {
  try {
    action();
    return S_OK;
  } catch (...) {
    return ReportEarlyBound();
  }
}

// Raises the error that a host's failing callback stands for, or its answer that does not convert. `callee`
// and `id` say whose error information to look for.
[[noreturn]] void RaiseHostFailure(HRESULT code);
[[noreturn]] void RaiseHostFailure(HRESULT code, IUnknown* callee, const IID& id);
// The same for a late-bound callback; takes the texts in `information` over.
[[noreturn]] void RaiseHostFailure(HRESULT code, EXCEPINFO& information);

}  // namespace vestrel::component
