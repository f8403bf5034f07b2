#include "component/com/EarlyCall.h"

#include "component/com/FaderRecord.h"
#include "component/com/Failure.h"
#include "component/com/HostObject.h"
#include "component/com/KeptWrapper.h"
#include "component/com/SafeArrays.h"
#include "component/com/Values.h"

namespace vestrel::component {

bool EarlyCall::Given(int index) const {
  const void* argument = arguments_[index];
  if (argument == nullptr) return false;
  const bool dynamic = operation_.parameters[static_cast<std::size_t>(index)].type.type == ValueType::Dynamic;
  if (!dynamic) return true;
  const auto& value = *static_cast<const VARIANT*>(argument);
  if (!LeadsToAValue(value)) throw ComFailure{E_INVALIDARG};
  return !IsOmitted(value);
}

bool EarlyCall::ReadBoolean(int index) {
  return At<VARIANT_BOOL>(index) != VARIANT_FALSE;
}

std::uint8_t EarlyCall::ReadByte(int index) {
  return At<BYTE>(index);
}

std::int16_t EarlyCall::ReadShort(int index) {
  return At<SHORT>(index);
}

std::int32_t EarlyCall::ReadLong(int index) {
  return At<LONG>(index);
}

float EarlyCall::ReadSingle(int index) {
  return At<FLOAT>(index);
}

std::u16string_view EarlyCall::ReadText(int index) {
  return ViewOf(At<BSTR>(index));
}

Variant EarlyCall::ReadDynamic(int index) {
  return ToDynamic(At<VARIANT>(index));
}

Ref<Object> EarlyCall::ReadObject(int index) {
  return ObjectFrom(At<IUnknown*>(index));
}

TUIFaderValues EarlyCall::ReadFaderValues(int index) {
  return FromRecord(At<FaderRecord>(index));
}

std::vector<Variant> EarlyCall::ReadArray(int index) {
  return ElementsOf(At<SAFEARRAY*>(index));
}

void EarlyCall::StoreBoolean(int index, bool value) {
  At<VARIANT_BOOL>(index) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

void EarlyCall::StoreByte(int index, std::uint8_t value) {
  At<BYTE>(index) = value;
}

void EarlyCall::StoreShort(int index, std::int16_t value) {
  At<SHORT>(index) = value;
}

void EarlyCall::StoreLong(int index, std::int32_t value) {
  At<LONG>(index) = value;
}

void EarlyCall::StoreSingle(int index, float value) {
  At<FLOAT>(index) = value;
}

void EarlyCall::StoreText(int index, std::u16string_view value) {
  BSTR text = NewText(value);
  if (index != kResult) SysFreeString(At<BSTR>(index));
  At<BSTR>(index) = text;
}

void EarlyCall::StoreDynamic(int index, const Variant& value) {
  if (index == kResult) VariantInit(&At<VARIANT>(index));
  Assign(At<VARIANT>(index), value);
}

void EarlyCall::StoreObject(int index, Object* value) {
  const TypeDescription& type =
      index == kResult ? operation_.result : operation_.parameters[static_cast<std::size_t>(index)].type;
  IUnknown* pointer = InterfaceFor(value, type.name);
  IUnknown*& place = At<IUnknown*>(index);
  IUnknown* old = index == kResult ? nullptr : place;
  place = pointer;
  if (old != nullptr) old->Release();
}

void EarlyCall::StoreFaderValues(int index, const TUIFaderValues& value) {
  At<FaderRecord>(index) = ToRecord(value);
}

void EarlyCall::StoreArray(int index, const std::vector<Variant>& value) {
  if (index == kResult) {
    At<SAFEARRAY*>(index) = NewArray(value);
  } else {
    SetElements(At<SAFEARRAY*>(index), value);
  }
}

void EarlyCall::EmptyResult() const {
  switch (operation_.result.type) {
    case ValueType::Text:
    case ValueType::Object:
    case ValueType::Array:
      At<void*>(kResult) = nullptr;
      break;
    case ValueType::Dynamic:
      VariantInit(&At<VARIANT>(kResult));
      break;
    default:
      break;
  }
}

HRESULT CallThroughTable(const Face& face, int slot, void* const* arguments, void* result) noexcept {
  const ClassInfo& info = *face.faceClass->info;
  const Operation& operation = info.description->slots()[static_cast<std::size_t>(slot)].operation;
  if (operation.result.type != ValueType::None && result == nullptr) return WithoutTexts(E_POINTER);
  return Guarded([&] {
    const KeptWrapper keep(*face.owner);
    EarlyCall call(operation, arguments, result);
    call.EmptyResult();
    InvokeSlot(info, slot, face.self, call);
  });
}

}  // namespace vestrel::component
