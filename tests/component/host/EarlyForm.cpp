#include "tests/component/host/EarlyForm.h"

namespace host {
namespace {

void SetTexts(const wchar_t* source, const wchar_t* description) {
  Pointer<ICreateErrorInfo> creator;
  if (FAILED(CreateErrorInfo(creator.out()))) return;
  creator->SetSource(const_cast<LPOLESTR>(source));
  creator->SetDescription(const_cast<LPOLESTR>(description));
  SetErrorInfo(0, creator.As<IErrorInfo>().get());
}

}  // namespace

HRESULT EarlyForm::HideSplashScreen() {
  if (FAILED(answer) && setsTexts) SetTexts(L"the form", L"it does not want to");
  Noted(L"HideSplashScreen");
  return answer;
}

}  // namespace host
