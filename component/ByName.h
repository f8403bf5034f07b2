// The native by-name door: makes published classes and calls their operations by name with dynamic values, as
// automation hosts do, for programs that link the library itself. Checks and conversions are those of the
// tables; failures are errors with the classic numbers:
//   6 overflow and 13 type mismatch (an argument), 7 out of memory (std::bad_alloc where not even the error
//   finds room), 91 no object, 429 no such class, 438 no such operation, 448 no such named argument, 449 a
//   required argument is missing, 450 too many arguments.
#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "component/Operation.h"
#include "core/Ref.h"
#include "core/Variant.h"

namespace vestrel::component {

enum ByNameError : std::int32_t {
  Error_CannotCreateObject = 429,
  Error_NoSuchMember = 438,
  Error_NoSuchNamedArgument = 448,
  Error_ArgumentNotOptional = 449,
  Error_WrongArgumentCount = 450,
};

// One argument. Arrays are given as a ValueArray, the fader record as a UIFaderValues, in a Variant.
struct Actual {
  Variant value{};
  // Receives what the operation writes back; an argument without one takes nothing back.
  Variant* out = nullptr;
  bool omitted = false;
  // Empty for an argument given by position. Named ones come after the others.
  std::u16string name{};
};

inline Actual In(Variant value) {
  return {std::move(value)};
}
inline Actual ByRef(Variant& variable) {
  return {variable, &variable};
}
inline Actual Omitted() {
  return {{}, nullptr, true};
}
inline Actual Named(std::u16string_view name, Variant value) {
  return {std::move(value), nullptr, false, std::u16string(name)};
}

// A new object of the class, whose name is matched in any letter case.
Ref<Object> CreateByName(std::u16string_view className);

// Invokes the operation of that name, in any letter case, and answers its result, empty when it has none.
// For Kind::Put and Kind::PutRef the last argument is the value.
Variant InvokeByName(Object* object, std::u16string_view name, Kind kind, std::span<const Actual> arguments);

inline Variant CallByName(Object* object, std::u16string_view name,
                          std::initializer_list<Actual> arguments = {}) {
  return InvokeByName(object, name, Kind::Method, {arguments.begin(), arguments.size()});
}
inline Variant GetByName(Object* object, std::u16string_view name,
                         std::initializer_list<Actual> arguments = {}) {
  return InvokeByName(object, name, Kind::Get, {arguments.begin(), arguments.size()});
}
inline void PutByName(Object* object, std::u16string_view name, std::initializer_list<Actual> arguments) {
  InvokeByName(object, name, Kind::Put, {arguments.begin(), arguments.size()});
}

}  // namespace vestrel::component
