// The one rule for turning text into numbers and values into text, used wherever the library converts.
// A number in text: blanks around it, an optional sign, digits with an optional decimal point, an optional
// exponent. Fractions round to the nearest integer, halves to the even neighbour. Raises 13 (type mismatch)
// for text that is no number and 6 (overflow) for one that does not fit. Independent of the locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/Variant.h"

namespace vestrel {

bool IsNumericText(std::u16string_view text);

double TextToDouble(std::u16string_view text);
float TextToSingle(std::u16string_view text);
// Also takes "True" (-1) and "False" (0) in any letter case.
std::int32_t TextToLong(std::u16string_view text);
// As TextToLong, within 16 bits.
std::int16_t TextToShort(std::u16string_view text);
// "True" or "False" in any letter case, or a number: 0 is false, anything else true.
bool TextToBoolean(std::u16string_view text);

// Plain decimal, a leading "-" for negatives.
std::u16string LongToText(std::int32_t value);
// The shortest text that reads back to the same value, whole numbers without a fraction, "." as the decimal
// separator.
std::u16string DoubleToText(double value);
std::u16string SingleToText(float value);
// "True" or "False".
std::u16string_view BooleanToText(bool value) noexcept;

// Whether the value is a number, a boolean or a text that IsNumericText accepts.
bool IsNumeric(const Variant& value);
// The value as text: booleans "True"/"False", nothing as the empty text. Raises 13 for an object that has no
// value of its own (clsLong and clsString have).
std::u16string ToText(const Variant& value);
// The value as a number: true is -1, nothing is 0. Raises 13 or 6.
double ToDouble(const Variant& value);
std::int32_t ToLong(const Variant& value);
std::int16_t ToShort(const Variant& value);
bool ToBoolean(const Variant& value);

// ASCII letters folded to lower case, everything else as it is.
char16_t FoldCase(char16_t unit) noexcept;
bool EqualIgnoringCase(std::u16string_view a, std::u16string_view b) noexcept;
std::u16string LowerCase(std::u16string_view text);

// UTF-8 for consoles, exception texts and tests. Unpaired surrogates become U+FFFD.
std::string ToUtf8(std::u16string_view text);
std::u16string FromUtf8(std::string_view text);

}  // namespace vestrel
