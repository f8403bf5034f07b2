#include "tests/component/host/Automation.h"

#include <algorithm>

namespace host {
namespace {

Value Converted(const VARIANT& variant, VARTYPE type) {
  Value result;
  if (FAILED(VariantChangeType(result.raw(), const_cast<VARIANT*>(&variant), 0, type))) return {};
  return result;
}

std::wstring Take(BSTR text) {
  std::wstring result = text == nullptr ? L"" : text;
  SysFreeString(text);
  return result;
}

void SetError(Outcome& outcome, HRESULT code) {
  if ((static_cast<DWORD>(code) & 0xFFFF0000U) == 0x800A0000U) outcome.error = code & 0xFFFF;
}

// Whether the call came to its operation, which may have failed.
bool Reached(HRESULT code) {
  return SUCCEEDED(code) || code == DISP_E_EXCEPTION ||
         (static_cast<DWORD>(code) & 0xFFFF0000U) == 0x800A0000U;
}

class LateDoor final : public Door {
 public:
  const char* name() const override { return "late bound"; }

  Outcome Call(IDispatch* object, const wchar_t* member, Access access,
               const std::vector<Argument>& arguments) override {
    Outcome outcome;
    std::vector<LPOLESTR> names{const_cast<LPOLESTR>(member)};
    for (const Argument& argument : arguments) {
      if (!argument.name.empty()) names.push_back(const_cast<LPOLESTR>(argument.name.c_str()));
    }
    std::vector<DISPID> ids(names.size());
    outcome.code = object->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                         LOCALE_USER_DEFAULT, ids.data());
    if (FAILED(outcome.code)) return outcome;
    Invoke(object, ids, access, arguments, outcome);
    if (Reached(outcome.code)) NoteCall(object, member, access);
    return outcome;
  }

 private:
  static void Invoke(IDispatch* object, std::vector<DISPID>& ids, Access access,
                     const std::vector<Argument>& arguments, Outcome& outcome) {
    static constexpr WORD kFlags[] = {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT,
                                      DISPATCH_PROPERTYPUTREF};
    // Named arguments go first, the others after them in reverse order.
    std::vector<VARIANT> list;
    std::vector<Value> copies(arguments.size());
    for (std::size_t i = arguments.size(); i-- > 0;) {
      const Argument& argument = arguments[i];
      VARIANT variant;
      VariantInit(&variant);
      if (argument.missing) {
        V_VT(&variant) = VT_ERROR;
        V_ERROR(&variant) = DISP_E_PARAMNOTFOUND;
      } else if (argument.out != nullptr) {
        V_VT(&variant) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&variant) = argument.out->raw();
      } else {
        copies[i] = argument.value;
        variant = copies[i].variant();
      }
      list.push_back(variant);
    }
    std::vector<DISPID> named(ids.rbegin(), ids.rend() - 1);
    if (access == Access::Put || access == Access::PutRef) named.assign(1, DISPID_PROPERTYPUT);
    DISPPARAMS parameters{list.data(), named.data(), static_cast<UINT>(list.size()),
                          static_cast<UINT>(named.size())};
    EXCEPINFO information{};
    UINT wrong = 0;
    outcome.code = object->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, kFlags[static_cast<int>(access)],
                                  &parameters, outcome.result.raw(), &information, &wrong);
    if (outcome.code == DISP_E_EXCEPTION) {
      SetError(outcome, information.scode);
      outcome.source = Take(information.bstrSource);
      outcome.description = Take(information.bstrDescription);
    }
  }
};

// One argument or result in the form in which it travels through a slot.
struct Travelling {
  Value value;                  // what keeps it alive
  IUnknown* pointer = nullptr;  // of an object
  LONG record[16] = {};         // of the fader record
  void* data() { return &V_I4(value.raw()); }
};

class TypeDoor final : public Door {
 public:
  const char* name() const override { return "type library"; }

  Outcome Call(IDispatch* object, const wchar_t* member, Access access,
               const std::vector<Argument>& arguments) override {
    Outcome outcome;
    ITypeInfo* info = VirtualTableOf(object);
    FUNCDESC* function = info == nullptr ? nullptr : Find(info, member, access);
    if (function == nullptr) {
      outcome.code = DISP_E_MEMBERNOTFOUND;
    } else {
      Run(object, info, *function, arguments, outcome);
      info->ReleaseFuncDesc(function);
      if (Reached(outcome.code)) NoteCall(object, member, access);
    }
    if (info != nullptr) info->Release();
    return outcome;
  }

 private:
  static ITypeInfo* VirtualTableOf(IDispatch* object) {
    ITypeInfo* dispatch = nullptr;
    ITypeInfo* table = nullptr;
    HREFTYPE reference = 0;
    if (FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &dispatch))) return nullptr;
    // The interface itself is the type that stands behind its dispatch description.
    if (SUCCEEDED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference))) {
      dispatch->GetRefTypeInfo(reference, &table);
    }
    dispatch->Release();
    return table;
  }

  static FUNCDESC* Find(ITypeInfo* info, const wchar_t* member, Access access) {
    static constexpr INVOKEKIND kKinds[] = {INVOKE_FUNC, INVOKE_PROPERTYGET, INVOKE_PROPERTYPUT,
                                            INVOKE_PROPERTYPUTREF};
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &function)); ++i) {
      BSTR name = nullptr;
      UINT count = 0;
      info->GetNames(function->memid, &name, 1, &count);
      const bool fits = function->invkind == kKinds[static_cast<int>(access)] && Take(name) == member;
      if (fits) return function;
      info->ReleaseFuncDesc(function);
    }
    return nullptr;
  }

  // The type under the pointer, with enumerations as numbers; `id` receives the interface of an object.
  static VARTYPE TypeOf(ITypeInfo* info, const TYPEDESC& description, GUID& id) {
    if (description.vt == VT_PTR) {
      const TYPEDESC& inner = *description.lptdesc;
      if (inner.vt == VT_USERDEFINED && KindOf(info, inner.hreftype, id) == TKIND_INTERFACE)
        return VT_UNKNOWN;
      if (inner.vt == VT_USERDEFINED && KindOf(info, inner.hreftype, id) == TKIND_DISPATCH) return VT_UNKNOWN;
      return description.vt;
    }
    if (description.vt == VT_USERDEFINED) {
      return KindOf(info, description.hreftype, id) == TKIND_RECORD ? VT_RECORD : VT_I4;
    }
    if (description.vt == VT_SAFEARRAY) return VT_ARRAY | VT_VARIANT;
    return description.vt;
  }

  static TYPEKIND KindOf(ITypeInfo* info, HREFTYPE reference, GUID& id) {
    ITypeInfo* type = nullptr;
    TYPEATTR* attributes = nullptr;
    TYPEKIND kind = TKIND_MAX;
    if (SUCCEEDED(info->GetRefTypeInfo(reference, &type)) && SUCCEEDED(type->GetTypeAttr(&attributes))) {
      kind = attributes->typekind;
      id = attributes->guid;
      type->ReleaseTypeAttr(attributes);
    }
    if (type != nullptr) type->Release();
    return kind;
  }

  static void Run(IDispatch* object, ITypeInfo* info, const FUNCDESC& function,
                  const std::vector<Argument>& arguments, Outcome& outcome) {
    const bool hasResult =
        function.cParams > 0 &&
        (function.lprgelemdescParam[function.cParams - 1].paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
    const auto inputs = static_cast<std::size_t>(function.cParams - (hasResult ? 1 : 0));
    if (arguments.size() > inputs) {
      outcome.code = DISP_E_BADPARAMCOUNT;
      return;
    }
    std::vector<Travelling> values(static_cast<std::size_t>(function.cParams));
    std::vector<VARIANT> variants(values.size());
    std::vector<VARTYPE> types(values.size());
    std::vector<VARTYPE> inner(values.size());
    std::vector<VARIANT*> pointers;
    for (std::size_t i = 0; i < values.size(); ++i) {
      const TYPEDESC& description = function.lprgelemdescParam[i].tdesc;
      GUID id{};
      VARTYPE byValue = TypeOf(info, description, id);
      const bool byReference = byValue == VT_PTR;
      const VARTYPE type = byReference ? TypeOf(info, *description.lptdesc, id) : byValue;
      inner[i] = type;
      VARIANT& variant = variants[i];
      VariantInit(&variant);
      void* address = nullptr;
      if (i < inputs) {
        const bool given = i < arguments.size() && !arguments[i].missing;
        if (given) {
          outcome.code =
              Fill(values[i], type, id, arguments[i].out != nullptr ? *arguments[i].out : arguments[i].value);
          if (FAILED(outcome.code)) return Finish(values);
          address = AddressOf(values[i], type);
        }
      } else {
        address = AddressOf(values[i], type);
        if (type == VT_VARIANT) VariantInit(values[i].value.raw());
      }
      if (byReference) {
        V_VT(&variant) = VT_BYREF | VT_I4;
        V_BYREF(&variant) = address;
        types[i] = VT_BYREF | VT_I4;
      } else {
        if (type == VT_UNKNOWN) {
          V_VT(&variant) = VT_UNKNOWN;
          V_UNKNOWN(&variant) = values[i].pointer;
        } else {
          variant = values[i].value.variant();
        }
        types[i] = type;
      }
    }
    for (VARIANT& variant : variants) pointers.push_back(&variant);
    VARIANT code;
    VariantInit(&code);
    IUnknown* table = nullptr;
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    object->QueryInterface(attributes->guid, reinterpret_cast<void**>(&table));
    info->ReleaseTypeAttr(attributes);
    const HRESULT called =
        DispCallFunc(table, static_cast<ULONG_PTR>(function.oVft), function.callconv, VT_I4,
                     static_cast<UINT>(types.size()), types.data(), pointers.data(), &code);
    if (table != nullptr) table->Release();
    outcome.code = FAILED(called) ? called : V_I4(&code);
    if (FAILED(outcome.code)) {
      TakeErrorInformation(outcome);
    } else {
      for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i].out != nullptr) *arguments[i].out = Taken(values[i], inner[i]);
      }
      if (hasResult) outcome.result = Taken(values.back(), inner.back());
    }
    Finish(values);
  }

  static void* AddressOf(Travelling& travelling, VARTYPE type) {
    switch (type) {
      case VT_UNKNOWN:
      case VT_DISPATCH:
        return &travelling.pointer;
      case VT_RECORD:
        return travelling.record;
      case VT_VARIANT:
        return travelling.value.raw();
      default:
        if (travelling.value.type() == VT_EMPTY) V_VT(travelling.value.raw()) = type;
        return travelling.data();
    }
  }

  static HRESULT Fill(Travelling& travelling, VARTYPE type, const GUID& id, const Value& value) {
    const VARIANT& source = value.variant();
    if (type == VT_UNKNOWN || type == VT_DISPATCH) {
      if (V_VT(&source) == VT_EMPTY) return S_OK;
      if (V_VT(&source) != VT_DISPATCH) return DISP_E_TYPEMISMATCH;
      if (V_DISPATCH(&source) == nullptr) return S_OK;
      const HRESULT code = V_DISPATCH(&source)->QueryInterface(type == VT_DISPATCH ? IID_IDispatch : id,
                                                               reinterpret_cast<void**>(&travelling.pointer));
      return FAILED(code) ? DISP_E_TYPEMISMATCH : S_OK;
    }
    if (type == VT_RECORD) return S_OK;
    if (type == VT_VARIANT || type == (VT_ARRAY | VT_VARIANT)) {
      travelling.value = value;
      return S_OK;
    }
    if (V_VT(&source) == VT_EMPTY) {
      V_VT(travelling.value.raw()) = type;
      V_I8(travelling.value.raw()) = 0;
      return S_OK;
    }
    return VariantChangeType(travelling.value.raw(), const_cast<VARIANT*>(&source), 0, type);
  }

  // The value after the call, by itself.
  static Value Taken(Travelling& travelling, VARTYPE type) {
    if (type != VT_UNKNOWN && type != VT_DISPATCH) return travelling.value;
    IDispatch* object = nullptr;
    if (travelling.pointer != nullptr) {
      travelling.pointer->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&object));
    }
    Value result(object);
    if (object != nullptr) object->Release();
    return result;
  }

  static void Finish(std::vector<Travelling>& values) {
    for (Travelling& travelling : values) {
      if (travelling.pointer != nullptr) travelling.pointer->Release();
    }
  }

  static void TakeErrorInformation(Outcome& outcome) {
    SetError(outcome, outcome.code);
    IErrorInfo* information = nullptr;
    if (GetErrorInfo(0, &information) != S_OK) return;
    BSTR text = nullptr;
    information->GetSource(&text);
    outcome.source = Take(text);
    text = nullptr;
    information->GetDescription(&text);
    outcome.description = Take(text);
    information->Release();
  }
};

std::vector<std::string>& Called() {
  static std::vector<std::string> members;
  return members;
}

}  // namespace

int Value::number() const {
  const Value converted = Converted(variant_, VT_I4);
  return converted.type() == VT_I4 ? V_I4(&converted.variant_) : -999999;
}

double Value::real() const {
  const Value converted = Converted(variant_, VT_R8);
  return converted.type() == VT_R8 ? V_R8(&converted.variant_) : -999999;
}

bool Value::truth() const {
  const Value converted = Converted(variant_, VT_BOOL);
  return converted.type() == VT_BOOL && V_BOOL(&converted.variant_) != VARIANT_FALSE;
}

std::wstring Value::text() const {
  const Value converted = Converted(variant_, VT_BSTR);
  const BSTR text = converted.type() == VT_BSTR ? V_BSTR(&converted.variant_) : nullptr;
  return text == nullptr ? L"" : text;
}

IDispatch* Value::object() const {
  return V_VT(&variant_) == VT_DISPATCH ? V_DISPATCH(&variant_) : nullptr;
}

Argument ByRef(Value& variable) {
  Argument result{Value()};
  result.out = &variable;
  return result;
}

Argument Missing() {
  Argument result{Value()};
  result.missing = true;
  return result;
}

Argument Named(const wchar_t* name, Value value) {
  Argument result(std::move(value));
  result.name = name;
  return result;
}

Door& LateBound() {
  static LateDoor door;
  return door;
}

Door& ThroughTypeLibrary() {
  static TypeDoor door;
  return door;
}

const std::vector<std::string>& CalledMembers() {
  return Called();
}

void ForgetCalls() {
  Called().clear();
}

void NoteCall(IDispatch* object, const wchar_t* member, Access access) {
  static constexpr const char* kKinds[] = {"", "get ", "put ", "putref "};
  std::string entry;
  for (const wchar_t unit : ClassName(object)) entry += static_cast<char>(unit);
  entry += std::string(".") + kKinds[static_cast<int>(access)];
  for (const wchar_t* unit = member; *unit != 0; ++unit) entry += static_cast<char>(*unit);
  if (std::find(Called().begin(), Called().end(), entry) == Called().end()) Called().push_back(entry);
}

Value Create(const wchar_t* className) {
  CLSID id{};
  IDispatch* object = nullptr;
  if (FAILED(CLSIDFromProgID((std::wstring(L"Vestrel.") + className).c_str(), &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(&object)))) {
    return {};
  }
  Value result(object);
  object->Release();
  return result;
}

std::wstring ClassName(IDispatch* object) {
  ITypeInfo* info = nullptr;
  BSTR name = nullptr;
  if (FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info))) return {};
  info->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
  info->Release();
  return Take(name).substr(1);
}

}  // namespace host
