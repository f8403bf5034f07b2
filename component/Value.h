// The kinds of values that cross the component's boundary. Pure description: nothing here touches an object.
#pragma once

#include <cstdint>
#include <string_view>

namespace vestrel::component {

enum class ValueType : std::uint8_t {
  None,  // an operation without a result
  Boolean,
  Byte,
  Short,
  Long,
  Single,
  Text,
  Dynamic,      // a Variant
  Object,       // `name` is its class, empty for any object
  Enumeration,  // `name` is the enumeration; travels as a 32-bit integer
  FaderValues,  // the TUIFaderValues record
  Array,        // of dynamic values
};

struct TypeDescription {
  ValueType type = ValueType::None;
  std::string_view name{};
};

// The name a class or interface is published under, as PublishedName<T>::value; see Names.h.
template <class T>
struct PublishedName;

// The name of an enumeration, as EnumerationName<T>::value.
template <class T>
struct EnumerationName;

template <class T>
concept Published = requires {
  PublishedName<T>::value;
};

}  // namespace vestrel::component
