#include "component/com/HostCaller.h"

#include <string>

#include "component/com/Failure.h"
#include "component/com/Values.h"

namespace vestrel::component {
namespace {

DISPID FindExtended(IDispatchEx* object, std::u16string_view name) {
  BSTR text = NewText(name);
  DISPID id = DISPID_UNKNOWN;
  HRESULT code = object->GetDispID(text, fdexNameCaseSensitive, &id);
  if (FAILED(code)) code = object->GetDispID(text, fdexNameCaseInsensitive, &id);
  SysFreeString(text);
  return SUCCEEDED(code) ? id : DISPID_UNKNOWN;
}

}  // namespace

HostCaller::HostCaller(IUnknown* object) : extended_(Ask<IDispatchEx>(object, __uuidof(IDispatchEx))) {
  if (!extended_) plain_ = Ask<IDispatch>(object, IID_IDispatch);
}

DISPID HostCaller::Find(std::u16string_view name) const {
  if (extended_) return FindExtended(extended_.get(), name);
  if (!plain_) return DISPID_UNKNOWN;
  const std::u16string text(name);
  auto* pointer = const_cast<LPOLESTR>(WideOf(text));
  DISPID id = DISPID_UNKNOWN;
  const HRESULT code = plain_->GetIDsOfNames(IID_NULL, &pointer, 1, LOCALE_USER_DEFAULT, &id);
  return SUCCEEDED(code) ? id : DISPID_UNKNOWN;
}

void HostCaller::Invoke(DISPID id, WORD flags, VARIANT* reversed, UINT count, VARIANT* result) const {
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{reversed, isPut ? &put : nullptr, count, isPut ? 1U : 0U};
  EXCEPINFO information{};
  UINT argument = 0;
  const HRESULT code = extended_ ? extended_->InvokeEx(id, LOCALE_USER_DEFAULT, flags, &parameters, result,
                                                       &information, nullptr)
                                 : plain_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                                  result, &information, &argument);
  if (FAILED(code)) RaiseHostFailure(code, information);
  if (result == nullptr || LeadsToAValue(*result)) return;
  V_VT(result) = VT_EMPTY;  // nothing of it is owned
  RaiseHostFailure(DISP_E_TYPEMISMATCH);
}

}  // namespace vestrel::component
