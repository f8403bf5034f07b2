// Events to and from an open text file (docs/event-file.md). Lines in the form in which they are written are
// read and written whole; all others go field by field.
#pragma once

#include <cstddef>

#include "recording/ButtonNames.h"
#include "recording/EventLine.h"
#include "recording/vxEvent.h"
#include "storage/TextInput.h"
#include "storage/TextOutput.h"

namespace vestrel {

class clsDictionary;

// Writes the event's line. Raises 91 without a button, and the file's errors.
void WriteEvent(TextOutput& out, const vxEvent& event);

// Reads events one by one.
class EventReader {
 public:
  // Both outlive the reader, and the map does not change meanwhile. It may be none as long as nothing is
  // read.
  EventReader(TextInput& in, const clsDictionary* buttonMap) : in_(in), names_(buttonMap) {}

  // Reads the next line into the event; whether the map has a button of the name read. Raises as
  // vxEvent::ReadFromFile.
  bool Read(vxEvent& event);

 private:
  std::size_t NextLine(EventLine& line);
  std::size_t ReadBehindBuffer(EventLine& line);
  bool ReadFields(vxEvent& event);

  TextInput& in_;
  ButtonNames names_;
};

}  // namespace vestrel
