#include "component/com/Dispatch.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include "component/com/AutoVariant.h"
#include "component/com/Failure.h"
#include "component/com/KeptWrapper.h"
#include "component/com/TypeInformation.h"
#include "component/com/Values.h"

namespace vestrel::component {
namespace {

const Face& FaceOf(void* pointer) noexcept {
  return *static_cast<Face*>(pointer);
}

// The arguments as DISPPARAMS holds them: the named ones first, the others after them in reverse order.
class LateCall final : public Call {
 public:
  LateCall(const Operation& operation, const DISPPARAMS& parameters, VARIANT* result)
      : operation_(operation), result_(result) {
    const UINT named = parameters.cNamedArgs;
    for (UINT i = 0; i < parameters.cArgs - named; ++i) {
      Place(static_cast<int>(i), parameters.rgvarg[parameters.cArgs - 1 - i], DISP_E_BADPARAMCOUNT);
    }
    for (UINT i = 0; i < named; ++i) {
      const DISPID id = parameters.rgdispidNamedArgs[i];
      const int index = id == DISPID_PROPERTYPUT ? operation.parameterCount - 1 : static_cast<int>(id);
      Place(index, parameters.rgvarg[i], DISP_E_PARAMNOTFOUND);
    }
  }

  // The position in DISPPARAMS of an argument by its place in the table.
  UINT PositionOf(const DISPPARAMS& parameters, int index) const noexcept {
    if (index < 0 || index >= operation_.parameterCount) return 0;
    const VARIANT* argument = arguments_[static_cast<std::size_t>(index)];
    return argument == nullptr ? 0 : static_cast<UINT>(argument - parameters.rgvarg);
  }
  // Whether the argument is not there at all, not even as one left out on purpose.
  bool Absent(int index) const noexcept { return arguments_[static_cast<std::size_t>(index)] == nullptr; }

  bool Given(int index) const override {
    const VARIANT* argument = arguments_[static_cast<std::size_t>(index)];
    return argument != nullptr && !IsOmitted(*argument);
  }

  bool ReadBoolean(int index) override {
    const VARIANT& value = Referred(At(index));
    if (V_VT(&value) == VT_BOOL) return V_BOOL(&value) != VARIANT_FALSE;
    AutoVariant converted;
    Convert(index, VT_BOOL, converted);
    return V_BOOL(&converted) != VARIANT_FALSE;
  }
  std::uint8_t ReadByte(int index) override {
    AutoVariant converted;
    Convert(index, VT_UI1, converted);
    return V_UI1(&converted);
  }
  std::int16_t ReadShort(int index) override {
    const VARIANT& value = Referred(At(index));
    if (V_VT(&value) == VT_I2) return V_I2(&value);
    AutoVariant converted;
    Convert(index, VT_I2, converted);
    return V_I2(&converted);
  }
  std::int32_t ReadLong(int index) override {
    const VARIANT& value = Referred(At(index));
    if (V_VT(&value) == VT_I4) return V_I4(&value);
    if (V_VT(&value) == VT_I2) return V_I2(&value);
    if (V_VT(&value) == (VT_BYREF | VT_I4)) return *V_I4REF(&value);
    AutoVariant converted;
    Convert(index, VT_I4, converted);
    return V_I4(&converted);
  }
  float ReadSingle(int index) override {
    AutoVariant converted;
    Convert(index, VT_R4, converted);
    return V_R4(&converted);
  }
  std::u16string_view ReadText(int index) override {
    const VARIANT& value = Referred(At(index));
    if (V_VT(&value) == VT_BSTR) return ViewOf(V_BSTR(&value));
    if (!texts_) texts_ = std::make_unique<Texts>();
    AutoVariant& text = (*texts_)[static_cast<std::size_t>(index)];
    Convert(index, VT_BSTR, text);
    return ViewOf(V_BSTR(&text));
  }
  Variant ReadDynamic(int index) override {
    return Read(index, [](const VARIANT& value) { return ToDynamic(value); });
  }
  Ref<Object> ReadObject(int index) override {
    const Parameter& parameter = operation_.parameters[static_cast<std::size_t>(index)];
    return Read(index, [&](const VARIANT& value) {
      return parameter.direction == Direction::In ? ToObject(value)
                                                  : ToObjectOrHeld(value, parameter.type.name);
    });
  }
  TUIFaderValues ReadFaderValues(int index) override {
    return Read(index, [](const VARIANT& value) { return ToFaderValues(value); });
  }
  std::vector<Variant> ReadArray(int index) override {
    return Read(index, [](const VARIANT& value) { return ToArray(value); });
  }

  void StoreBoolean(int index, bool value) override { StorePlain(index, value); }
  void StoreByte(int index, std::uint8_t value) override {
    StoreAs(index, VT_UI1, [value](VARIANT& v) { V_UI1(&v) = value; });
  }
  void StoreShort(int index, std::int16_t value) override {
    StoreAs(index, VT_I2, [value](VARIANT& v) { V_I2(&v) = value; });
  }
  void StoreLong(int index, std::int32_t value) override {
    StoreAs(index, VT_I4, [value](VARIANT& v) { V_I4(&v) = value; });
  }
  void StoreSingle(int index, float value) override {
    StoreAs(index, VT_R4, [value](VARIANT& v) { V_R4(&v) = value; });
  }
  void StoreText(int index, std::u16string_view value) override {
    Store(index, [value](VARIANT& v) { AssignText(v, value); });
  }
  void StoreDynamic(int index, const Variant& value) override { StorePlain(index, value); }
  void StoreObject(int index, Object* value) override {
    Store(index, [value](VARIANT& v) { AssignObject(v, value); });
  }
  void StoreFaderValues(int index, const TUIFaderValues& value) override {
    if (index != kResult) StoreBackFaderValues(At(index), value);
  }
  void StoreArray(int index, const std::vector<Variant>& value) override {
    if (index != kResult) return StoreBackArray(At(index), value);
    if (result_ != nullptr) AssignArray(*result_, value);
  }

 private:
  // Of arguments that had to be converted. Few calls have any, so no other pays for their places.
  using Texts = std::array<AutoVariant, Operation::kMaxParameters>;

  void Place(int index, VARIANT& argument, HRESULT whenWrong) {
    if (index < 0 || index >= operation_.parameterCount) throw ComFailure{whenWrong};
    VARIANT*& place = arguments_[static_cast<std::size_t>(index)];
    if (place != nullptr) throw ComFailure{DISP_E_BADPARAMCOUNT};
    place = &argument;
  }
  VARIANT& At(int index) const { return *arguments_[static_cast<std::size_t>(index)]; }

  // Tells a value that does not convert as the failure of its argument.
  template <class Reader>
  auto Read(int index, Reader reader) -> decltype(reader(At(index))) {
    try {
      return reader(At(index));
    } catch (const ComFailure& failure) {
      throw CallFailure{failure.code == DISP_E_OVERFLOW ? CallStatus::Overflow : CallStatus::TypeMismatch,
                        index};
    }
  }
  void Convert(int index, VARTYPE type, AutoVariant& result) {
    const bool comesBack = operation_.parameters[static_cast<std::size_t>(index)].direction != Direction::In;
    Read(index, [&](const VARIANT& value) {
      comesBack ? ConvertHeld(value, type, result) : component::Convert(value, type, result);
    });
  }

  template <class Fill>
  void Store(int index, Fill fill) {
    if (index == kResult) {
      if (result_ != nullptr) fill(*result_);
      return;
    }
    AutoVariant value;
    fill(value);
    StoreBack(At(index), value);
  }
  template <class Fill>
  void StoreAs(int index, VARTYPE type, Fill fill) {
    Store(index, [&](VARIANT& value) {
      Clear(value);
      V_VT(&value) = type;
      fill(value);
    });
  }
  void StorePlain(int index, const Variant& value) {
    Store(index, [&](VARIANT& v) { Assign(v, value); });
  }

  const Operation& operation_;
  VARIANT* result_;
  std::array<VARIANT*, Operation::kMaxParameters> arguments_{};
  std::unique_ptr<Texts> texts_;
};

Kind KindOf(WORD flags) noexcept {
  if ((flags & DISPATCH_METHOD) != 0) return Kind::Method;
  if ((flags & DISPATCH_PROPERTYGET) != 0) return Kind::Get;
  return (flags & DISPATCH_PROPERTYPUTREF) != 0 ? Kind::PutRef : Kind::Put;
}

bool AreWellFormed(const DISPPARAMS& parameters) noexcept {
  if (parameters.cNamedArgs > parameters.cArgs) return false;
  if (parameters.cNamedArgs != 0 && parameters.rgdispidNamedArgs == nullptr) return false;
  if (parameters.cArgs != 0 && parameters.rgvarg == nullptr) return false;
  return std::all_of(parameters.rgvarg, parameters.rgvarg + parameters.cArgs, LeadsToAValue);
}

void Invoke(const Face& face, int slot, LateCall& call) {
  const KeptWrapper keep(*face.owner);
  InvokeSlot(*face.faceClass->info, slot, face.self, call);
}

}  // namespace

HRESULT STDMETHODCALLTYPE FaceGetTypeInfoCount(void* /*face*/, UINT* result) {
  if (result == nullptr) return E_POINTER;
  *result = 1;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE FaceGetTypeInfo(void* face, UINT index, LCID /*locale*/, ITypeInfo** result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return index != 0 ? DISP_E_BADINDEX : TypeInformationOf(FaceOf(face).faceClass->id, result);
}

HRESULT STDMETHODCALLTYPE FaceGetIDsOfNames(void* face, REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID /*locale*/, DISPID* ids) {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (count == 0) return S_OK;
  if (names == nullptr || ids == nullptr) return E_POINTER;
  const ClassDescription& description = *FaceOf(face).faceClass->info->description;
  const std::int32_t id = description.FindId(ViewOfTerminated(names[0]));
  ids[0] = id != 0 ? id : DISPID_UNKNOWN;
  bool known = id != 0;
  const int slot = description.FindSlot(id, Kind::Method);
  for (UINT i = 1; i < count; ++i) {
    const int position = slot < 0 ? -1
                                  : ClassDescription::FindParameter(
                                        description.slots()[static_cast<std::size_t>(slot)].operation,
                                        ViewOfTerminated(names[i]));
    ids[i] = position >= 0 ? position : DISPID_UNKNOWN;
    known = known && position >= 0;
  }
  return known ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT STDMETHODCALLTYPE FaceInvoke(void* facePointer, DISPID id, REFIID reserved, LCID /*locale*/,
                                     WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* information, UINT* argumentError) {
  const Face& face = FaceOf(facePointer);
  if (reserved != IID_NULL) return WithoutTexts(DISP_E_UNKNOWNINTERFACE);
  if (parameters == nullptr) return WithoutTexts(E_POINTER);
  if (!AreWellFormed(*parameters)) return WithoutTexts(E_INVALIDARG);
  const ClassDescription& description = *face.faceClass->info->description;
  const int slot = description.FindSlot(id, KindOf(flags));
  if (slot < 0) return WithoutTexts(DISP_E_MEMBERNOTFOUND);
  if (result != nullptr) MakeEmpty(*result);
  std::optional<LateCall> call;
  int argument = -1;
  try {
    call.emplace(description.slots()[static_cast<std::size_t>(slot)].operation, *parameters, result);
    Invoke(face, slot, *call);
    return S_OK;
  } catch (...) {
    const HRESULT code = ReportLateBound(information, &argument);
    if (result != nullptr) VariantClear(result);
    if (!call || argument < 0) return code;
    if (code == DISP_E_PARAMNOTOPTIONAL && call->Absent(argument)) return DISP_E_BADPARAMCOUNT;
    if (argumentError != nullptr) *argumentError = call->PositionOf(*parameters, argument);
    return code;
  }
}

}  // namespace vestrel::component
