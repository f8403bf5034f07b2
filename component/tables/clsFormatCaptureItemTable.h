// The table of clsFormatCaptureItem.
#pragma once

#include "component/Table.h"
#include "util/clsFormatCaptureItem.h"

namespace vestrel::component {

template <>
struct TableOf<clsFormatCaptureItem> {
  using T = clsFormatCaptureItem;
  static constexpr auto kTable =
      MakeTable<T>("One group of digits that a format capture found.",
                   Field<&T::strValue>("strValue", "The digits as they stood in the text."),
                   Field<&T::itemType>("itemType", "What the group holds."));
};

}  // namespace vestrel::component
