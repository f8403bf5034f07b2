// Conversions between VARIANTs and the library's values, as late-bound callers expect them and independent of
// the user's locale.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "component/com/AutoVariant.h"
#include "component/com/Windows.h"
#include "controller/interfaces/TUIFaderValues.h"
#include "core/Variant.h"

namespace vestrel::component {

// Whether the chain of references in `value` ends at a value, which everything below takes for granted: some
// chains end at a null pointer, and variables that refer to each other in a circle have no end. A record
// needs its description.
bool LeadsToAValue(const VARIANT& value) noexcept;
// What the chain of references in `value` leads to: a value that is no VARIANT by reference itself.
const VARIANT& Referred(const VARIANT& value) noexcept;
// Whether the caller left the argument out on purpose.
bool IsOmitted(const VARIANT& value) noexcept;

// Each raises ComFailure with the platform's own code for a value that does not convert. A host's object
// where a plain value is wanted stands for its property "value" or its default property.
void Convert(const VARIANT& value, VARTYPE type, AutoVariant& result);
// The same for an argument that is written back: a script's object that has no property "value" yet stands
// for nothing if it takes one.
void ConvertHeld(const VARIANT& value, VARTYPE type, AutoVariant& result);
Ref<Object> ToObject(const VARIANT& value);
// The same for an argument that is written back: a script's object that is none of the class stands for what
// its property "value" holds, or will hold.
Ref<Object> ToObjectOrHeld(const VARIANT& value, std::string_view className);
Variant ToDynamic(const VARIANT& value);
std::vector<Variant> ToArray(const VARIANT& value);
TUIFaderValues ToFaderValues(const VARIANT& value);

// Each replaces what `target`, an initialised value, holds.
void Assign(VARIANT& target, const Variant& value);
void AssignText(VARIANT& target, std::u16string_view value);
void AssignObject(VARIANT& target, Object* value);
void AssignArray(VARIANT& target, const std::vector<Variant>& value);

// Stores `value` where a by-reference argument points to, in its type; into the property "value" of a
// script's object or of a box that was passed in the place of a reference; nowhere for a plain value.
void StoreBack(VARIANT& argument, AutoVariant& value);
// Stores into the elements of the caller's own array.
void StoreBackArray(VARIANT& argument, const std::vector<Variant>& value);
// Stores into the caller's record or object, or, where the variable is empty, a new object.
void StoreBackFaderValues(VARIANT& argument, const TUIFaderValues& value);

}  // namespace vestrel::component
