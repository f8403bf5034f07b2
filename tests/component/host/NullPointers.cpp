#include "tests/component/host/NullPointers.h"

namespace host {
namespace {

// Room for whatever an argument points to; nothing, as every type tells it.
struct Room {
  alignas(16) unsigned char bytes[128] = {};
};

// An object that travels by value is a pointer that stays null.
bool IsObject(ITypeInfo* owner, const TYPEDESC& type) {
  if (type.vt != VT_PTR || type.lptdesc->vt != VT_USERDEFINED) return false;
  Pointer<ITypeInfo> named;
  TYPEATTR* attributes = nullptr;
  owner->GetRefTypeInfo(type.lptdesc->hreftype, named.out());
  if (!named || FAILED(named->GetTypeAttr(&attributes))) return false;
  const TYPEKIND kind = attributes->typekind;
  named->ReleaseTypeAttr(attributes);
  return kind == TKIND_INTERFACE || kind == TKIND_DISPATCH;
}

class Slot {
 public:
  Slot(IDispatch* object, ITypeInfo* table, const FUNCDESC& function)
      : object_(object), function_(function), rooms_(static_cast<std::size_t>(function.cParams)) {
    TYPEATTR* attributes = nullptr;
    table->GetTypeAttr(&attributes);
    object_->QueryInterface(attributes->guid, reinterpret_cast<void**>(face_.out()));
    table->ReleaseTypeAttr(attributes);
    for (SHORT i = 0; i < function.cParams; ++i) {
      const TYPEDESC& type = function.lprgelemdescParam[i].tdesc;
      types_.push_back(IsObject(table, type)       ? VARTYPE{VT_UNKNOWN}
                       : type.vt == VT_USERDEFINED ? VARTYPE{VT_I4}
                                                   : type.vt);
    }
  }

  std::size_t places() const { return types_.size(); }
  bool hasResult() const {
    return !types_.empty() &&
           (function_.lprgelemdescParam[types_.size() - 1].paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
  }
  // With room behind every pointer but those that `isNull` names; what travels by value is zero.
  template <class IsNull>
  HRESULT Call(IsNull isNull) {
    std::vector<VARIANT> values(places());
    std::vector<VARIANT*> pointers;
    std::vector<VARTYPE> types;
    for (std::size_t i = 0; i < places(); ++i) {
      rooms_[i] = {};
      VARIANT& value = values[i];
      VariantInit(&value);
      const bool byReference = types_[i] == VT_PTR;
      types.push_back(byReference ? VARTYPE{VT_BYREF | VT_I4} : types_[i]);
      if (byReference) V_BYREF(&value) = isNull(i) ? nullptr : static_cast<void*>(&rooms_[i]);
      if (types_[i] != VT_VARIANT) V_VT(&value) = types.back();
      pointers.push_back(&value);
    }
    VARIANT code;
    VariantInit(&code);
    const HRESULT called =
        DispCallFunc(face_.get(), static_cast<ULONG_PTR>(function_.oVft), function_.callconv, VT_I4,
                     static_cast<UINT>(places()), types.data(), pointers.data(), &code);
    return FAILED(called) ? called : V_I4(&code);
  }

 private:
  IDispatch* object_;
  Pointer<IUnknown> face_;
  const FUNCDESC& function_;
  std::vector<VARTYPE> types_;
  std::vector<Room> rooms_;
};

void InEveryPlace(Slot& slot) {
  const HRESULT code = slot.Call([](std::size_t) { return true; });
  if (slot.hasResult()) CHECK_EQ(code, E_POINTER);
  for (std::size_t alone = 0; alone < slot.places(); ++alone) {
    slot.Call([alone](std::size_t i) { return i == alone; });
    slot.Call([alone](std::size_t i) { return i != alone; });
  }
}

}  // namespace

void NullPointers(const std::vector<Class>& classes) {
  for (const Class& tried : classes) {
    const Value object = Make(tried);
    Pointer<ITypeInfo> late;
    Pointer<ITypeInfo> table;
    HREFTYPE reference = 0;
    object.object()->GetTypeInfo(0, LOCALE_USER_DEFAULT, late.out());
    CHECK_EQ(late->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    CHECK_EQ(late->GetRefTypeInfo(reference, table.out()), S_OK);
    FUNCDESC* function = nullptr;
    for (UINT i = 0; table && SUCCEEDED(table->GetFuncDesc(i, &function)); ++i) {
      Slot slot(object.object(), table.get(), *function);
      InEveryPlace(slot);
      table->ReleaseFuncDesc(function);
    }
  }
}

}  // namespace host
