// The one place that says, for each C++ type of the library's operations, which kind of value it is at the
// boundary and how it is read from and stored into a call.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "component/Call.h"
#include "component/Classes.h"
#include "component/Operation.h"

namespace vestrel::component {

// Codec<T> has: kType, Read(call, index), Store(call, index, value) and Default(default).
template <class T>
struct Codec;

template <>
struct Codec<bool> {
  static constexpr TypeDescription kType{ValueType::Boolean, {}};
  static bool Read(Call& call, int index) { return call.ReadBoolean(index); }
  static void Store(Call& call, int index, bool value) { call.StoreBoolean(index, value); }
  static bool Default(const DefaultValue& value) { return value.number != 0; }
};

template <>
struct Codec<std::uint8_t> {
  static constexpr TypeDescription kType{ValueType::Byte, {}};
  static std::uint8_t Read(Call& call, int index) { return call.ReadByte(index); }
  static void Store(Call& call, int index, std::uint8_t value) { call.StoreByte(index, value); }
  static std::uint8_t Default(const DefaultValue& value) { return static_cast<std::uint8_t>(value.number); }
};

template <>
struct Codec<std::int16_t> {
  static constexpr TypeDescription kType{ValueType::Short, {}};
  static std::int16_t Read(Call& call, int index) { return call.ReadShort(index); }
  static void Store(Call& call, int index, std::int16_t value) { call.StoreShort(index, value); }
  static std::int16_t Default(const DefaultValue& value) { return static_cast<std::int16_t>(value.number); }
};

template <>
struct Codec<std::int32_t> {
  static constexpr TypeDescription kType{ValueType::Long, {}};
  static std::int32_t Read(Call& call, int index) { return call.ReadLong(index); }
  static void Store(Call& call, int index, std::int32_t value) { call.StoreLong(index, value); }
  static std::int32_t Default(const DefaultValue& value) { return value.number; }
};

template <class T>
requires std::is_enum_v<T>
struct Codec<T> {
  static constexpr TypeDescription kType{ValueType::Enumeration, EnumerationName<T>::value};
  static T Read(Call& call, int index) { return static_cast<T>(call.ReadLong(index)); }
  static void Store(Call& call, int index, T value) {
    call.StoreLong(index, static_cast<std::int32_t>(value));
  }
  static T Default(const DefaultValue& value) { return static_cast<T>(value.number); }
};

template <>
struct Codec<float> {
  static constexpr TypeDescription kType{ValueType::Single, {}};
  static float Read(Call& call, int index) { return call.ReadSingle(index); }
  static void Store(Call& call, int index, float value) { call.StoreSingle(index, value); }
  static float Default(const DefaultValue& value) { return static_cast<float>(value.number); }
};

// Borrowed from the call; what an operation takes as a view never outlives it.
template <>
struct Codec<std::u16string_view> {
  static constexpr TypeDescription kType{ValueType::Text, {}};
  static std::u16string_view Read(Call& call, int index) { return call.ReadText(index); }
  static void Store(Call& call, int index, std::u16string_view value) { call.StoreText(index, value); }
  static std::u16string_view Default(const DefaultValue& value) { return value.text; }
};

template <>
struct Codec<std::u16string> {
  static constexpr TypeDescription kType{ValueType::Text, {}};
  static std::u16string Read(Call& call, int index) { return std::u16string(call.ReadText(index)); }
  static void Store(Call& call, int index, std::u16string_view value) { call.StoreText(index, value); }
  static std::u16string Default(const DefaultValue& value) { return std::u16string(value.text); }
};

template <>
struct Codec<Variant> {
  static constexpr TypeDescription kType{ValueType::Dynamic, {}};
  static Variant Read(Call& call, int index) { return call.ReadDynamic(index); }
  static void Store(Call& call, int index, const Variant& value) { call.StoreDynamic(index, value); }
  static Variant Default(const DefaultValue& value) {
    switch (value.type) {
      case DefaultValue::Type::Boolean:
        return value.number != 0;
      case DefaultValue::Type::Long:
        return value.number;
      case DefaultValue::Type::Text:
        return value.text;
      default:
        return {};
    }
  }
};

template <class T>
struct Codec<Ref<T>> {
  static constexpr TypeDescription kType{ValueType::Object, PublishedName<T>::value};
  static Ref<T> Read(Call& call, int index) {
    Ref<Object> object = call.ReadObject(index);
    if constexpr (std::is_same_v<T, Object>) {
      return object;
    } else {
      if (!object) return {};
      auto* result = static_cast<T*>(object->Query(KeyOf<T>()));
      if (result == nullptr) throw CallFailure{CallStatus::TypeMismatch, index};
      return result;
    }
  }
  static void Store(Call& call, int index, const Ref<T>& value) { call.StoreObject(index, value.get()); }
  static Ref<T> Default(const DefaultValue& /*value*/) { return {}; }
};

template <>
struct Codec<TUIFaderValues> {
  static constexpr TypeDescription kType{ValueType::FaderValues, {}};
  static TUIFaderValues Read(Call& call, int index) { return call.ReadFaderValues(index); }
  static void Store(Call& call, int index, const TUIFaderValues& value) {
    call.StoreFaderValues(index, value);
  }
  static TUIFaderValues Default(const DefaultValue& /*value*/) { return {}; }
};

template <>
struct Codec<std::vector<Variant>> {
  static constexpr TypeDescription kType{ValueType::Array, {}};
  static std::vector<Variant> Read(Call& call, int index) { return call.ReadArray(index); }
  static void Store(Call& call, int index, const std::vector<Variant>& value) {
    call.StoreArray(index, value);
  }
  static std::vector<Variant> Default(const DefaultValue& /*value*/) { return {}; }
};

// An array of objects is an array of dynamic values each of which holds an object or none.
template <>
struct Codec<std::vector<Ref<Object>>> {
  static constexpr TypeDescription kType{ValueType::Array, {}};
  static std::vector<Ref<Object>> Read(Call& call, int index);
  static void Store(Call& call, int index, const std::vector<Ref<Object>>& value);
  static std::vector<Ref<Object>> Default(const DefaultValue& /*value*/) { return {}; }
};

}  // namespace vestrel::component
