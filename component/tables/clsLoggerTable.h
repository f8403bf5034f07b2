// The table of clsLogger.
#pragma once

#include "component/Table.h"
#include "util/clsLogger.h"

namespace vestrel::component {

template <>
struct TableOf<clsLogger> {
  using T = clsLogger;
  static constexpr auto kTable = MakeTable<T>(
      "The leveled text log: appends each line that passes its level to one file.",
      Method<&T::Init>("Init",
                       "Names the file, sets the level to LogLevel_3_INFO and writes the two header lines.",
                       "filename"),
      Method<&T::SetLevel>("SetLevel", "The most detailed level that is written.", "level"),
      Method<&T::Log>("Log", "Writes a line when its level passes.", "text",
                      Optional("level", LogLevel_3_INFO)));
};

}  // namespace vestrel::component
