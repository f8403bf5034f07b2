// Arrays of dynamic values through the virtual table and in VARIANTs.
#pragma once

#include <vector>

#include "component/com/Windows.h"
#include "core/Variant.h"

namespace vestrel::component {

// A new array of VARIANTs with lower bound 0; the caller owns it.
SAFEARRAY* NewArray(const std::vector<Variant>& values);
// The elements of a one-dimensional array of any type; none for no array.
std::vector<Variant> ElementsOf(SAFEARRAY* array);
// Sets the elements in place, converted to the array's type; as many as both have.
void SetElements(SAFEARRAY* array, const std::vector<Variant>& values);

}  // namespace vestrel::component
