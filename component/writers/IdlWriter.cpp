// The dual interface of a class X is _X, its coclass X. Arguments travel by reference ([in, out]), the values
// of property puts and the arguments of the few operations marked so by value.
#include "component/writers/IdlWriter.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ostream>

#include "component/ClassDescription.h"
#include "component/Enumerations.h"
#include "component/Ids.h"
#include "core/Convert.h"

namespace vestrel::component {
namespace {

// Words of the description language or of C++ that an argument must not be named.
bool IsReserved(std::string_view name) {
  static constexpr std::array<std::string_view, 3> kReserved{"default", "string", "delete"};
  return std::find(kReserved.begin(), kReserved.end(), name) != kReserved.end();
}

std::string Identifier(std::string_view name) {
  return std::string(name) + (IsReserved(name) ? "_" : "");
}

// Calls `act` with every parameter of every operation.
template <class Act>
void ForEachParameter(Act act) {
  for (const ClassDescription& description : AllDescriptions()) {
    for (const Slot& slot : description.slots()) {
      for (std::size_t i = 0; i < slot.operation.parameterCount; ++i) act(slot.operation.parameters[i]);
    }
  }
}

template <class T>
void AddOnce(std::vector<T>& list, T item) {
  if (std::find(list.begin(), list.end(), item) == list.end()) list.push_back(item);
}

std::string TypeName(const TypeDescription& type) {
  switch (type.type) {
    case ValueType::None:
      return "void";
    case ValueType::Boolean:
      return "VARIANT_BOOL";
    case ValueType::Byte:
      return "unsigned char";
    case ValueType::Short:
      return "short";
    case ValueType::Long:
      return "long";
    case ValueType::Single:
      return "float";
    case ValueType::Text:
      return "BSTR";
    case ValueType::Dynamic:
      return "VARIANT";
    case ValueType::Object:
      return type.name.empty() ? "IDispatch*" : "_" + std::string(type.name) + "*";
    case ValueType::Enumeration:
      return std::string(type.name);
    case ValueType::FaderValues:
      return "TUIFaderValues";
    case ValueType::Array:
      return "SAFEARRAY(VARIANT)";
  }
  return {};
}

std::string Quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    result += c;
  }
  return result + "\"";
}

// An argument may have the name that results go by.
std::string_view ResultName(const Operation& operation) {
  const auto* end = operation.parameters.begin() + operation.parameterCount;
  const bool taken = std::any_of(operation.parameters.begin(), end,
                                 [](const Parameter& parameter) { return parameter.name == "result"; });
  return taken ? "returned" : "result";
}

bool IsTextDefault(const Parameter& parameter) {
  return parameter.optional() && parameter.type.type == ValueType::Text;
}

class IdlWriter {
 public:
  IdlWriter(std::ostream& out, IdlDialect dialect) : out_(out), dialect_(dialect), texts_(DefaultTexts()) {}

  void Write() {
    out_ << "// The component interfaces of the library. Generated from its tables; do not edit.\n"
            "import \"oaidl.idl\";\n\n";
    if (dialect_ == IdlDialect::Published) WriteReservedNames();
    WriteAttributes(LibraryId(), "Vestrel component library",
                    "version(" + std::to_string(kLibraryMajor) + "." + std::to_string(kLibraryMinor) + ")" +
                        TextCarriers());
    out_ << "library Vestrel\n{\n  importlib(\"stdole2.tlb\");\n\n";
    for (const EnumerationDescription& description : AllEnumerations()) WriteEnumeration(description);
    out_ << "  // The type library has both arrays as 1 to 8, which this language cannot say.\n"
            "  typedef [uuid("
         << ToText(IdOfType("TUIFaderValues"))
         << ")] struct TUIFaderValues {\n    long GroupFaders[8];\n    long BumpFaders[8];\n"
            "  } TUIFaderValues;\n\n";
    for (const ClassDescription& description : AllDescriptions()) {
      out_ << "  interface _" << description.name() << ";\n";
    }
    for (const ClassDescription& description : AllDescriptions()) WriteInterface(description);
    for (const ClassDescription& description : AllDescriptions()) WriteClass(description);
    out_ << "}\n";
  }

 private:
  void WriteReservedNames() {
    for (const std::string_view name : ReservedNames()) {
      out_ << "// In the type library the argument " << Identifier(name) << " is named " << name
           << ", which is a word of this language.\n\n";
    }
  }

  void WriteAttributes(const Guid& id, std::string_view help, std::string_view more) {
    out_ << "[uuid(" << ToText(id) << "), helpstring(" << Quoted(help) << ")" << (more.empty() ? "" : ", ")
         << more << "]\n";
  }

  // One custom attribute for each text, named by ids of no further meaning.
  std::string TextCarriers() const {
    if (dialect_ != IdlDialect::Widl) return {};
    std::string result;
    for (std::size_t i = 0; i < texts_.size(); ++i) {
      std::array<char, 96> id{};
      std::snprintf(id.data(), id.size(), ", custom(7C1F4B2A-52D7-4B6E-9C0B-%012X, ",
                    static_cast<unsigned>(i + 1));
      result += id.data() + Quoted(ToUtf8(texts_[i])) + ")";
    }
    return result;
  }

  void WriteEnumeration(const EnumerationDescription& description) {
    out_ << "  typedef [uuid(" << ToText(IdOfType(description.name)) << "), helpstring("
         << Quoted(description.help) << ")] enum " << description.name << " {\n";
    for (const EnumerationMember& member : description.members) {
      out_ << "    " << member.name << " = " << member.value
           << (&member == &description.members.back() ? "\n" : ",\n");
    }
    out_ << "  } " << description.name << ";\n\n";
  }

  void WriteInterface(const ClassDescription& description) {
    out_ << "\n  [object, dual, oleautomation, nonextensible, uuid("
         << ToText(IdsOf(description.name()).interfaceId) << "),\n   helpstring("
         << Quoted(description.help()) << ")]\n  interface _" << description.name() << " : IDispatch\n  {\n";
    for (const Slot& slot : description.slots()) WriteOperation(slot);
    out_ << "  }\n";
  }

  void WriteOperation(const Slot& slot) {
    static constexpr std::array<std::string_view, 4> kKinds{"", "propget, ", "propput, ", "propputref, "};
    const Operation& operation = slot.operation;
    out_ << "    [" << kKinds[static_cast<std::size_t>(operation.kind)] << "id(" << slot.id
         << "), helpstring(" << Quoted(operation.help) << ")]\n    HRESULT " << slot.name << "(";
    bool first = true;
    for (std::size_t i = 0; i < operation.parameterCount; ++i) {
      out_ << (first ? "" : ",\n        ");
      first = false;
      WriteParameter(operation, i);
    }
    if (operation.result.type != ValueType::None) {
      out_ << (first ? "" : ",\n        ") << "[out, retval] " << TypeName(operation.result) << "* "
           << ResultName(operation);
    }
    out_ << ");\n";
  }

  void WriteParameter(const Operation& operation, std::size_t index) {
    const Parameter& parameter = operation.parameters[index];
    const bool put = operation.kind == Kind::Put || operation.kind == Kind::PutRef;
    const bool byValue = operation.argumentsByValue || (put && index + 1U == operation.parameterCount);
    out_ << (byValue ? "[in" : "[in, out");
    if (parameter.optional() && dialect_ != IdlDialect::Header) out_ << ", optional" << DefaultOf(parameter);
    out_ << "] " << TypeName(parameter.type) << (byValue ? " " : "* ") << Identifier(parameter.name);
  }

  std::string DefaultOf(const Parameter& parameter) const {
    const DefaultValue& value = parameter.defaultValue;
    if (IsTextDefault(parameter)) return ", defaultvalue(" + TextDefault(value.text) + ")";
    switch (value.type) {
      case DefaultValue::Type::Boolean:
        return value.number != 0 ? ", defaultvalue(-1)" : ", defaultvalue(0)";
      case DefaultValue::Type::Long: {
        const std::string_view member = NameOfValue(parameter.type.name, value.number);
        return ", defaultvalue(" + (member.empty() ? std::to_string(value.number) : std::string(member)) +
               ")";
      }
      default:
        return {};
    }
  }

  std::string TextDefault(std::u16string_view text) const {
    if (dialect_ == IdlDialect::Published) return Quoted(ToUtf8(text));
    const auto position = std::find(texts_.begin(), texts_.end(), text) - texts_.begin();
    return std::to_string(kTextDefaultMarker + position);
  }

  void WriteClass(const ClassDescription& description) {
    out_ << "\n  ";
    WriteAttributes(IdsOf(description.name()).classId, description.help(), "");
    out_ << "  coclass " << description.name() << "\n  {\n    [default] interface _" << description.name()
         << ";\n";
    for (const std::string_view interface : description.interfaces()) {
      out_ << "    interface _" << interface << ";\n";
    }
    out_ << "  }\n";
  }

  std::ostream& out_;
  IdlDialect dialect_;
  std::vector<std::u16string_view> texts_;
};

}  // namespace

std::vector<std::u16string_view> DefaultTexts() {
  std::vector<std::u16string_view> result;
  ForEachParameter([&](const Parameter& parameter) {
    if (IsTextDefault(parameter)) AddOnce(result, parameter.defaultValue.text);
  });
  return result;
}

std::vector<std::string_view> ReservedNames() {
  std::vector<std::string_view> result;
  ForEachParameter([&](const Parameter& parameter) {
    if (IsReserved(parameter.name)) AddOnce(result, parameter.name);
  });
  return result;
}

void WriteIdl(std::ostream& out, IdlDialect dialect) {
  IdlWriter(out, dialect).Write();
}

}  // namespace vestrel::component
