// Lists the slots of every class as plain lines: the class's name, then a line for each slot with its
// dispatch id, its kind where it is no method, its name, its arguments with their directions, types and
// defaults, and its result, "  10 FindObjectValue(valueObj: IComparable, field: string = "all"): long".
#pragma once

#include <iosfwd>

namespace vestrel::component {

void WriteSlots(std::ostream& out);

}  // namespace vestrel::component
