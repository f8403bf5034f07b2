#include "tests/component/host/Published.h"

namespace host {
namespace {

Place PlaceOf(ITypeInfo* owner, const TYPEDESC& description) {
  const TYPEDESC* type = &description;
  while (type->vt == VT_PTR) type = type->lptdesc;
  switch (type->vt) {
    case VT_BOOL:
      return {Fits::Boolean, {}};
    case VT_BSTR:
      return {Fits::Text, {}};
    case VT_SAFEARRAY:
      return {Fits::Array, {}};
    case VT_VARIANT:
      return {Fits::Anything, {}};
    case VT_DISPATCH:
      return {Fits::Object, IID_IDispatch};
    case VT_USERDEFINED:
      break;
    default:
      return {Fits::Number, {}};
  }
  Pointer<ITypeInfo> named;
  TYPEATTR* attributes = nullptr;
  owner->GetRefTypeInfo(type->hreftype, named.out());
  if (!named || FAILED(named->GetTypeAttr(&attributes))) return {};
  const TYPEKIND kind = attributes->typekind;
  const GUID id = attributes->guid;
  named->ReleaseTypeAttr(attributes);
  if (kind == TKIND_RECORD) return {Fits::Record, {}};
  if (kind == TKIND_INTERFACE || kind == TKIND_DISPATCH) return {Fits::Object, id};
  return {Fits::Number, {}};
}

Member ReadMember(ITypeInfo* owner, const FUNCDESC& function) {
  Member member{function.memid, static_cast<WORD>(function.invkind), 0, {}};
  for (SHORT p = 0; p < function.cParams; ++p) {
    const ELEMDESC& parameter = function.lprgelemdescParam[p];
    if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) continue;
    member.places.push_back(PlaceOf(owner, parameter.tdesc));
    if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT) == 0) member.required = member.places.size();
  }
  return member;
}

}  // namespace

std::vector<Class> ReadClasses(const wchar_t* path) {
  std::vector<Class> classes;
  Pointer<ITypeLib> library;
  if (FAILED(LoadTypeLibEx(path, REGKIND_NONE, library.out()))) return classes;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    Pointer<ITypeInfo> type;
    TYPEATTR* attributes = nullptr;
    library->GetTypeInfo(i, type.out());
    type->GetTypeAttr(&attributes);
    const bool isClass = attributes->typekind == TKIND_COCLASS;
    Text name;
    type->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr);
    Class found{attributes->guid, name.str(), {}};
    type->ReleaseTypeAttr(attributes);
    if (!isClass) continue;
    Pointer<ITypeInfo> face;
    HREFTYPE reference = 0;
    type->GetRefTypeOfImplType(0, &reference);
    type->GetRefTypeInfo(reference, face.out());
    FUNCDESC* function = nullptr;
    for (UINT f = 0; SUCCEEDED(face->GetFuncDesc(f, &function)); ++f) {
      // What every dispatch interface has is not the library's.
      if (function->memid < 0x60000000) found.members.push_back(ReadMember(face.get(), *function));
      face->ReleaseFuncDesc(function);
    }
    classes.push_back(std::move(found));
  }
  return classes;
}

const Class* ClassOf(const std::vector<Class>& classes, IDispatch* object) {
  const std::wstring name = ClassName(object);
  for (const Class& candidate : classes) {
    if (candidate.name == name) return &candidate;
  }
  return nullptr;
}

Value Make(const Class& made) {
  IDispatch* object = nullptr;
  CoCreateInstance(made.id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, reinterpret_cast<void**>(&object));
  Value result(object);
  if (object != nullptr) object->Release();
  return result;
}

HRESULT Invoke(const Value& object, const Member& member, std::vector<VARIANT>& reversed, VARIANT* result) {
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut =
      (member.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 && !reversed.empty();
  DISPPARAMS parameters{reversed.data(), isPut ? &put : nullptr, static_cast<UINT>(reversed.size()),
                        isPut ? 1U : 0U};
  EXCEPINFO information{};
  UINT argument = 0;
  const HRESULT code = object.object()->Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, member.flags,
                                               &parameters, result, &information, &argument);
  SysFreeString(information.bstrSource);
  SysFreeString(information.bstrDescription);
  return code;
}

}  // namespace host
