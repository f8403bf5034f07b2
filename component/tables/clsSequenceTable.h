// The table of clsSequence.
#pragma once

#include "component/Table.h"
#include "storage/clsSequence.h"

namespace vestrel::component {

template <>
struct TableOf<clsSequence> {
  using T = clsSequence;
  static constexpr auto kTable = MakeTable<T>(
      "One sequence of a multi button.", Field<&T::theName>("theName", "The sequence's name."),
      Field<&T::myMulti>("myMulti", "The multi it belongs to."),
      Field<&T::myPlayback>("myPlayback", "The playback it runs on."),
      Field<&T::myButtonGroup>("myButtonGroup", "The button group it belongs to."),
      Field<&T::releaseActive>("releaseActive", "Whether it is being released."),
      Field<&T::isRunning>("isRunning", "Whether it runs."),
      Field<&T::timeBool>("timeBool", "Whether its time is used."),
      Field<&T::beatBool>("beatBool", "Whether its beat is used."),
      Field<&T::theBeat>("theBeat", "Its beat."), Field<&T::theTime>("theTime", "Its time."),
      Field<&T::mySequenceType>("mySequenceType", "Its kind."),
      Field<&T::currentX>("currentX", "Its x position."), Field<&T::currentY>("currentY", "Its y position."),
      Field<&T::tag>("tag", "A text of the host's."), Field<&T::seqType>("seqType", "Its sequence type."),
      Field<&T::myPage>("myPage", "The page it belongs to; not stored in the file."),
      Method<&T::SaveToFile>("SaveToFile", "Writes one record line to an open text file.", "fnum"),
      Method<&T::LoadFromFile>("LoadFromFile", "Reads one record line from an open text file.", "fnum",
                               "majorVersion", "minorVersion"));
};

}  // namespace vestrel::component
