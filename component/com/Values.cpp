#include "component/com/Values.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "component/UIFaderValues.h"
#include "component/com/FaderRecord.h"
#include "component/com/Failure.h"
#include "component/com/HostCaller.h"
#include "component/com/HostObject.h"
#include "component/com/SafeArrays.h"
#include "component/com/Wrapper.h"
#include "core/Cast.h"
#include "core/HasValue.h"
#include "core/clsLong.h"
#include "core/clsString.h"

namespace vestrel::component {
namespace {

// Numbers and dates in text are read and written the same way whatever the user's locale.
const LCID kLocale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

constexpr std::u16string_view kValueProperty = u"value";

bool IsObject(const VARIANT& value) noexcept {
  return V_VT(&value) == VT_DISPATCH || V_VT(&value) == VT_UNKNOWN;
}

IUnknown* PointerOf(const VARIANT& value) noexcept {
  return V_UNKNOWN(&value);
}

// The system's functions take their sources as variables, but only read them.
void CopyReferred(AutoVariant& target, const VARIANT& source) {
  Check(VariantCopyInd(&target, const_cast<VARIANT*>(&source)));
}

// The double nearest to what the single is written as: 0.1 stays 0.1.
double Widened(float value) {
  std::array<char, 32> text{};
  const char* end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  double result = value;
  std::from_chars(text.data(), end, result);
  return result;
}

// The plain value that an object stands for.
void ValueOfObject(const VARIANT& value, AutoVariant& result) {
  IUnknown* pointer = PointerOf(value);
  if (pointer == nullptr) throw ComFailure{DISP_E_TYPEMISMATCH};
  if (Object* own = Wrapper::CoreOf(pointer)) {
    auto* plain = TryCast<HasValue>(own);
    if (plain == nullptr) throw ComFailure{DISP_E_TYPEMISMATCH};
    Assign(result, plain->DefaultValue());
    return;
  }
  const HostCaller host(pointer);
  if (!host) throw ComFailure{DISP_E_TYPEMISMATCH};
  const DISPID id = host.Find(kValueProperty);
  host.Invoke(id != DISPID_UNKNOWN ? id : DISPID_VALUE, DISPATCH_PROPERTYGET, nullptr, 0, &result);
  if (IsObject(result)) throw ComFailure{DISP_E_TYPEMISMATCH};
}

// A script array is an object with a length and numbered properties.
class ScriptArray {
 public:
  explicit ScriptArray(IUnknown* object) : host_(object) {
    if (!host_) throw ComFailure{DISP_E_TYPEMISMATCH};
    const DISPID length = host_.Find(u"length");
    if (length == DISPID_UNKNOWN) throw ComFailure{DISP_E_TYPEMISMATCH};
    AutoVariant value;
    host_.Invoke(length, DISPATCH_PROPERTYGET, nullptr, 0, &value);
    AutoVariant number;
    Convert(value, VT_I4, number);
    size_ = V_I4(&number);
  }

  std::vector<Variant> Elements() const {
    std::vector<Variant> result;
    for (LONG i = 0; i < size_; ++i) {
      const DISPID id = IdOf(i);
      AutoVariant value;
      if (id != DISPID_UNKNOWN) host_.Invoke(id, DISPATCH_PROPERTYGET, nullptr, 0, &value);
      result.push_back(ToDynamic(value));
    }
    return result;
  }
  void SetElements(const std::vector<Variant>& values) const {
    for (LONG i = 0; i < size_ && static_cast<std::size_t>(i) < values.size(); ++i) {
      const DISPID id = IdOf(i);
      AutoVariant value;
      Assign(value, values[static_cast<std::size_t>(i)]);
      if (id != DISPID_UNKNOWN) host_.Invoke(id, DISPATCH_PROPERTYPUT, &value, 1, nullptr);
    }
  }

 private:
  DISPID IdOf(LONG index) const {
    const std::string digits = std::to_string(index);
    return host_.Find(std::u16string(digits.begin(), digits.end()));
  }

  HostCaller host_;
  LONG size_ = 0;
};

SAFEARRAY* ArrayIn(const VARIANT& value) noexcept {
  if ((V_VT(&value) & VT_ARRAY) == 0) return nullptr;
  return (V_VT(&value) & VT_BYREF) != 0 ? *V_ARRAYREF(&value) : V_ARRAY(&value);
}

bool IsFaderRecord(const VARIANT& value) {
  return (V_VT(&value) & ~VT_BYREF) == VT_RECORD && V_RECORD(&value) != nullptr &&
         V_RECORDINFO(&value) != nullptr;
}

FaderRecord& RecordIn(const VARIANT& value) {
  GUID id{};
  ULONG size = 0;
  Check(V_RECORDINFO(&value)->GetGuid(&id));
  Check(V_RECORDINFO(&value)->GetSize(&size));
  if (id != FaderRecordId() || size != sizeof(FaderRecord)) throw ComFailure{DISP_E_TYPEMISMATCH};
  return *static_cast<FaderRecord*>(V_RECORD(&value));
}

// The two rows of any object that has the indexed properties GroupFaders and BumpFaders.
class ScriptFaders {
 public:
  explicit ScriptFaders(IUnknown* object)
      : host_(object), group_(host_.Find(u"GroupFaders")), bump_(host_.Find(u"BumpFaders")) {}

  bool Exist() const noexcept { return group_ != DISPID_UNKNOWN && bump_ != DISPID_UNKNOWN; }

  TUIFaderValues Read() const {
    TUIFaderValues result;
    for (std::int32_t i = 1; i <= 8; ++i) {
      result.GroupFaders[i] = ReadOne(group_, i);
      result.BumpFaders[i] = ReadOne(bump_, i);
    }
    return result;
  }
  void Write(const TUIFaderValues& values) const {
    for (std::int32_t i = 1; i <= 8; ++i) {
      WriteOne(group_, i, values.GroupFaders[i]);
      WriteOne(bump_, i, values.BumpFaders[i]);
    }
  }

 private:
  std::int32_t ReadOne(DISPID id, std::int32_t index) const {
    AutoVariant argument;
    Assign(argument, index);
    AutoVariant value;
    host_.Invoke(id, DISPATCH_PROPERTYGET | DISPATCH_METHOD, &argument, 1, &value);
    AutoVariant number;
    Convert(value, VT_I4, number);
    return V_I4(&number);
  }
  void WriteOne(DISPID id, std::int32_t index, std::int32_t value) const {
    VARIANT arguments[2];  // plain numbers: nothing to clear
    V_VT(&arguments[0]) = VT_I4;
    V_I4(&arguments[0]) = value;
    V_VT(&arguments[1]) = VT_I4;
    V_I4(&arguments[1]) = index;
    host_.Invoke(id, DISPATCH_PROPERTYPUT, arguments, 2, nullptr);
  }

  HostCaller host_;
  DISPID group_;
  DISPID bump_;
};

// The property "value" of an object that grows its properties as they are set; DISPID_UNKNOWN for any other.
DISPID AddValueProperty(IUnknown* object) {
  const auto extended = Ask<IDispatchEx>(object, __uuidof(IDispatchEx));
  if (!extended) return DISPID_UNKNOWN;
  BSTR name = NewText(kValueProperty);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT code = extended->GetDispID(name, fdexNameEnsure | fdexNameCaseSensitive, &id);
  SysFreeString(name);
  return SUCCEEDED(code) ? id : DISPID_UNKNOWN;
}

// Into one of the library's own boxes.
void PutIntoBox(Object& object, const VARIANT& value) {
  if (IsObject(value)) return;
  AutoVariant converted;
  if (auto* number = TryCast<clsLong>(&object)) {
    Convert(value, VT_I4, converted);
    number->SetValue(V_I4(&converted));
  } else if (auto* text = TryCast<clsString>(&object)) {
    Convert(value, VT_BSTR, converted);
    text->SetValue(ViewOf(V_BSTR(&converted)));
  }
}

void PutValueProperty(IUnknown* object, VARIANT& value) {
  if (object == nullptr) return;
  if (Object* own = Wrapper::CoreOf(object)) return PutIntoBox(*own, value);
  const HostCaller host(object);
  if (!host) return;
  DISPID id = host.Find(kValueProperty);
  if (id == DISPID_UNKNOWN) id = AddValueProperty(object);
  if (id != DISPID_UNKNOWN) host.Invoke(id, DISPATCH_PROPERTYPUT, &value, 1, nullptr);
}

// What a host's object that is passed in the place of a variable holds in its property "value"; nothing where
// it has none yet but takes one. False for an object that does neither.
bool ReadHeld(IUnknown* object, AutoVariant& held) {
  const HostCaller host(object);
  const DISPID id = host.Find(kValueProperty);
  if (id == DISPID_UNKNOWN) return AddValueProperty(object) != DISPID_UNKNOWN;
  host.Invoke(id, DISPATCH_PROPERTYGET, nullptr, 0, &held);
  return true;
}

}  // namespace

bool LeadsToAValue(const VARIANT& value) noexcept {
  constexpr int kDeepest = 16;
  const VARIANT* end = &value;
  for (int depth = 0; depth < kDeepest; ++depth) {
    const VARTYPE type = V_VT(end);
    if ((type & ~VT_BYREF) == VT_RECORD && V_RECORDINFO(end) == nullptr) return false;
    if ((type & VT_BYREF) == 0) return true;
    if (V_BYREF(end) == nullptr) return false;
    if (type != (VT_BYREF | VT_VARIANT)) return true;
    end = V_VARIANTREF(end);
  }
  return false;
}

const VARIANT& Referred(const VARIANT& value) noexcept {
  const VARIANT* result = &value;
  while (V_VT(result) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(result) != nullptr)
    result = V_VARIANTREF(result);
  return *result;
}

bool IsOmitted(const VARIANT& value) noexcept {
  const VARIANT& referred = Referred(value);
  return V_VT(&referred) == VT_ERROR && V_ERROR(&referred) == DISP_E_PARAMNOTFOUND;
}

void Convert(const VARIANT& value, VARTYPE type, AutoVariant& result) {
  AutoVariant plain;
  const VARIANT* source = &Referred(value);
  if (V_VT(source) == (VT_BYREF | VT_DISPATCH) || V_VT(source) == (VT_BYREF | VT_UNKNOWN)) {
    CopyReferred(plain, *source);
    source = &plain;
  }
  AutoVariant own;
  if (IsObject(*source)) {
    ValueOfObject(*source, own);
    source = &own;
  }
  Check(VariantChangeTypeEx(&result, const_cast<VARIANT*>(source), kLocale, VARIANT_ALPHABOOL, type));
}

void ConvertHeld(const VARIANT& value, VARTYPE type, AutoVariant& result) {
  const bool host = IsObject(value) && PointerOf(value) != nullptr && !Wrapper::CoreOf(PointerOf(value));
  AutoVariant held;
  if (!host || !ReadHeld(PointerOf(value), held)) return Convert(value, type, result);
  if (IsObject(held)) throw ComFailure{DISP_E_TYPEMISMATCH};
  Convert(held, type, result);
}

Ref<Object> ToObject(const VARIANT& value) {
  const VARIANT& referred = Referred(value);
  switch (V_VT(&referred)) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return ObjectFrom(PointerOf(referred));
    case VT_BYREF | VT_DISPATCH:
    case VT_BYREF | VT_UNKNOWN:
      return ObjectFrom(*V_UNKNOWNREF(&referred));
    default:
      throw ComFailure{DISP_E_TYPEMISMATCH};
  }
}

Ref<Object> ToObjectOrHeld(const VARIANT& value, std::string_view className) {
  Ref<Object> object = ToObject(value);
  const auto* host = TryCast<HostReference>(object.get());
  if (host == nullptr || className.empty()) return object;
  if (object->Query(FindFaceClass(className)->info->key) != nullptr) return object;
  AutoVariant held;
  return ReadHeld(host->identity.get(), held) ? ToObject(held) : object;
}

Variant ToDynamic(const VARIANT& value) {
  AutoVariant copy;
  const VARIANT* source = &Referred(value);
  if ((V_VT(source) & VT_BYREF) != 0) {
    CopyReferred(copy, *source);
    source = &copy;
  }
  AutoVariant converted;
  switch (V_VT(source)) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_ERROR:
      return {};
    case VT_BOOL:
      return V_BOOL(source) != VARIANT_FALSE;
    case VT_BSTR:
      return ViewOf(V_BSTR(source));
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return ObjectFrom(PointerOf(*source));
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_INT:
      Convert(*source, VT_I4, converted);
      return std::int32_t{V_I4(&converted)};
    case VT_R4:
      return Widened(V_R4(source));
    default:
      Convert(*source, VT_R8, converted);
      return V_R8(&converted);
  }
}

std::vector<Variant> ToArray(const VARIANT& value) {
  const VARIANT& referred = Referred(value);
  if ((V_VT(&referred) & VT_ARRAY) != 0) return ElementsOf(ArrayIn(referred));
  if (IsObject(referred) && Wrapper::CoreOf(PointerOf(referred)) == nullptr) {
    return ScriptArray(PointerOf(referred)).Elements();
  }
  throw ComFailure{DISP_E_TYPEMISMATCH};
}

TUIFaderValues ToFaderValues(const VARIANT& value) {
  const VARIANT& referred = Referred(value);
  if (IsFaderRecord(referred)) return FromRecord(RecordIn(referred));
  const Ref<Object> object = ToObject(referred);
  if (!object) return {};
  if (auto* faders = TryCast<UIFaderValues>(object.get())) return faders->values;
  const auto* host = TryCast<HostReference>(object.get());
  if (host == nullptr) throw ComFailure{DISP_E_TYPEMISMATCH};
  const ScriptFaders faders(host->identity.get());
  if (faders.Exist()) return faders.Read();
  AutoVariant held;
  if (!ReadHeld(host->identity.get(), held)) throw ComFailure{DISP_E_TYPEMISMATCH};
  const Ref<Object> inside = ToObject(held);
  if (!inside) return {};
  return Cast<UIFaderValues>(inside.get()).values;
}

void Assign(VARIANT& target, const Variant& value) {
  if (value.kind() == Variant::Kind::String) return AssignText(target, value.AsString());
  if (value.kind() == Variant::Kind::Object) return AssignObject(target, value.AsObject().get());
  Clear(target);
  switch (value.kind()) {
    case Variant::Kind::Boolean:
      V_VT(&target) = VT_BOOL;
      V_BOOL(&target) = value.AsBoolean() ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case Variant::Kind::Long:
      V_VT(&target) = VT_I4;
      V_I4(&target) = value.AsLong();
      break;
    case Variant::Kind::Double:
      V_VT(&target) = VT_R8;
      V_R8(&target) = value.AsDouble();
      break;
    default:
      break;
  }
}

void AssignText(VARIANT& target, std::u16string_view value) {
  BSTR text = NewText(value);
  Clear(target);
  V_VT(&target) = VT_BSTR;
  V_BSTR(&target) = text;
}

void AssignObject(VARIANT& target, Object* value) {
  IDispatch* dispatch = DispatchFor(value);
  Clear(target);
  V_VT(&target) = VT_DISPATCH;
  V_DISPATCH(&target) = dispatch;
}

void AssignArray(VARIANT& target, const std::vector<Variant>& value) {
  SAFEARRAY* array = NewArray(value);
  Clear(target);
  V_VT(&target) = VT_ARRAY | VT_VARIANT;
  V_ARRAY(&target) = array;
}

void StoreBack(VARIANT& argument, AutoVariant& value) {
  if (IsObject(argument)) return PutValueProperty(PointerOf(argument), value);
  if ((V_VT(&argument) & VT_BYREF) == 0) return;
  if (V_VT(&argument) == (VT_BYREF | VT_VARIANT)) {
    VARIANT& target = *V_VARIANTREF(&argument);
    if ((V_VT(&target) & VT_BYREF) != 0) return StoreBack(target, value);
    // The old value goes last: letting an object go may call back.
    AutoVariant old;
    static_cast<VARIANT&>(old) = target;
    value.MoveTo(target);
    return;
  }
  const auto type = static_cast<VARTYPE>(V_VT(&argument) & ~VT_BYREF);
  AutoVariant converted;
  if (type == VT_DISPATCH || type == VT_UNKNOWN) {
    if (!IsObject(value)) throw ComFailure{DISP_E_TYPEMISMATCH};
    const ComPtr<IUnknown> old = ComPtr<IUnknown>::Adopt(*V_UNKNOWNREF(&argument));
    *V_UNKNOWNREF(&argument) = V_UNKNOWN(&value);
    VariantInit(&value);
    return;
  }
  Convert(value, type, converted);
  switch (type) {
    case VT_BSTR:
      SysFreeString(*V_BSTRREF(&argument));
      *V_BSTRREF(&argument) = V_BSTR(&converted);
      VariantInit(&converted);
      break;
    case VT_I1:
    case VT_UI1:
      *V_UI1REF(&argument) = V_UI1(&converted);
      break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      *V_I2REF(&argument) = V_I2(&converted);
      break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
    case VT_R4:
      *V_I4REF(&argument) = V_I4(&converted);
      break;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      *V_I8REF(&argument) = V_I8(&converted);
      break;
    default:
      throw ComFailure{DISP_E_TYPEMISMATCH};
  }
}

void StoreBackArray(VARIANT& argument, const std::vector<Variant>& value) {
  const VARIANT& referred = Referred(argument);
  if (SAFEARRAY* array = ArrayIn(referred)) return SetElements(array, value);
  if (IsObject(referred)) ScriptArray(PointerOf(referred)).SetElements(value);
}

void StoreBackFaderValues(VARIANT& argument, const TUIFaderValues& value) {
  const VARIANT& referred = Referred(argument);
  if (IsFaderRecord(referred)) {
    RecordIn(referred) = ToRecord(value);
    return;
  }
  const Ref<Object> object = ToObject(referred);
  if (auto* own = TryCast<UIFaderValues>(object.get())) {
    own->values = value;
    return;
  }
  const auto* host = TryCast<HostReference>(object.get());
  if (host != nullptr) {
    const ScriptFaders faders(host->identity.get());
    if (faders.Exist()) return faders.Write(value);
  }
  auto made = MakeRef<UIFaderValues>();
  made->values = value;
  AutoVariant result;
  AssignObject(result, made.get());
  if (host != nullptr) return PutValueProperty(host->identity.get(), result);
  StoreBack(argument, result);
}

}  // namespace vestrel::component
