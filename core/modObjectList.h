// Builders of lists of boxed texts.
#pragma once

#include <span>
#include <string_view>

#include "core/Ref.h"
#include "core/Variant.h"
#include "core/clsObjectList.h"

namespace vestrel::modObjectList {

// A new list of clsString, one for each value in order, converted to text. Raises 13 for an object that has
// no value of its own and 91 for none.
Ref<clsObjectList> StringListFromArray(std::span<const Variant> values);

// A new list of clsString, one for each piece of `source` between the delimiters, empty pieces included. An
// empty source gives an empty list; with an empty delimiter the whole source is one piece.
Ref<clsObjectList> StringListFromSplit(std::u16string_view source, std::u16string_view delimiter);

}  // namespace vestrel::modObjectList
