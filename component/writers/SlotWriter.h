// Lists the slots of every class as plain lines, "clsLong: get value, put value, IComparable_CompareTo, ...".
#pragma once

#include <iosfwd>

namespace vestrel::component {

void WriteSlots(std::ostream& out);

}  // namespace vestrel::component
