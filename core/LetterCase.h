// Letters without their case, for keys that people type: the common letters of Latin, Greek and Cyrillic
// writing, each one code unit in either case, whatever the locale. Words of file formats use FoldCase of
// core/Convert.h, which leaves all but the basic alphabet alone.
#pragma once

#include <string_view>

namespace vestrel {

// The small letter of a capital one; anything else as it is.
char16_t FoldLetter(char16_t unit) noexcept;
bool EqualIgnoringLetterCase(std::u16string_view a, std::u16string_view b) noexcept;

}  // namespace vestrel
