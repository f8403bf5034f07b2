#include "tests/component/Subject.h"

#include <array>

#include "component/ClassInfo.h"

namespace vestrel::test {

std::set<std::string>& CalledSlots() {
  static std::set<std::string> called;
  return called;
}

std::string NoteOf(std::string_view className, std::int32_t id, component::Kind kind, std::string_view name) {
  static constexpr std::array<std::string_view, 4> kKinds{" call ", " get ", " put ", " putref "};
  return std::string(className) + " " + std::to_string(id) +
         std::string(kKinds[static_cast<std::size_t>(kind)]) + std::string(name);
}

Variant Subject::Invoke(component::Kind kind, std::u16string_view name,
                        const std::vector<component::Actual>& arguments) const {
  if (const component::ClassInfo* info = object_ ? component::ClassOf(*object_) : nullptr) {
    const component::ClassDescription& description = *info->description;
    const int slot = description.FindSlot(description.FindId(name), kind);
    if (slot >= 0) {
      const component::Slot& found = description.slots()[static_cast<std::size_t>(slot)];
      CalledSlots().insert(NoteOf(description.name(), found.id, found.operation.kind, found.name));
    }
  }
  return component::InvokeByName(object_.get(), name, kind, arguments);
}

}  // namespace vestrel::test
