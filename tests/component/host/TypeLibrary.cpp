// Reads the type library through the system, as hosts and their tools do, and compares it with the fixed list
// of slots.
#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "tests/component/host/Check.h"
#include "tests/component/host/EarlyHost.h"
#include "tests/component/host/Program.h"

namespace host {
namespace {

std::string NameOf(ITypeInfo* info, MEMBERID member = MEMBERID_NIL) {
  Text name;
  info->GetDocumentation(member, name.out(), nullptr, nullptr, nullptr);
  return Narrow(name.str());
}

class TypeReader {
 public:
  explicit TypeReader(ITypeInfo* info) : info_(info) {}

  // The type as the list writes it; `byReference` says whether it is a pointer to a value.
  std::string Read(const TYPEDESC& description, bool& byReference) const {
    byReference = description.vt == VT_PTR;
    const TYPEDESC& type = byReference ? *description.lptdesc : description;
    if (type.vt == VT_PTR) return Named(*type.lptdesc);
    if (byReference && type.vt == VT_USERDEFINED && IsInterface(type)) {
      byReference = false;  // an object by value
      return Named(type);
    }
    return Named(type);
  }

 private:
  std::string Named(const TYPEDESC& type) const {
    switch (type.vt) {
      case VT_BOOL:
        return "boolean";
      case VT_UI1:
        return "byte";
      case VT_I2:
        return "short";
      case VT_I4:
        return "long";
      case VT_R4:
        return "single";
      case VT_BSTR:
        return "string";
      case VT_VARIANT:
        return "variant";
      case VT_DISPATCH:
        return "object";
      case VT_SAFEARRAY:
        return "array";
      case VT_USERDEFINED:
        return UserDefined(type.hreftype);
      default:
        return "type " + std::to_string(type.vt);
    }
  }
  std::string UserDefined(HREFTYPE reference) const {
    Pointer<ITypeInfo> type;
    if (FAILED(info_->GetRefTypeInfo(reference, type.out()))) return "unknown";
    const std::string name = NameOf(type.get());
    if (name == "IDispatch") return "object";
    return name.starts_with('_') ? name.substr(1) : name;
  }
  bool IsInterface(const TYPEDESC& type) const {
    Pointer<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    if (FAILED(info_->GetRefTypeInfo(type.hreftype, info.out())) || FAILED(info->GetTypeAttr(&attributes)))
      return false;
    const TYPEKIND kind = attributes->typekind;
    info->ReleaseTypeAttr(attributes);
    return kind == TKIND_INTERFACE || kind == TKIND_DISPATCH;
  }

  ITypeInfo* info_;
};

std::string DefaultOf(const PARAMDESC& description, const std::string& type) {
  if ((description.wParamFlags & PARAMFLAG_FOPT) == 0 &&
      (description.wParamFlags & PARAMFLAG_FHASDEFAULT) == 0)
    return {};
  if ((description.wParamFlags & PARAMFLAG_FHASDEFAULT) == 0) return " = none";
  VARIANT& value = description.pparamdescex->varDefaultValue;
  if (V_VT(&value) == VT_BSTR)
    return " = \"" + (V_BSTR(&value) == nullptr ? "" : Narrow(V_BSTR(&value))) + "\"";
  VARIANT number;
  VariantInit(&number);
  if (FAILED(VariantChangeType(&number, &value, 0, VT_I4))) return " = unknown";
  if (type == "boolean") return V_I4(&number) != 0 ? " = true" : " = false";
  return " = " + std::to_string(V_I4(&number));
}

// One line of the list.
std::string SlotLine(ITypeInfo* info, const FUNCDESC& function) {
  const TypeReader reader(info);
  std::vector<BSTR> names(static_cast<std::size_t>(function.cParams) + 1);
  UINT count = 0;
  info->GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count);
  std::string kind;
  if (function.invkind == INVOKE_PROPERTYGET) kind = "get ";
  if (function.invkind == INVOKE_PROPERTYPUT) kind = "put ";
  if (function.invkind == INVOKE_PROPERTYPUTREF) kind = "putref ";
  std::string line = "  " + std::to_string(function.memid) + " " + kind + Narrow(names[0]) + "(";
  std::string result;
  bool byValue = function.invkind == INVOKE_FUNC;
  bool first = true;
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& element = function.lprgelemdescParam[i];
    bool byReference = false;
    const std::string type = reader.Read(element.tdesc, byReference);
    if ((element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
      result = ": " + type;
      continue;
    }
    const std::size_t position = static_cast<std::size_t>(i) + 1;
    // The value of a property has no name; in its place there may be the getter's.
    const bool isValue = (kind == "put " || kind == "putref ") && i + 1 == function.cParams;
    const bool hasName = position < count && !isValue;
    line += (first ? "" : ", ") + (hasName ? Narrow(names[position]) : "value") + ": " + type +
            DefaultOf(element.paramdesc, type);
    byValue = byValue && !byReference;
    first = false;
  }
  for (UINT i = 0; i < count; ++i) SysFreeString(names[i]);
  return line + ")" + (byValue && !first ? " by value" : "") + result;
}

// The lines of an interface, in the order of its virtual table, which has no gaps.
std::vector<std::string> SlotsOf(ITypeInfo* dispatch) {
  Pointer<ITypeInfo> table;
  HREFTYPE reference = 0;
  std::vector<std::pair<SHORT, std::string>> slots;
  if (FAILED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
      FAILED(dispatch->GetRefTypeInfo(reference, table.out())))
    return {};
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(table->GetFuncDesc(i, &function)); ++i) {
    slots.emplace_back(function->oVft, SlotLine(table.get(), *function));
    table->ReleaseFuncDesc(function);
  }
  std::sort(slots.begin(), slots.end());
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < slots.size(); ++i) {
    CHECK_EQ(slots[i].first, static_cast<SHORT>((7 + i) * sizeof(void*)));
    lines.push_back(slots[i].second);
  }
  return lines;
}

// The list says which way arguments travel; a type library has both for all.
std::string WithoutDirections(std::string line) {
  for (const std::string word : {"in out ", "out "}) {
    for (std::size_t at = line.find(word); at != std::string::npos; at = line.find(word, at)) {
      const bool starts = at > 0 && (line[at - 1] == '(' || line[at - 1] == ' ');
      if (starts) line.erase(at, word.size());
      if (!starts) ++at;
    }
  }
  return line;
}

std::vector<std::vector<std::string>> ReadList(const char* path) {
  std::vector<std::vector<std::string>> classes;
  std::ifstream file(path);
  std::string line;
  while (std::getline(file, line)) {
    while (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) continue;
    if (line[0] != ' ') classes.emplace_back();
    classes.back().push_back(WithoutDirections(line));
  }
  return classes;
}

void Compare(ITypeLib* library, const std::vector<std::string>& fixed) {
  const std::string name = "_" + fixed[0];
  std::wstring wide(name.begin(), name.end());
  Pointer<ITypeInfo> type;
  MEMBERID member = 0;
  USHORT found = 1;
  const HRESULT code = library->FindName(wide.data(), 0, type.out(), &member, &found);
  Checked(SUCCEEDED(code) && found == 1, "the interface is there:", name.c_str(), 0);
  if (!type) return;
  const std::vector<std::string> lines = SlotsOf(type.get());
  CHECK_EQ(lines.size(), fixed.size() - 1);
  for (std::size_t i = 0; i < lines.size() && i + 1 < fixed.size(); ++i) {
    Checked(lines[i] == fixed[i + 1], name.c_str(), fixed[i + 1].c_str(), 0, "\n  but" + lines[i]);
  }
}

void CompareEnumeration(ITypeLib* library, const wchar_t* enumeration, const char* member, LONG value) {
  std::wstring name = enumeration;
  Pointer<ITypeInfo> type;
  MEMBERID id = 0;
  USHORT found = 1;
  CHECK(SUCCEEDED(library->FindName(name.data(), 0, type.out(), &id, &found)) && found == 1);
  VARDESC* variable = nullptr;
  for (UINT i = 0; type && SUCCEEDED(type->GetVarDesc(i, &variable)); ++i) {
    const bool fits = NameOf(type.get(), variable->memid) == member;
    if (fits) CHECK_EQ(V_I4(variable->lpvarValue), value);
    type->ReleaseVarDesc(variable);
    if (fits) return;
  }
  Checked(false, "has the member", member, 0);
}

// Both arrays of the fader record run from 1 to 8.
void CompareRecord(ITypeLib* library) {
  Pointer<ITypeInfo> type;
  MEMBERID id = 0;
  USHORT found = 1;
  std::wstring name = L"TUIFaderValues";
  CHECK(SUCCEEDED(library->FindName(name.data(), 0, type.out(), &id, &found)) && found == 1);
  std::string members;
  VARDESC* variable = nullptr;
  for (UINT i = 0; type && SUCCEEDED(type->GetVarDesc(i, &variable)); ++i) {
    const TYPEDESC& array = variable->elemdescVar.tdesc;
    CHECK_EQ(array.vt, static_cast<VARTYPE>(VT_CARRAY));
    CHECK_EQ(array.lpadesc->tdescElem.vt, static_cast<VARTYPE>(VT_I4));
    CHECK_EQ(array.lpadesc->cDims, static_cast<USHORT>(1));
    const SAFEARRAYBOUND& bounds = array.lpadesc->rgbounds[0];
    members += NameOf(type.get(), variable->memid) + " from " + std::to_string(bounds.lLbound) + ", " +
               std::to_string(bounds.cElements) + ";";
    type->ReleaseVarDesc(variable);
  }
  Checked(members == "GroupFaders from 1, 8;BumpFaders from 1, 8;", "the fader record", members.c_str(), 0);
}

int Run(const wchar_t* path, const char* list) {
  Pointer<ITypeLib> library;
  CHECK_EQ(LoadTypeLibEx(path, REGKIND_NONE, library.out()), S_OK);
  if (!library) return Totals("type library");
  const auto classes = ReadList(list);
  CHECK(classes.size() > 30);
  for (const auto& fixed : classes) Compare(library.get(), fixed);
  CompareRecord(library.get());
  CompareEnumeration(library.get(), L"ButtonTypeEnum", "ButtonType_None", 999);
  CompareEnumeration(library.get(), L"PlayStateEnum", "PlayState_Null", 999);
  CompareEnumeration(library.get(), L"HighlightDirEnum", "Highlight_NextAfter", 3);
  CompareEnumeration(library.get(), L"LEDStateEnum", "LEDState_Blinking", 2);
  CompareEnumeration(library.get(), L"TransportStateEnum", "Paused", 2);
  CompareEnumeration(library.get(), L"BGCErrors", "BGCErr_ButtonIndexOutOfRange", 1);
  CompareEnumeration(library.get(), L"clsButtonErrors", "errBadFieldName", 1001);
  return Totals("type library");
}

}  // namespace
}  // namespace host

// TypeLibrary FOLDER LIBRARY SLOTS: a type library or what has one in it, and the list; the folder is not
// used.
int wmain(int count, wchar_t** arguments) {
  return host::Program(count == 4,
                       [&] { return host::Run(arguments[2], host::Narrow(arguments[3]).c_str()); });
}
