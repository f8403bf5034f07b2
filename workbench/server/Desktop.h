// The desktop that the program was started from, if there is one.
#pragma once

#include <string>

namespace vestrel::workbench {

// Opens the address in the operator's browser where there is a desktop; otherwise, and where that fails,
// nothing happens.
void OpenInBrowser(const std::string& address);

}  // namespace vestrel::workbench
