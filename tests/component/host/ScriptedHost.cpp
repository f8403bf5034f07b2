#include "tests/component/host/ScriptedHost.h"

#include <algorithm>

namespace host {

std::wstring Described(const Value& value) {
  if (value.type() == VT_BOOL) return value.truth() ? L"True" : L"False";
  if (value.type() != VT_DISPATCH) return value.text();
  if (value.object() == nullptr) return L"none";
  const std::wstring name = ClassName(value.object());
  if (name != L"clsButton") return L"<" + name + L">";
  return L"<" + LateBound().Call(value.object(), L"name", Access::Get, {}).result.text() + L">";
}

bool ScriptedHost::Logged(const wchar_t* entry) const {
  return std::find(log.begin(), log.end(), entry) != log.end();
}

HRESULT ScriptedHost::QueryInterface(REFIID id, void** result) {
  *result = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
  if (*result == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

HRESULT ScriptedHost::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT ScriptedHost::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** info) {
  *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT ScriptedHost::GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT /*count*/, LCID /*locale*/,
                                    DISPID* ids) {
  for (std::size_t i = 0; i < names_.size(); ++i) {
    if (CompareStringOrdinal(names_[i].c_str(), -1, names[0], -1, TRUE) != CSTR_EQUAL) continue;
    ids[0] = static_cast<DISPID>(i + 1);
    return S_OK;
  }
  ids[0] = DISPID_UNKNOWN;
  return DISP_E_UNKNOWNNAME;
}

HRESULT ScriptedHost::Invoke(DISPID id, REFIID /*reserved*/, LCID /*locale*/, WORD /*flags*/,
                             DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* information,
                             UINT* /*argument*/) {
  if (id < 1 || static_cast<std::size_t>(id) > names_.size()) return DISP_E_MEMBERNOTFOUND;
  const std::wstring& name = names_[static_cast<std::size_t>(id - 1)];
  std::vector<Value> arguments;
  std::wstring entry = name + L"(";
  for (UINT i = parameters->cArgs; i-- > 0;) {
    Value argument;
    VariantCopyInd(argument.raw(), &parameters->rgvarg[i]);
    if (!arguments.empty()) entry += L",";
    entry += Described(argument);
    arguments.push_back(argument);
  }
  log.push_back(entry + L")");
  if (const auto action = actions.find(name); action != actions.end()) {
    const HRESULT code = action->second(arguments);
    if (FAILED(code)) {
      if (information == nullptr) return code;
      *information = {};
      if (tells) {
        tells(*information);
        return DISP_E_EXCEPTION;
      }
      information->scode = code;
      information->bstrSource = SysAllocString(L"the host");
      information->bstrDescription = SysAllocString(L"the host failed");
      return DISP_E_EXCEPTION;
    }
  }
  if (const auto answer = answers.find(name); answer != answers.end() && result != nullptr) {
    VariantCopy(result, const_cast<VARIANT*>(&answer->second.variant()));
  }
  return S_OK;
}

}  // namespace host
