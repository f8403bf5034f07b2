// The table of IComparable.
#pragma once

#include "component/Table.h"
#include "core/IComparable.h"

namespace vestrel::component {

template <>
struct TableOf<IComparable> {
  using T = IComparable;
  static constexpr auto kTable = MakeTable<T>(
      "The order of an object among others of its kind, as lists search and sort by it. Negative: this "
      "object comes first; 0: equal; positive: it comes after.",
      Method<&T::CompareTo>("CompareTo",
                            "Compares with another object; field names the field of a record to compare by, "
                            "\"all\" the whole value.",
                            "other", Optional("field", u"all")),
      Method<&T::FieldCompare>("FieldCompare",
                               "Compares the field of that name with a plain value; 0 when equal.",
                               "fieldName", "value"));
};

}  // namespace vestrel::component
