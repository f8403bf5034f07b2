#include "component/writers/SlotWriter.h"

#include <array>
#include <ostream>
#include <string_view>

#include "component/ClassDescription.h"

namespace vestrel::component {

void WriteSlots(std::ostream& out) {
  static constexpr std::array<std::string_view, 4> kKinds{"", "get ", "put ", "putref "};
  for (const ClassDescription& description : AllDescriptions()) {
    out << description.name() << "\n";
    for (const Slot& slot : description.slots()) {
      out << "  " << kKinds[static_cast<std::size_t>(slot.operation.kind)] << slot.name << "\n";
    }
  }
}

}  // namespace vestrel::component
