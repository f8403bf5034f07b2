// Puts the finishing touches to a type library that widl compiled from the widl dialect of the interface
// description: real text defaults in the place of their markers, the right type for defaults of dynamic
// values, the arguments' names without what was put behind some of them, arrays that count from 1, and no
// time stamp, so that the same sources give the same file.
#pragma once

#include <string>

namespace vestrel::component {

// `library` is the file's content. Throws std::runtime_error when it is no type library of the expected form
// or a default's text or an argument's name is missing.
void FinishTypeLibrary(std::string& library);

}  // namespace vestrel::component
