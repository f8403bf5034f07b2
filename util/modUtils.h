// Stateless helpers that the library's classes and its facade share: assertion, file names, the message box.
// Folders and page files are dealt with in storage/.
#pragma once

#include <string>
#include <string_view>

namespace vestrel::modUtils {

// Raises 7155, source "modUtils.Assert()", description "assert false", when `isTrue` is false.
void Assert(bool isTrue);

// The piece of `filename` after the last `delim`, the whole name without one; empty when it ends with
// `delim`.
std::u16string Basename(std::u16string_view filename, std::u16string_view delim = u"\\");

// Everything before the last "."; empty for a name without one.
std::u16string RemoveFileExt(std::u16string_view filename);

// Shows `text` in a modal box with the caption "Error". Where the environment asks for boxes to be logged,
// the log gets "message box [Error]: text" at LogLevel_2_WARNING instead, line breaks written as blanks.
void ShowErrorBox(std::u16string_view text);

}  // namespace vestrel::modUtils
