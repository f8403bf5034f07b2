#include "component/com/Failure.h"

#include <new>

#include "component/ByName.h"
#include "component/com/ComPtr.h"
#include "core/Error.h"

namespace vestrel::component {

BSTR NewText(std::u16string_view text) {
  BSTR result =
      SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()));
  if (result == nullptr) throw std::bad_alloc();
  return result;
}

namespace {

constexpr std::uint32_t kErrorBase = 0x800A0000U;
constexpr std::u16string_view kHostSource = u"Vestrel host";

struct CodePair {
  HRESULT code;
  std::int32_t number;
};

constexpr CodePair kOwnNumbers[] = {
    {DISP_E_UNKNOWNNAME, Error_NoSuchMember},
    {DISP_E_MEMBERNOTFOUND, Error_NoSuchMember},
    {DISP_E_TYPEMISMATCH, Error_TypeMismatch},
    {DISP_E_OVERFLOW, Error_Overflow},
    {DISP_E_BADINDEX, Error_SubscriptOutOfRange},
    {DISP_E_BADPARAMCOUNT, Error_WrongArgumentCount},
    {DISP_E_PARAMNOTOPTIONAL, Error_ArgumentNotOptional},
    {DISP_E_PARAMNOTFOUND, Error_NoSuchNamedArgument},
    {E_OUTOFMEMORY, Error_OutOfMemory},
};

HRESULT CodeOfStatus(CallStatus status) noexcept {
  switch (status) {
    case CallStatus::UnknownMember:
      return DISP_E_MEMBERNOTFOUND;
    case CallStatus::WrongArgumentCount:
      return DISP_E_BADPARAMCOUNT;
    case CallStatus::ArgumentRequired:
      return DISP_E_PARAMNOTOPTIONAL;
    case CallStatus::UnknownArgumentName:
      return DISP_E_PARAMNOTFOUND;
    case CallStatus::Overflow:
      return DISP_E_OVERFLOW;
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

// Null where memory lacks: the number alone must do then.
BSTR TryNewText(const std::u16string& text) noexcept {
  return SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()));
}

void Fill(EXCEPINFO& information, const Error& error) noexcept {
  information = {};
  information.scode = CodeOf(error.number());
  information.bstrSource = TryNewText(error.source());
  information.bstrDescription = TryNewText(error.description());
}

void SetInformation(const Error& error) noexcept {
  ComPtr<ICreateErrorInfo> creator;
  if (FAILED(CreateErrorInfo(creator.Receive()))) return;
  creator->SetSource(const_cast<LPOLESTR>(WideOf(error.source())));
  creator->SetDescription(const_cast<LPOLESTR>(WideOf(error.description())));
  if (const auto information = Ask<IErrorInfo>(creator.get(), IID_IErrorInfo))
    SetErrorInfo(0, information.get());
}

// Without memory for the error there is still its code.
template <class OnError>
HRESULT ReportNoMemory(OnError onError) noexcept {
  try {
    return onError(Error(Error_OutOfMemory, u"Vestrel", std::u16string(RuntimeErrorText(Error_OutOfMemory))));
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

// Handles everything but Error, which the caller tells in its own way.
template <class OnError>
HRESULT Report(int* argument, OnError onError) noexcept {
  try {
    throw;
  } catch (const Error& error) {
    return onError(error);
  } catch (const CallFailure& failure) {
    if (argument != nullptr) *argument = failure.argument;
    return CodeOfStatus(failure.status);
  } catch (const ComFailure& failure) {
    return failure.code;
  } catch (const std::bad_alloc&) {
    return ReportNoMemory(onError);
  } catch (...) {
    return E_UNEXPECTED;
  }
}

std::u16string TakeText(BSTR text) {
  std::u16string result(ViewOf(text));
  SysFreeString(text);
  return result;
}

[[noreturn]] void Raise(HRESULT code, std::u16string source, std::u16string description) {
  const std::int32_t number = NumberOf(code);
  if (source.empty()) source = kHostSource;
  if (description.empty()) description = RuntimeErrorText(number);
  throw Error(number, std::move(source), std::move(description));
}

}  // namespace

HRESULT CodeOf(std::int32_t number) noexcept {
  if (number < 0) return number;
  return static_cast<HRESULT>(kErrorBase + (static_cast<std::uint32_t>(number) & 0xFFFFU));
}

std::int32_t NumberOf(HRESULT code) noexcept {
  const auto bits = static_cast<std::uint32_t>(code);
  if ((bits & 0xFFFF0000U) == kErrorBase) return static_cast<std::int32_t>(bits & 0xFFFFU);
  for (const CodePair& pair : kOwnNumbers) {
    if (pair.code == code) return pair.number;
  }
  return code;
}

HRESULT WithoutTexts(HRESULT code) noexcept {
  SetErrorInfo(0, nullptr);
  return code;
}

HRESULT ReportLateBound(EXCEPINFO* information, int* argument) noexcept {
  SetErrorInfo(0, nullptr);
  return Report(argument, [information](const Error& error) {
    if (information == nullptr) return CodeOf(error.number());
    Fill(*information, error);
    return DISP_E_EXCEPTION;
  });
}

HRESULT ReportEarlyBound() noexcept {
  SetErrorInfo(0, nullptr);
  return Report(nullptr, [](const Error& error) {
    SetInformation(error);
    return CodeOf(error.number());
  });
}

void RaiseHostFailure(HRESULT code) {
  Raise(code, {}, {});
}

void RaiseHostFailure(HRESULT code, IUnknown* callee, const IID& id) {
  std::u16string source;
  std::u16string description;
  ComPtr<IErrorInfo> information;
  const auto support = Ask<ISupportErrorInfo>(callee, IID_ISupportErrorInfo);
  if (support && support->InterfaceSupportsErrorInfo(id) == S_OK &&
      GetErrorInfo(0, information.Receive()) == S_OK) {
    BSTR text = nullptr;
    if (SUCCEEDED(information->GetSource(&text))) source = TakeText(text);
    text = nullptr;
    if (SUCCEEDED(information->GetDescription(&text))) description = TakeText(text);
  }
  Raise(code, std::move(source), std::move(description));
}

void RaiseHostFailure(HRESULT code, EXCEPINFO& information) {
  if (code != DISP_E_EXCEPTION) Raise(code, {}, {});
  if (information.pfnDeferredFillIn != nullptr) information.pfnDeferredFillIn(&information);
  std::u16string source = TakeText(information.bstrSource);
  std::u16string description = TakeText(information.bstrDescription);
  SysFreeString(information.bstrHelpFile);
  const HRESULT number = information.wCode != 0 ? CodeOf(std::int32_t{information.wCode}) : information.scode;
  Raise(FAILED(number) ? number : E_FAIL, std::move(source), std::move(description));
}

}  // namespace vestrel::component
