#include "component/com/HostLink.h"

#include <utility>

#include "component/com/Failure.h"
#include "component/com/Values.h"
#include "component/com/Wrapper.h"

namespace vestrel::component {
namespace {

constexpr DISPID kNotAsked = -2;

template <std::size_t... I>
HRESULT CallSlot(IUnknown* object, std::size_t slot, void* const* arguments, std::index_sequence<I...>) {
  using Function =
      HRESULT(STDMETHODCALLTYPE*)(void*, decltype(static_cast<void>(I), static_cast<void*>(nullptr))...);
  const auto* table = *reinterpret_cast<void* const* const*>(object);
  return reinterpret_cast<Function>(table[slot])(object, arguments[I]...);
}

// Every argument is a pointer, so the shape of a slot is their number.
HRESULT CallSlot(IUnknown* object, std::size_t slot, void* const* arguments, std::size_t count) {
  switch (count) {
    case 0:
      return CallSlot(object, slot, arguments, std::make_index_sequence<0>());
    case 1:
      return CallSlot(object, slot, arguments, std::make_index_sequence<1>());
    case 2:
      return CallSlot(object, slot, arguments, std::make_index_sequence<2>());
    case 3:
      return CallSlot(object, slot, arguments, std::make_index_sequence<3>());
    case 4:
      return CallSlot(object, slot, arguments, std::make_index_sequence<4>());
    case 5:
      return CallSlot(object, slot, arguments, std::make_index_sequence<5>());
    case 6:
      return CallSlot(object, slot, arguments, std::make_index_sequence<6>());
    case 7:
      return CallSlot(object, slot, arguments, std::make_index_sequence<7>());
    case 8:
      return CallSlot(object, slot, arguments, std::make_index_sequence<8>());
    default:
      return CallSlot(object, slot, arguments, std::make_index_sequence<9>());
  }
}

VARTYPE TypeOfResult(ValueType type) {
  switch (type) {
    case ValueType::Boolean:
      return VT_BOOL;
    case ValueType::Text:
      return VT_BSTR;
    default:
      return VT_I4;
  }
}

}  // namespace

HostLink::HostLink(const HostReference& reference, const FaceClass& faceClass)
    : reference_(reference),
      faceClass_(faceClass),
      interface_(Ask<IUnknown>(reference.identity.get(), faceClass.id)),
      caller_(interface_ ? nullptr : reference.identity.get()),
      ids_(faceClass.info->description->slots().size(), kNotAsked) {}

bool HostLink::Exists() const {
  if (interface_) return true;
  if (!caller_) return false;
  for (std::size_t slot = 0; slot < ids_.size(); ++slot) {
    if (IdOf(static_cast<int>(slot)) != DISPID_UNKNOWN) return true;
  }
  return false;
}

DISPID HostLink::IdOf(int slot) const {
  DISPID& id = ids_[static_cast<std::size_t>(slot)];
  if (id == kNotAsked || id == DISPID_UNKNOWN) {
    const std::string& name = faceClass_.info->description->slots()[static_cast<std::size_t>(slot)].name;
    id = caller_.Find(std::u16string(name.begin(), name.end()));
  }
  return id;
}

OutgoingCall::OutgoingCall(const HostLink& link, int slot) : link_(link), slot_(slot) {}

const Operation& OutgoingCall::operation() const {
  return link_.faceClass_.info->description->slots()[static_cast<std::size_t>(slot_)].operation;
}

void OutgoingCall::Add(bool value) {
  Assign(Next(), value);
}

void OutgoingCall::Add(std::uint8_t value) {
  VARIANT& argument = Next();
  V_VT(&argument) = VT_UI1;
  V_UI1(&argument) = value;
}

void OutgoingCall::Add(std::int16_t value) {
  VARIANT& argument = Next();
  V_VT(&argument) = VT_I2;
  V_I2(&argument) = value;
}

void OutgoingCall::Add(std::int32_t value) {
  Assign(Next(), value);
}

void OutgoingCall::Add(float value) {
  VARIANT& argument = Next();
  V_VT(&argument) = VT_R4;
  V_R4(&argument) = value;
}

void OutgoingCall::Add(std::u16string_view value) {
  AssignText(Next(), value);
}

void OutgoingCall::Add(const Variant& value) {
  Assign(Next(), value);
}

void OutgoingCall::Add(Object* value) {
  VARIANT& argument = arguments_[count_];
  if (link_.interface_) {
    V_UNKNOWN(&argument) = InterfaceFor(value, operation().parameters[count_].type.name);
    V_VT(&argument) = VT_UNKNOWN;
  } else {
    AssignObject(argument, value);
  }
  ++count_;
}

void OutgoingCall::Add(TUIFaderValues& values) {
  faders_ = &values;
  if (link_.interface_) {
    record_ = ToRecord(values);
    ++count_;
    return;
  }
  faderObject_ = MakeRef<UIFaderValues>();
  faderObject_->values = values;
  AssignObject(Next(), faderObject_.get());
}

void OutgoingCall::Run() {
  if (link_.interface_) {
    RunThroughTable();
    if (faders_ != nullptr) *faders_ = FromRecord(record_);
  } else {
    RunByName();
    if (faders_ != nullptr) *faders_ = faderObject_->values;
  }
}

void OutgoingCall::RunThroughTable() {
  std::array<void*, Operation::kMaxParameters + 1> pointers{};
  std::size_t count = 0;
  for (; count < count_; ++count) {
    const ValueType type = operation().parameters[count].type.type;
    VARIANT& argument = arguments_[count];
    pointers[count] = type == ValueType::FaderValues ? static_cast<void*>(&record_)
                      : type == ValueType::Dynamic   ? static_cast<void*>(&argument)
                                                     : static_cast<void*>(&V_I4(&argument));
  }
  if (operation().result.type != ValueType::None) {
    V_VT(&result_) = TypeOfResult(operation().result.type);
    V_I8(&result_) = 0;  // a callee may succeed without writing
    pointers[count++] = &V_I4(&result_);
  }
  const auto slot = kDispatchSlots + static_cast<std::size_t>(slot_);
  SetErrorInfo(0, nullptr);  // what is there afterwards is the host's
  const HRESULT code = CallSlot(link_.interface_.get(), slot, pointers.data(), count);
  if (FAILED(code)) {
    V_VT(&result_) = VT_EMPTY;  // a failing callee sets no result
    RaiseHostFailure(code, link_.interface_.get(), link_.faceClass_.id);
  }
}

void OutgoingCall::RunByName() {
  const DISPID id = link_.IdOf(slot_);
  if (id == DISPID_UNKNOWN) RaiseHostFailure(DISP_E_UNKNOWNNAME);
  std::array<VARIANT, Operation::kMaxParameters> reversed;  // borrowed from the arguments
  for (std::size_t i = 0; i < count_; ++i) reversed[count_ - 1 - i] = arguments_[i];
  const bool hasResult = operation().result.type != ValueType::None;
  link_.caller_.Invoke(id, DISPATCH_METHOD, reversed.data(), static_cast<UINT>(count_),
                       hasResult ? &result_ : nullptr);
}

void OutgoingCall::ConvertResult(VARTYPE type, AutoVariant& converted) {
  // Script hosts answer null where they have nothing to say, as for a dialogue that was cancelled.
  if (V_VT(&Referred(result_)) == VT_NULL) Clear(result_);
  Convert(result_, type, converted);
}

template <>
bool OutgoingCall::Result<bool>() {
  AutoVariant converted;
  ConvertResult(VT_BOOL, converted);
  return V_BOOL(&converted) != VARIANT_FALSE;
}

template <>
std::int32_t OutgoingCall::Result<std::int32_t>() {
  AutoVariant converted;
  ConvertResult(VT_I4, converted);
  return V_I4(&converted);
}

template <>
std::u16string OutgoingCall::Result<std::u16string>() {
  AutoVariant converted;
  ConvertResult(VT_BSTR, converted);
  return std::u16string(ViewOf(V_BSTR(&converted)));
}

}  // namespace vestrel::component
