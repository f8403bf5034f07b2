// Events to and from an open text file (docs/event-file.md). Lines in the form in which they are written are
// read and written whole; all others go field by field.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "core/Ref.h"
#include "model/clsButton.h"
#include "recording/EventLine.h"
#include "recording/vxEvent.h"
#include "storage/TextInput.h"
#include "storage/TextOutput.h"

namespace vestrel {

class clsDictionary;

// Writes the event's line. Raises 91 without a button, and the file's errors.
void WriteEvent(TextOutput& out, const vxEvent& event);

// Reads events one by one. For as long as one read takes: neither the file nor the map may change.
class EventReader {
 public:
  // Both outlive the reader. The map may be none as long as nothing is read.
  EventReader(TextInput& in, const clsDictionary* buttonMap) : in_(in), buttonMap_(buttonMap) {}

  // Reads the next line into the event; whether the map has a button of the name read. Raises as
  // vxEvent::ReadFromFile.
  bool Read(vxEvent& event);

 private:
  // A name of the file and what the map has for it.
  struct Binding {
    bool known = false;
    Ref<clsButton> button;
  };
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const noexcept {
      return std::hash<std::string_view>()(name);
    }
  };

  std::size_t NextLine(EventLine& line);
  bool ReadFields(vxEvent& event);
  const Binding& BindingOf(std::string_view name);
  Binding LookUp(std::u16string_view name) const;

  TextInput& in_;
  const clsDictionary* buttonMap_;
  std::unordered_map<std::string, Binding, Hash, std::equal_to<>> bindings_;
};

}  // namespace vestrel
