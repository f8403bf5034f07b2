// A host's object with late binding only, which writes every call of one of its names into a log and answers
// what it was told to.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/component/host/Automation.h"

namespace host {

// Component interfaces have no virtual destructors: objects are never deleted through them.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
class ScriptedHost final : public IDispatch {
 public:
  explicit ScriptedHost(std::vector<std::wstring> names) : names_(std::move(names)) {}

  std::vector<std::wstring> log;
  std::map<std::wstring, Value> answers;
  // Called with the arguments of each call of that name, first argument first; its result is the call's.
  std::map<std::wstring, std::function<HRESULT(std::vector<Value>& arguments)>> actions;
  // Fills the information on a failing action in another way than with the failure's code and fixed texts.
  std::function<void(EXCEPINFO& information)> tells;
  // How many references there are.
  ULONG references() const { return references_; }
  bool Logged(const wchar_t* entry) const;
  std::wstring Last() const { return log.empty() ? L"" : log.back(); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* information,
                                   UINT* argument) override;

 private:
  std::vector<std::wstring> names_;
  ULONG references_ = 1;
};
#pragma GCC diagnostic pop

// "12", "True", "text", "<Intro>" for a button or event of that name, "<clsPage>" for another object, "none".
std::wstring Described(const Value& value);

}  // namespace host
