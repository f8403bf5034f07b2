// The list of a group's button indices as the page file keeps it: decimal numbers joined by "|" ("3|1|7").
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vestrel {

class clsObjectList;

// The buttonIndex of each button in list order; an empty list gives the empty text. Raises 13 for an item
// that is no button, 91 for none.
std::u16string IndexListText(const clsObjectList& buttons);

// The numbers in order; the empty text has none. Raises 13 for a piece that is no number (an empty one
// included) and 6 for one that does not fit 32 bits.
std::vector<std::int32_t> IndexListFromText(std::u16string_view text);

}  // namespace vestrel
