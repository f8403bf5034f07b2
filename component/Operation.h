// The description of one operation as a table states it: name, kind, parameters with their directions and
// defaults, and the types that the member's own signature gives. Pure data.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "component/Value.h"

namespace vestrel::component {

enum class Kind : std::uint8_t { Method, Get, Put, PutRef };

// What stands in for an argument that is left out.
struct DefaultValue {
  enum class Type : std::uint8_t { Required, None, Boolean, Long, Text };
  Type type = Type::Required;
  std::int32_t number = 0;
  std::u16string_view text{};
};

// In: read only. InOut: read, and written back when the operation changed it. Out: written back; what the
// caller's variable held before need not convert. An operation with a value as its Out argument that answers
// a boolean answers true only when it has written one.
enum class Direction : std::uint8_t { In, InOut, Out };

struct Parameter {
  constexpr Parameter() = default;
  // A required argument is written in a table as its plain name.
  constexpr Parameter(const char* parameterName)  // NOLINT(google-explicit-constructor)
      : name(parameterName) {}
  constexpr Parameter(const char* parameterName, Direction way, DefaultValue value)
      : name(parameterName), direction(way), defaultValue(value) {}

  constexpr bool optional() const { return defaultValue.type != DefaultValue::Type::Required; }

  std::string_view name{};
  TypeDescription type{};
  Direction direction = Direction::In;
  DefaultValue defaultValue{};
};

// An argument that may be left out: an object or a by-reference text (none), or a value with its default.
constexpr Parameter Optional(const char* name) {
  return {name, Direction::In, {DefaultValue::Type::None}};
}
constexpr Parameter Optional(const char* name, bool value) {
  return {name, Direction::In, {DefaultValue::Type::Boolean, value ? 1 : 0}};
}
constexpr Parameter Optional(const char* name, std::int32_t value) {
  return {name, Direction::In, {DefaultValue::Type::Long, value}};
}
constexpr Parameter Optional(const char* name, const char16_t* value) {
  return {name, Direction::In, {DefaultValue::Type::Text, 0, value}};
}

constexpr Parameter InOut(Parameter parameter) {
  parameter.direction = Direction::InOut;
  return parameter;
}
constexpr Parameter Out(Parameter parameter) {
  parameter.direction = Direction::Out;
  return parameter;
}

struct Operation {
  static constexpr std::size_t kMaxParameters = 8;

  // The published name: the operations of an implemented interface carry its name, "IComparable_CompareTo".
  std::string FullName() const {
    return interfaceName.empty() ? std::string(name) : std::string(interfaceName) + "_" + std::string(name);
  }

  std::string_view interfaceName{};
  std::string_view name{};
  Kind kind = Kind::Method;
  std::string_view help{};
  std::array<Parameter, kMaxParameters> parameters{};
  std::uint8_t parameterCount = 0;
  TypeDescription result{};
  // Arguments travel by value through the virtual table; they travel by reference otherwise.
  bool argumentsByValue = false;
};

}  // namespace vestrel::component
