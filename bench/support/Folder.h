// A fresh folder on the real disk for one run of a program, removed at its end.
#pragma once

#include <string>

#include "bench/support/LibraryPath.h"

namespace vestrel::bench {

// The folder, made when first asked for; without a separator at its end.
const std::string& Folder();

}  // namespace vestrel::bench
