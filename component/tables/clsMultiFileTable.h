// The table of clsMultiFile.
#pragma once

#include "component/Table.h"
#include "storage/clsMultiFile.h"

namespace vestrel::component {

template <>
struct TableOf<clsMultiFile> {
  using T = clsMultiFile;
  static constexpr auto kTable = MakeTable<T>(
      "The file that lists the sequences of a multi button.",
      Get<&T::SequenceList>("SequenceList", "The sequences, the list itself."),
      Method<&T::Init>("Init", "Names the file of a button and starts with an empty list.", "appPath",
                       "showName", "pageName", "buttonName"),
      Method<&T::AddSequence>("AddSequence", "Appends a sequence.", "seq"),
      Method<&T::Load>("Load", "Reads the file into the list."), Method<&T::Save>("Save", "Writes the file."),
      Method<&T::Delete>("Delete", "Deletes the file, on request with those of its sequences.",
                         Optional("withSequenceFiles", false)));
};

}  // namespace vestrel::component
