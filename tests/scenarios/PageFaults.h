// What holds of every page of a show whatever was done to it.
#pragma once

#include <string>

#include "model/clsPage.h"

namespace vestrel::test {

// A page is read in the order that its file gives, whatever that is; everything else sorts.
enum class ListOrder : bool { AsRead, ByIndex };

// What does not hold, in words; empty when all is well: buttons in order and in their own group, each once,
// at most one highlight a group, and the list of what plays as the buttons say.
std::string FaultsOf(clsPage& page, ListOrder order = ListOrder::ByIndex);

}  // namespace vestrel::test
