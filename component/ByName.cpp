#include "component/ByName.h"

#include <array>
#include <new>

#include "component/ClassInfo.h"
#include "component/UIFaderValues.h"
#include "component/ValueArray.h"
#include "core/Cast.h"
#include "core/Convert.h"

namespace vestrel::component {
namespace {

constexpr std::u16string_view kSource = u"Vestrel.ByName";

std::u16string_view DescriptionOf(std::int32_t number) {
  switch (number) {
    case Error_CannotCreateObject:
      return u"Component can't create object";
    case Error_NoSuchMember:
      return u"Object doesn't support this property or method";
    case Error_NoSuchNamedArgument:
      return u"Named argument not found";
    case Error_ArgumentNotOptional:
      return u"Argument not optional";
    case Error_WrongArgumentCount:
      return u"Wrong number of arguments or invalid property assignment";
    default:
      return RuntimeErrorText(number);
  }
}

[[noreturn]] void Raise(std::int32_t number, std::u16string_view subject) {
  std::u16string description(DescriptionOf(number));
  if (!subject.empty()) description.append(u": ").append(subject);
  throw Error(number, std::u16string(kSource), std::move(description));
}

std::int32_t NumberOf(CallStatus status) {
  switch (status) {
    case CallStatus::UnknownMember:
      return Error_NoSuchMember;
    case CallStatus::WrongArgumentCount:
      return Error_WrongArgumentCount;
    case CallStatus::ArgumentRequired:
      return Error_ArgumentNotOptional;
    case CallStatus::UnknownArgumentName:
      return Error_NoSuchNamedArgument;
    case CallStatus::Overflow:
      return Error_Overflow;
    default:
      return Error_TypeMismatch;
  }
}

// The conversions of core/Convert.h, with their errors told as failures of an argument.
template <class Convert>
auto Converted(int index, const Variant& value, Convert convert) {
  try {
    return convert(value);
  } catch (const Error& error) {
    throw CallFailure{error.number() == Error_Overflow ? CallStatus::Overflow : CallStatus::TypeMismatch,
                      index};
  }
}

class NativeCall final : public Call {
 public:
  // Places the arguments by position and by name.
  NativeCall(const Operation& operation, std::span<const Actual> arguments) : operation_(operation) {
    int position = 0;
    for (const Actual& actual : arguments) {
      const int index = actual.name.empty() ? position++ : PositionOf(actual.name);
      if (index >= operation.parameterCount || actuals_[static_cast<std::size_t>(index)] != nullptr) {
        throw CallFailure{CallStatus::WrongArgumentCount, index};
      }
      actuals_[static_cast<std::size_t>(index)] = &actual;
    }
  }

  Variant TakeResult() { return std::move(result_); }

  bool Given(int index) const override {
    const Actual* actual = At(index);
    return actual != nullptr && !actual->omitted;
  }

  bool ReadBoolean(int index) override { return Converted(index, Value(index), ToBoolean); }
  std::int16_t ReadShort(int index) override { return Converted(index, Value(index), ToShort); }
  std::int32_t ReadLong(int index) override { return Converted(index, Value(index), ToLong); }
  std::uint8_t ReadByte(int index) override {
    const std::int32_t value = ReadLong(index);
    if (value < 0 || value > 255) throw CallFailure{CallStatus::Overflow, index};
    return static_cast<std::uint8_t>(value);
  }
  float ReadSingle(int index) override {
    return static_cast<float>(Converted(index, Value(index), ToDouble));
  }
  std::u16string_view ReadText(int index) override {
    const Variant& value = Value(index);
    if (value.kind() == Variant::Kind::String) return value.AsString();
    std::u16string& text = texts_[static_cast<std::size_t>(index)];
    text = Converted(index, value, [](const Variant& v) { return ToText(v); });
    return text;
  }
  Variant ReadDynamic(int index) override { return Value(index); }
  Ref<Object> ReadObject(int index) override {
    const Variant& value = Value(index);
    if (value.IsEmpty()) return {};
    if (value.kind() != Variant::Kind::Object) throw CallFailure{CallStatus::TypeMismatch, index};
    return value.AsObject();
  }
  TUIFaderValues ReadFaderValues(int index) override {
    const Ref<Object> object = ReadObject(index);
    return object ? As<UIFaderValues>(object.get(), index).values : TUIFaderValues{};
  }
  std::vector<Variant> ReadArray(int index) override {
    return As<ValueArray>(ReadObject(index).get(), index).items;
  }

  void StoreBoolean(int index, bool value) override { Store(index, value); }
  void StoreByte(int index, std::uint8_t value) override { Store(index, std::int32_t{value}); }
  void StoreShort(int index, std::int16_t value) override { Store(index, value); }
  void StoreLong(int index, std::int32_t value) override { Store(index, value); }
  void StoreSingle(int index, float value) override { Store(index, static_cast<double>(value)); }
  void StoreText(int index, std::u16string_view value) override { Store(index, value); }
  void StoreDynamic(int index, const Variant& value) override { Store(index, value); }
  void StoreObject(int index, Object* value) override { Store(index, Ref<Object>(value)); }
  void StoreFaderValues(int index, const TUIFaderValues& value) override {
    if (index != kResult) {
      if (auto* given = TryCast<UIFaderValues>(ReadObject(index).get())) {
        given->values = value;
        return;
      }
    }
    auto record = MakeRef<UIFaderValues>();
    record->values = value;
    Store(index, Ref<Object>(std::move(record)));
  }
  void StoreArray(int index, const std::vector<Variant>& value) override {
    if (index != kResult) {
      As<ValueArray>(ReadObject(index).get(), index).items = value;
      return;
    }
    auto array = MakeRef<ValueArray>();
    array->items = value;
    Store(index, Ref<Object>(std::move(array)));
  }

 private:
  int PositionOf(std::u16string_view name) const {
    const int index = ClassDescription::FindParameter(operation_, name);
    if (index < 0) throw CallFailure{CallStatus::UnknownArgumentName, 0};
    return index;
  }
  const Actual* At(int index) const { return actuals_[static_cast<std::size_t>(index)]; }
  const Variant& Value(int index) const { return At(index)->value; }
  template <class T>
  static T& As(Object* object, int index) {
    T* result = TryCast<T>(object);
    if (result == nullptr) throw CallFailure{CallStatus::TypeMismatch, index};
    return *result;
  }
  void Store(int index, Variant value) {
    if (index == kResult) {
      result_ = std::move(value);
    } else if (At(index)->out != nullptr) {
      *At(index)->out = std::move(value);
    }
  }

  const Operation& operation_;
  std::array<const Actual*, Operation::kMaxParameters> actuals_{};
  std::array<std::u16string, Operation::kMaxParameters> texts_;
  Variant result_;
};

}  // namespace

Ref<Object> CreateByName(std::u16string_view className) {
  const ClassInfo* info = FindClass(className);
  if (info == nullptr) Raise(Error_CannotCreateObject, className);
  return info->create();
}

Variant InvokeByName(Object* object, std::u16string_view name, Kind kind, std::span<const Actual> arguments) {
  if (object == nullptr) Raise(Error_ObjectNotSet, name);
  const Ref<Object> keep(object);
  const ClassInfo* info = ClassOf(*object);
  if (info == nullptr) Raise(Error_NoSuchMember, name);
  const int slot = info->description->FindSlot(info->description->FindId(name), kind);
  if (slot < 0) Raise(Error_NoSuchMember, name);
  try {
    NativeCall call(info->description->slots()[static_cast<std::size_t>(slot)].operation, arguments);
    InvokeSlot(*info, slot, object->Query(info->key), call);
    return call.TakeResult();
  } catch (const CallFailure& failure) {
    Raise(NumberOf(failure.status), name);
  } catch (const std::bad_alloc&) {
    Raise(Error_OutOfMemory, {});
  }
}

}  // namespace vestrel::component
