// Numbers as the formatter writes them: sign, alternate form, precision, width. Used by modSprintf alone.
#pragma once

#include <cstdint>

#include "util/FormatArg.h"
#include "util/FormatDirective.h"
#include "util/TextBuffer.h"

namespace vestrel::modSprintf {

// The numeric value of an argument: whole (exact) or real.
struct Number {
  bool whole = true;
  std::int64_t wholeValue = 0;
  double realValue = 0;
};

// Whether the argument is a number, a boolean (-1 or 0) or a text that reads as a number; `number` receives
// it.
bool ReadNumber(const FormatArg& arg, Number& number);

// Appends `number` by the directive's conversion, one of the numeric ones.
void AppendNumber(TextBuffer& out, const Directive& directive, const Number& number);

// Appends the low 32 bits of `number` as an address of two halves, "0012:ABCD".
void AppendAddress(TextBuffer& out, const Number& number);

}  // namespace vestrel::modSprintf
