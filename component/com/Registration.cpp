#include "component/com/Registration.h"

#include <algorithm>
#include <new>
#include <utility>

#include "component/ClassDescription.h"
#include "component/Ids.h"
#include "component/com/Module.h"
#include "core/Convert.h"

namespace vestrel::component {
namespace {

constexpr std::u16string_view kClasses = u"Software\\Classes\\";
constexpr std::u16string_view kAutomationMarshaler = u"{00020424-0000-0000-C000-000000000046}";
constexpr std::u16string_view kPlatform = sizeof(void*) == 8 ? u"win64" : u"win32";

std::u16string Braced(const Guid& guid) {
  return u"{" + FromUtf8(ToText(guid)) + u"}";
}

std::u16string LibraryKey() {
  return u"TypeLib\\" + Braced(LibraryId());
}

std::u16string VersionText() {
  return FromUtf8(std::to_string(kLibraryMajor) + "." + std::to_string(kLibraryMinor));
}

// The keys a class has; the first is the topmost of its own.
void AddClass(std::vector<RegistryValue>& values, const ClassDescription& description,
              const std::u16string& modulePath) {
  const ClassIds& ids = IdsOf(description.name());
  const std::u16string name = FromUtf8(description.name());
  const std::u16string classId = Braced(ids.classId);
  const std::u16string general = u"Vestrel." + name;
  const std::u16string current = general + u".1";
  const std::u16string key = u"CLSID\\" + classId;
  values.push_back({general, u"", name});
  values.push_back({general + u"\\CLSID", u"", classId});
  values.push_back({general + u"\\CurVer", u"", current});
  values.push_back({current, u"", name});
  values.push_back({current + u"\\CLSID", u"", classId});
  values.push_back({key, u"", name});
  values.push_back({key + u"\\InprocServer32", u"", modulePath});
  values.push_back({key + u"\\InprocServer32", u"ThreadingModel", u"Apartment"});
  values.push_back({key + u"\\ProgID", u"", current});
  values.push_back({key + u"\\VersionIndependentProgID", u"", general});
  values.push_back({key + u"\\Programmable", u"", u""});
  values.push_back({key + u"\\TypeLib", u"", Braced(LibraryId())});
  values.push_back({key + u"\\Version", u"", VersionText()});
}

void AddInterface(std::vector<RegistryValue>& values, const ClassDescription& description) {
  const std::u16string key = u"Interface\\" + Braced(IdsOf(description.name()).interfaceId);
  values.push_back({key, u"", u"_" + FromUtf8(description.name())});
  values.push_back({key + u"\\ProxyStubClsid32", u"", std::u16string(kAutomationMarshaler)});
  values.push_back({key + u"\\TypeLib", u"", Braced(LibraryId())});
  values.push_back({key + u"\\TypeLib", u"Version", VersionText()});
}

void AddLibrary(std::vector<RegistryValue>& values, const std::u16string& modulePath) {
  const std::u16string version = LibraryKey() + u"\\" + VersionText();
  values.push_back({version, u"", u"Vestrel component library"});
  values.push_back({version + u"\\0\\" + std::u16string(kPlatform), u"", modulePath});
  values.push_back({version + u"\\FLAGS", u"", u"0"});
  values.push_back({version + u"\\HELPDIR", u"", modulePath.substr(0, modulePath.rfind(u'\\'))});
}

LONG Write(HKEY root, const RegistryValue& value) {
  HKEY key = nullptr;
  const std::u16string path = std::u16string(kClasses) + value.key;
  LONG code = RegCreateKeyExW(root, WideOf(path), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
  if (code != ERROR_SUCCESS) return code;
  const auto size = static_cast<DWORD>((value.text.size() + 1) * sizeof(char16_t));
  code = RegSetValueExW(key, value.name.empty() ? nullptr : WideOf(value.name), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(value.text.c_str()), size);
  RegCloseKey(key);
  return code;
}

LONG WriteAll(HKEY root, const std::vector<RegistryValue>& values) {
  for (const RegistryValue& value : values) {
    if (const LONG code = Write(root, value); code != ERROR_SUCCESS) return code;
  }
  return ERROR_SUCCESS;
}

// The key and everything below it.
LONG RemoveTree(HKEY root, const std::u16string& key) {
  const std::u16string path = std::u16string(kClasses) + key;
  const LONG code = RegDeleteTreeW(root, WideOf(path));
  if (code == ERROR_SUCCESS) RegDeleteKeyW(root, WideOf(path));  // some systems leave the emptied key
  return code == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : code;
}

bool Exists(HKEY root, const std::u16string& key) {
  HKEY handle = nullptr;
  const std::u16string path = std::u16string(kClasses) + key;
  if (RegOpenKeyExW(root, WideOf(path), 0, KEY_READ, &handle) != ERROR_SUCCESS) return false;
  RegCloseKey(handle);
  return true;
}

// The type library and the names of the classes serve builds of both bitnesses. Of classes and interfaces
// each bitness has keys of its own: the system keeps them apart.
bool OtherPlatformRemains(HKEY root) {
  const std::u16string_view other = sizeof(void*) == 8 ? u"win32" : u"win64";
  return Exists(root, LibraryKey() + u"\\" + VersionText() + u"\\0\\" + std::u16string(other));
}

// The part of a key that is the library's own: two levels under CLSID, Interface and TypeLib, one otherwise.
std::u16string OwnKey(const std::u16string& key) {
  const std::size_t first = key.find(u'\\');
  const std::u16string head = key.substr(0, first);
  if (head != u"CLSID" && head != u"Interface" && head != u"TypeLib") return head;
  return key.substr(0, key.find(u'\\', first + 1));
}

// The topmost keys of the library's own, without those that the other platform still needs.
std::vector<std::u16string> OwnKeys(HKEY root, const std::vector<RegistryValue>& values) {
  std::vector<std::u16string> result{LibraryKey() + u"\\" + VersionText() + u"\\0\\" +
                                     std::u16string(kPlatform)};
  const bool keepShared = OtherPlatformRemains(root);
  for (const RegistryValue& value : values) {
    std::u16string key = OwnKey(value.key);
    const bool shared = !key.starts_with(u"CLSID\\") && !key.starts_with(u"Interface\\");
    if (key == result.back() || (shared && keepShared)) continue;
    result.push_back(std::move(key));
  }
  return result;
}

LONG RemoveAll(HKEY root, const std::vector<RegistryValue>& values) {
  LONG result = ERROR_SUCCESS;
  for (const std::u16string& key : OwnKeys(root, values)) {
    if (const LONG code = RemoveTree(root, key); code != ERROR_SUCCESS) result = code;
  }
  return result;
}

bool AnythingLeft(HKEY root, const std::vector<RegistryValue>& values) {
  const auto keys = OwnKeys(root, values);
  return std::any_of(keys.begin(), keys.end(),
                     [root](const std::u16string& key) { return Exists(root, key); });
}

template <class Action>
HRESULT InResult(Action action) noexcept {
  try {
    return HRESULT_FROM_WIN32(static_cast<DWORD>(action()));
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace

std::vector<RegistryValue> RegistrationValues(const std::u16string& modulePath) {
  std::vector<RegistryValue> values;
  AddLibrary(values, modulePath);
  for (const ClassDescription& description : AllDescriptions()) {
    AddClass(values, description, modulePath);
    AddInterface(values, description);
  }
  return values;
}

HRESULT RegisterModule() noexcept {
  return InResult([] {
    const auto values = RegistrationValues(ModulePath());
    const LONG code = WriteAll(HKEY_LOCAL_MACHINE, values);
    // What the user registered earlier would go before the machine's.
    if (code == ERROR_SUCCESS) return RemoveAll(HKEY_CURRENT_USER, values);
    RemoveAll(HKEY_LOCAL_MACHINE, values);
    return code == ERROR_ACCESS_DENIED ? WriteAll(HKEY_CURRENT_USER, values) : code;
  });
}

HRESULT UnregisterModule() noexcept {
  return InResult([] {
    const auto values = RegistrationValues(ModulePath());
    const LONG user = RemoveAll(HKEY_CURRENT_USER, values);
    const LONG machine = RemoveAll(HKEY_LOCAL_MACHINE, values);
    // A user without rights on the machine's part has done what can be done when there is none.
    if (user != ERROR_SUCCESS || !AnythingLeft(HKEY_LOCAL_MACHINE, values)) return user;
    return machine;
  });
}

}  // namespace vestrel::component
