// The library's own printf-style formatter, behind every log line with placeholders and every message text.
// It also turns backslash escapes in the format into control characters. Only the format is scanned, never an
// argument: a path with "\n" in it comes out as it is.
//
// A directive is "%", flags, width, "." precision and a conversion character, arguments taken left to right:
//   flags   0 pads with "0"; - aligns left; + forces a sign; # alternate form; * takes the precision from the
//           next argument (-1, the default, when that is not numeric)
//   s  text, cut to the precision and padded        d i  whole number      u  the same, unsigned 32 bits
//   f  fixed point    e E  exponent as e+000        g G  the shorter of both
//   o  octal          x X  hexadecimal; a text, of a number too, is cut to the precision, which is 0 unless
//   given c  first character of a text, or the one with that code           p  address as 0000:0000 n  writes
//   the output so far into an in/out text and produces nothing
// A numeric conversion of something that is not numeric gives "0". A directive that cannot be read is copied;
// "%%" is no percent sign: its first "%" is copied and the second opens a directive. Formatting stops, and
// the output so far is kept, when a directive finds no argument left. Escapes: \n line break (CR LF), \t tab,
// \\ backslash; \f, \r and \b give nothing; others are copied.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "util/FormatArg.h"
#include "util/TextBuffer.h"

namespace vestrel::modSprintf {

// The formatted text. An object stands for its own value. Raises 6 for a width or precision beyond 32 bits
// and, under "%s", 13 for an object that has no value of its own and 91 for none.
std::u16string FormatText(std::u16string_view format, std::span<const FormatArg> args);

// The same, appended to `out` without making a text of its own.
void AppendFormatted(TextBuffer& out, std::u16string_view format, std::span<const FormatArg> args);

// FormatText with the arguments written out.
template <class... Args>
std::u16string Format(std::u16string_view format, const Args&... args) {
  const std::array<FormatArg, sizeof...(Args)> list{FormatArg(args)...};
  return FormatText(format, list);
}

}  // namespace vestrel::modSprintf
