#include "component/writers/ReferenceWriter.h"

#include <sstream>

#include "component/ClassDescription.h"
#include "component/Enumerations.h"
#include "component/Ids.h"
#include "core/Convert.h"

namespace vestrel::component {
namespace {

constexpr std::string_view kGenerated =
    "<!-- Generated from the tables in component/tables by tools/make-reference; do not edit. -->\n\n";

std::string Link(std::string_view className) {
  return "[" + std::string(className) + "](" + std::string(className) + ".md)";
}

std::string TypeText(const TypeDescription& type) {
  switch (type.type) {
    case ValueType::None:
      return "";
    case ValueType::Boolean:
      return "Boolean";
    case ValueType::Byte:
      return "Byte";
    case ValueType::Short:
      return "Integer (16-bit)";
    case ValueType::Long:
      return "Long (32-bit)";
    case ValueType::Single:
      return "Single";
    case ValueType::Text:
      return "String";
    case ValueType::Dynamic:
      return "Variant";
    case ValueType::Object:
      return type.name.empty() ? "Object" : Link(type.name);
    case ValueType::Enumeration:
      return "[" + std::string(type.name) + "](enumerations.md#" + ToUtf8(LowerCase(FromUtf8(type.name))) +
             ")";
    case ValueType::FaderValues:
      return "TUIFaderValues, or " + Link("UIFaderValues");
    case ValueType::Array:
      return "array of Variant";
  }
  return {};
}

std::string DefaultText(const Parameter& parameter) {
  const DefaultValue& value = parameter.defaultValue;
  switch (value.type) {
    case DefaultValue::Type::Required:
      return "";
    case DefaultValue::Type::None:
      return parameter.type.type == ValueType::Text ? "\"\"" : "none";
    case DefaultValue::Type::Boolean:
      return value.number != 0 ? "True" : "False";
    case DefaultValue::Type::Text:
      return "\"" + ToUtf8(value.text) + "\"";
    case DefaultValue::Type::Long: {
      const std::string_view member = NameOfValue(parameter.type.name, value.number);
      return member.empty() ? std::to_string(value.number) : std::string(member);
    }
  }
  return {};
}

std::string_view DirectionText(Direction direction) {
  switch (direction) {
    case Direction::In:
      return "in";
    case Direction::InOut:
      return "in, out";
    case Direction::Out:
      return "out";
  }
  return {};
}

// "GetItem(index)", "Log(text, [level])".
std::string Call(const Slot& slot) {
  const Operation& operation = slot.operation;
  std::string list;
  for (std::size_t i = 0; i < operation.parameterCount; ++i) {
    const Parameter& parameter = operation.parameters[i];
    if (!list.empty()) list += ", ";
    const std::string name(parameter.name);
    list += parameter.optional() ? "[" + name + "]" : name;
  }
  return slot.name + (operation.parameterCount == 0 ? "" : "(" + list + ")");
}

std::string_view AccessText(const ClassDescription& description, const Slot& slot) {
  const bool write = description.FindSlot(slot.id, Kind::Put) >= 0;
  return write ? "property, read and write" : "property, read-only";
}

void WriteOperation(std::ostream& out, const ClassDescription& description, const Slot& slot) {
  const Operation& operation = slot.operation;
  const bool put = operation.kind == Kind::Put || operation.kind == Kind::PutRef;
  if (put && description.FindSlot(slot.id, Kind::Get) >= 0 &&
      description.slots()[static_cast<std::size_t>(description.FindSlot(slot.id, Kind::Get))]
              .operation.kind == Kind::Get) {
    return;
  }
  out << "### " << (put ? slot.name : Call(slot)) << "\n\n" << operation.help << "\n\n";
  if (operation.kind == Kind::Get) out << "- " << AccessText(description, slot) << "\n";
  if (put) out << "- property, write-only: " << TypeText(operation.parameters[0].type) << "\n";
  for (std::size_t i = 0; !put && i < operation.parameterCount; ++i) {
    const Parameter& parameter = operation.parameters[i];
    out << "- `" << parameter.name << "` (" << DirectionText(parameter.direction)
        << "): " << TypeText(parameter.type);
    if (parameter.optional()) out << ", optional, " << DefaultText(parameter) << " when left out";
    out << "\n";
  }
  if (operation.result.type != ValueType::None) out << "- result: " << TypeText(operation.result) << "\n";
  out << "- dispatch id " << slot.id << "\n\n";
}

std::string ClassPage(const ClassDescription& description) {
  std::ostringstream out;
  const ClassIds& ids = IdsOf(description.name());
  out << "# " << description.name() << "\n\n" << kGenerated << description.help() << "\n\n";
  out << "Created as `Vestrel." << description.name() << "`, class {" << ToText(ids.classId)
      << "}, interface `_" << description.name() << "` {" << ToText(ids.interfaceId) << "}.";
  for (const std::string_view interface : description.interfaces())
    out << " Implements " << Link(interface) << ".";
  if (description.isInterface()) out << " A host may implement it; the class itself does nothing.";
  out << "\n\n## Operations, in slot order\n\n";
  for (const Slot& slot : description.slots()) WriteOperation(out, description, slot);
  std::string text = out.str();
  text.pop_back();
  return text;
}

std::string EnumerationsPage() {
  std::ostringstream out;
  out << "# Enumerations\n\n"
      << kGenerated << "Their values are part of the file formats and never change.\n";
  for (const EnumerationDescription& description : AllEnumerations()) {
    out << "\n## " << description.name << "\n\n" << description.help << "\n\n| member | value |\n|---|---|\n";
    for (const EnumerationMember& member : description.members) {
      out << "| `" << member.name << "` | " << member.value << " |\n";
    }
  }
  return out.str();
}

std::string IndexPage() {
  std::ostringstream out;
  out << "# Reference\n\n"
      << kGenerated
      << "Every class and operation as hosts see them. How they are used together is told in the\n"
         "[host guide](../host-guide.md).\n\n"
         "The operations of a class stand in the order of its virtual table, behind the seven slots of\n"
         "`IDispatch`; a property has one slot for reading and one for writing, in this order. Arguments\n"
         "travel by reference through the virtual table; those marked \"out\" are written. Late-bound names\n"
         "match in any letter case. An operation that fails answers HRESULT 0x800A0000 + the number of its\n"
         "error, with source and description.\n\n| class | |\n|---|---|\n";
  for (const ClassDescription& description : AllDescriptions()) {
    out << "| " << Link(description.name()) << " | " << description.help() << " |\n";
  }
  out << "\n[Enumerations](enumerations.md)\n";
  return out.str();
}

}  // namespace

void WriteReference(const std::function<void(std::string_view fileName, const std::string& text)>& page) {
  page("README.md", IndexPage());
  page("enumerations.md", EnumerationsPage());
  for (const ClassDescription& description : AllDescriptions()) {
    page(std::string(description.name()) + ".md", ClassPage(description));
  }
}

}  // namespace vestrel::component
