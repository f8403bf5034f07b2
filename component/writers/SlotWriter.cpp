#include "component/writers/SlotWriter.h"

#include <array>
#include <ostream>
#include <string>
#include <string_view>

#include "component/ClassDescription.h"
#include "core/Convert.h"

namespace vestrel::component {
namespace {

std::string TypeText(const TypeDescription& type) {
  static constexpr std::array<std::string_view, 12> kNames{"none",   "boolean", "byte",           "short",
                                                           "long",   "single",  "string",         "variant",
                                                           "object", "",        "TUIFaderValues", "array"};
  return std::string(type.name.empty() ? kNames[static_cast<std::size_t>(type.type)] : type.name);
}

std::string DefaultText(const Parameter& parameter) {
  const DefaultValue& value = parameter.defaultValue;
  switch (value.type) {
    case DefaultValue::Type::Required:
      return {};
    case DefaultValue::Type::None:
      return parameter.type.type == ValueType::Text ? " = \"\"" : " = none";
    case DefaultValue::Type::Boolean:
      return value.number != 0 ? " = true" : " = false";
    case DefaultValue::Type::Text:
      return " = \"" + ToUtf8(value.text) + "\"";
    case DefaultValue::Type::Long:
      return " = " + std::to_string(value.number);
  }
  return {};
}

std::string_view DirectionText(Direction direction) {
  static constexpr std::array<std::string_view, 3> kTexts{"", "in out ", "out "};
  return kTexts[static_cast<std::size_t>(direction)];
}

void WriteSlot(std::ostream& out, const Slot& slot) {
  static constexpr std::array<std::string_view, 4> kKinds{"", "get ", "put ", "putref "};
  const Operation& operation = slot.operation;
  out << "  " << slot.id << " " << kKinds[static_cast<std::size_t>(operation.kind)] << slot.name << "(";
  for (std::size_t i = 0; i < operation.parameterCount; ++i) {
    const Parameter& parameter = operation.parameters[i];
    out << (i == 0 ? "" : ", ") << DirectionText(parameter.direction) << parameter.name << ": "
        << TypeText(parameter.type) << DefaultText(parameter);
  }
  out << ")";
  if (operation.argumentsByValue) out << " by value";
  if (operation.result.type != ValueType::None) out << ": " << TypeText(operation.result);
  out << "\n";
}

}  // namespace

void WriteSlots(std::ostream& out) {
  for (const ClassDescription& description : AllDescriptions()) {
    out << description.name() << "\n";
    for (const Slot& slot : description.slots()) WriteSlot(out, slot);
  }
}

}  // namespace vestrel::component
