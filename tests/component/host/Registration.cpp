// Registers and unregisters the server and looks at every key: for the machine, for the user where the
// machine's part is refused, and not at all, through the manifest.
#include <map>

#include "tests/component/host/Check.h"
#include "tests/component/host/EarlyHost.h"
#include "tests/component/host/Program.h"
#include "tests/component/host/Registry.h"

namespace host {
namespace {

using Snapshot = std::map<std::wstring, std::wstring>;
using Entry = HRESULT(STDMETHODCALLTYPE*)();

std::wstring libraryPath;
HMODULE library = nullptr;

HRESULT CallEntry(const char* name) {
  const auto entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(library, name)));
  return entry == nullptr ? E_NOTIMPL : entry();
}

std::wstring Braced(const GUID& id) {
  wchar_t text[40];
  StringFromGUID2(id, text, 40);
  return text;
}

// Key and value names are the platform's; letter case in ids does not matter.
std::wstring Lower(std::wstring text) {
  CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

void Expect(HKEY root, Snapshot& expected, const std::wstring& key, const wchar_t* value,
            const std::wstring& text) {
  const std::wstring actual = ClassesText(root, key, value);
  Checked(Lower(actual) == Lower(text), "is registered:", Narrow(key).c_str(), 0,
          Narrow(actual) + " instead of " + Narrow(text));
  expected[Lower(L"\\" + key + L"|" + (value == nullptr ? L"" : value))] = Lower(text);
  for (std::size_t end = key.size(); end != std::wstring::npos; end = key.rfind(L'\\', end - 1)) {
    expected[Lower(L"\\" + key.substr(0, end))] = L"";
  }
}

void ExpectClass(HKEY root, Snapshot& expected, const std::wstring& name, const std::wstring& classId,
                 const std::wstring& libraryId) {
  const std::wstring general = L"Vestrel." + name;
  const std::wstring current = general + L".1";
  Expect(root, expected, general, nullptr, name);
  Expect(root, expected, general + L"\\CLSID", nullptr, classId);
  Expect(root, expected, general + L"\\CurVer", nullptr, current);
  Expect(root, expected, current, nullptr, name);
  Expect(root, expected, current + L"\\CLSID", nullptr, classId);
  const std::wstring key = L"CLSID\\" + classId;
  Expect(root, expected, key, nullptr, name);
  Expect(root, expected, key + L"\\InprocServer32", nullptr, libraryPath);
  Expect(root, expected, key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  Expect(root, expected, key + L"\\ProgID", nullptr, current);
  Expect(root, expected, key + L"\\VersionIndependentProgID", nullptr, general);
  Expect(root, expected, key + L"\\Programmable", nullptr, L"");
  Expect(root, expected, key + L"\\TypeLib", nullptr, libraryId);
  Expect(root, expected, key + L"\\Version", nullptr, L"1.0");
}

void ExpectInterface(HKEY root, Snapshot& expected, const std::wstring& name, const std::wstring& id,
                     const std::wstring& libraryId) {
  const std::wstring key = L"Interface\\" + id;
  Expect(root, expected, key, nullptr, name);
  Expect(root, expected, key + L"\\ProxyStubClsid32", nullptr, L"{00020424-0000-0000-C000-000000000046}");
  Expect(root, expected, key + L"\\TypeLib", nullptr, libraryId);
  Expect(root, expected, key + L"\\TypeLib", L"Version", L"1.0");
}

// What registration is to leave, for every class and interface that the type library tells.
Snapshot ExpectEverything(HKEY root) {
  Snapshot expected;
  Pointer<ITypeLib> types;
  TLIBATTR* attributes = nullptr;
  CHECK_EQ(LoadTypeLibEx(libraryPath.c_str(), REGKIND_NONE, types.out()), S_OK);
  if (!types || FAILED(types->GetLibAttr(&attributes))) return expected;
  const std::wstring libraryId = Braced(attributes->guid);
  types->ReleaseTLibAttr(attributes);
  int classes = 0;
  for (UINT i = 0; i < types->GetTypeInfoCount(); ++i) {
    Pointer<ITypeInfo> type;
    TYPEATTR* typeAttributes = nullptr;
    BSTR name = nullptr;
    types->GetTypeInfo(i, type.out());
    type->GetTypeAttr(&typeAttributes);
    type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
    const std::wstring id = Braced(typeAttributes->guid);
    if (typeAttributes->typekind == TKIND_COCLASS)
      ExpectClass(root, expected, name, id, libraryId), ++classes;
    if (typeAttributes->typekind == TKIND_DISPATCH) ExpectInterface(root, expected, name, id, libraryId);
    SysFreeString(name);
    type->ReleaseTypeAttr(typeAttributes);
  }
  CHECK_EQ(classes, 38);
  const std::wstring key = L"TypeLib\\" + libraryId + L"\\1.0";
  Expect(root, expected, key, nullptr, L"Vestrel component library");
  Expect(root, expected, key + (sizeof(void*) == 8 ? L"\\0\\win64" : L"\\0\\win32"), nullptr, libraryPath);
  Expect(root, expected, key + L"\\FLAGS", nullptr, L"0");
  Expect(root, expected, key + L"\\HELPDIR", nullptr, libraryPath.substr(0, libraryPath.rfind(L'\\')));
  return expected;
}

bool Creates(const wchar_t* programId) {
  CLSID id{};
  Pointer<IDispatch> object;
  return SUCCEEDED(CLSIDFromProgID(programId, &id)) &&
         SUCCEEDED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                    reinterpret_cast<void**>(object.out())));
}

// A 64-bit system shows part of the classes a second time for 32-bit programs.
std::wstring WithoutMirror(const std::wstring& name) {
  static const std::wstring kMirror = L"\\Wow6432Node\\";
  return name.starts_with(kMirror) ? name.substr(kMirror.size() - 1) : name;
}

// Keys that belong to nobody and stay, empty, where they were missing.
bool IsContainer(const std::wstring& name) {
  return name.empty() || name == L"\\CLSID" || name == L"\\Interface" || name == L"\\TypeLib";
}

// What is new against `before` is what was expected, and nothing else.
void CheckAdded(const Snapshot& before, const Snapshot& after, const Snapshot& expected) {
  int added = 0;
  int foreign = 0;
  for (const auto& [name, text] : after) {
    if (before.contains(name) || IsContainer(name)) continue;
    ++added;
    const auto found = expected.find(Lower(WithoutMirror(name)));
    if (found != expected.end() && found->second == Lower(text)) continue;
    Checked(false, "is one of ours:", Narrow(name).c_str(), ++foreign);
  }
  CHECK_EQ(foreign, 0);
  CHECK(added > 1000);
}

void CheckSame(const Snapshot& before, const Snapshot& after, const char* what) {
  int differences = 0;
  for (const auto& [name, text] : after) {
    if (!before.contains(name) && !IsContainer(name))
      Checked(false, what, ("left: " + Narrow(name)).c_str(), ++differences);
  }
  for (const auto& [name, text] : before) {
    if (!after.contains(name)) Checked(false, what, ("gone: " + Narrow(name)).c_str(), ++differences);
  }
  Checked(differences == 0, what, "the registry", differences);
}

void ForTheMachine(const Snapshot& machine, const Snapshot& user) {
  CHECK_EQ(CallEntry("DllRegisterServer"), S_OK);
  CheckAdded(machine, ClassesSnapshot(HKEY_LOCAL_MACHINE), ExpectEverything(HKEY_LOCAL_MACHINE));
  CheckSame(user, ClassesSnapshot(HKEY_CURRENT_USER), "the user's part is left alone");
  CHECK(Creates(L"Vestrel.clsButton"));
  CHECK(Creates(L"Vestrel.clsButton.1"));
  CHECK_EQ(CallEntry("DllRegisterServer"), S_OK);
  CHECK_EQ(CallEntry("DllUnregisterServer"), S_OK);
  CheckSame(machine, ClassesSnapshot(HKEY_LOCAL_MACHINE), "unregistered from the machine");
  CHECK(!Creates(L"Vestrel.clsButton"));
  CHECK_EQ(CallEntry("DllUnregisterServer"), S_OK);
}

std::wstring LibraryKey() {
  Pointer<ITypeLib> types;
  TLIBATTR* attributes = nullptr;
  if (FAILED(LoadTypeLibEx(libraryPath.c_str(), REGKIND_NONE, types.out())) ||
      FAILED(types->GetLibAttr(&attributes)))
    return L"(none)";
  const std::wstring key = L"TypeLib\\" + Braced(attributes->guid) + L"\\1.0\\0\\";
  types->ReleaseTLibAttr(attributes);
  return key;
}

// The build of the other bitness shares the type library and the names of the classes, and is still
// registered.
void BesideTheOther(const Snapshot& machine) {
  const std::wstring other =
      L"Software\\Classes\\" + LibraryKey() + (sizeof(void*) == 8 ? L"win32" : L"win64");
  const std::wstring interfaceKey = L"Interface\\" + Braced(__uuidof(_clsButton));
  CHECK_EQ(CallEntry("DllRegisterServer"), S_OK);
  HKEY key = nullptr;
  CHECK_EQ(
      RegCreateKeyExW(HKEY_LOCAL_MACHINE, other.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
      0L);
  RegCloseKey(key);
  CHECK_EQ(CallEntry("DllUnregisterServer"), S_OK);
  CHECK_EQ(ClassesText(HKEY_LOCAL_MACHINE, interfaceKey), L"(none)");
  CHECK_EQ(ClassesText(HKEY_LOCAL_MACHINE, L"CLSID\\" + Braced(__uuidof(clsButton))), L"(none)");
  for (const wchar_t* name : {L"Vestrel.clsButton\\CLSID", L"Vestrel.clsButton.1\\CLSID"}) {
    CHECK_EQ(Lower(ClassesText(HKEY_LOCAL_MACHINE, name)), Lower(Braced(__uuidof(clsButton))));
  }
  CHECK_EQ(RegDeleteKeyW(HKEY_LOCAL_MACHINE, other.c_str()), 0L);
  CHECK_EQ(CallEntry("DllUnregisterServer"), S_OK);
  CheckSame(machine, ClassesSnapshot(HKEY_LOCAL_MACHINE), "unregistered after the other");
}

decltype(&RegCreateKeyExW) createKey = nullptr;
int keysAllowed = 0;
LONG refusal = ERROR_ACCESS_DENIED;

LONG WINAPI RefusingCreateKey(HKEY root, LPCWSTR name, DWORD reserved, LPWSTR className, DWORD options,
                              REGSAM access, LPSECURITY_ATTRIBUTES security, PHKEY result,
                              LPDWORD disposition) {
  if (root == HKEY_LOCAL_MACHINE && keysAllowed-- <= 0) return refusal;
  return createKey(root, name, reserved, className, options, access, security, result, disposition);
}

// The machine's part refuses after so many keys. That objects can be made then is not seen here: Wine does
// not look at the user's part.
void ForTheUser(const Snapshot& machine, const Snapshot& user, int allowed) {
  keysAllowed = allowed;
  CHECK_EQ(CallEntry("DllRegisterServer"), S_OK);
  CheckSame(machine, ClassesSnapshot(HKEY_LOCAL_MACHINE), "nothing half done for the machine");
  CheckAdded(user, ClassesSnapshot(HKEY_CURRENT_USER), ExpectEverything(HKEY_CURRENT_USER));
  CHECK_EQ(CallEntry("DllUnregisterServer"), S_OK);
  CheckSame(user, ClassesSnapshot(HKEY_CURRENT_USER), "unregistered from the user");
}

// The machine's registration takes the place of what the user registered before, which would go before it.
void AfterTheUser(const Snapshot& machine, const Snapshot& user) {
  keysAllowed = 0;
  CHECK_EQ(CallEntry("DllRegisterServer"), S_OK);
  CHECK(ClassesText(HKEY_CURRENT_USER, L"Vestrel.clsButton\\CLSID") != L"(none)");
  keysAllowed = 1 << 30;
  CHECK_EQ(CallEntry("DllRegisterServer"), S_OK);
  CheckSame(user, ClassesSnapshot(HKEY_CURRENT_USER), "the user's registration has gone");
  CheckAdded(machine, ClassesSnapshot(HKEY_LOCAL_MACHINE), ExpectEverything(HKEY_LOCAL_MACHINE));
  CHECK_EQ(CallEntry("DllUnregisterServer"), S_OK);
  CheckSame(machine, ClassesSnapshot(HKEY_LOCAL_MACHINE), "unregistered from the machine again");
}

// Only rights that lack lead to the user's part; what else goes wrong is told.
void WhenTheMachineFails(const Snapshot& machine, const Snapshot& user) {
  keysAllowed = 100;
  refusal = ERROR_NO_SYSTEM_RESOURCES;
  CHECK_EQ(CallEntry("DllRegisterServer"), HRESULT_FROM_WIN32(ERROR_NO_SYSTEM_RESOURCES));
  refusal = ERROR_ACCESS_DENIED;
  keysAllowed = 1 << 30;
  CheckSame(machine, ClassesSnapshot(HKEY_LOCAL_MACHINE), "nothing half done for the machine");
  CheckSame(user, ClassesSnapshot(HKEY_CURRENT_USER), "nothing done for the user instead");
}

decltype(&RegDeleteTreeW) deleteTree = nullptr;
std::wstring keptTree;  // what may not be deleted, "*" for everything

LONG WINAPI RefusingDeleteTree(HKEY root, LPCWSTR name) {
  if (root == HKEY_LOCAL_MACHINE && (keptTree == L"*" || keptTree == name)) return ERROR_ACCESS_DENIED;
  return deleteTree(root, name);
}

// A single key that stays is told, whichever it is; a user without rights on a machine where nothing is
// registered has nothing to be told.
void WhenSomethingStays(const Snapshot& machine) {
  for (const wchar_t* kept :
       {L"Software\\Classes\\Vestrel.clsButton", L"Software\\Classes\\Vestrel.clsPage.1"}) {
    CHECK_EQ(CallEntry("DllRegisterServer"), S_OK);
    keptTree = kept;
    CHECK_EQ(CallEntry("DllUnregisterServer"), E_ACCESSDENIED);
    keptTree.clear();
    CHECK_EQ(CallEntry("DllUnregisterServer"), S_OK);
    CheckSame(machine, ClassesSnapshot(HKEY_LOCAL_MACHINE), "unregistered at last");
  }
  keptTree = L"*";
  CHECK_EQ(CallEntry("DllUnregisterServer"), S_OK);
  keptTree.clear();
}

// Nothing is registered: the manifest alone tells.
void Unregistered(const wchar_t* manifest) {
  ACTCTXW description{};
  description.cbSize = sizeof(description);
  description.lpSource = manifest;
  HANDLE context = CreateActCtxW(&description);
  CHECK(context != INVALID_HANDLE_VALUE);
  ULONG_PTR cookie = 0;
  if (context == INVALID_HANDLE_VALUE || !ActivateActCtx(context, &cookie)) return;
  CHECK(Creates(L"Vestrel.clsObjectList"));
  CHECK(Creates(L"Vestrel.clsButtonGroupController"));
  CHECK(Creates(L"Vestrel.clsObjectList.1"));
  auto list = New<clsObjectList, _clsObjectList>();
  CHECK(static_cast<bool>(list));
  auto item = New<clsLong, _clsLong>().As<IDispatch>();
  LONG at = -1;
  CHECK(list && SUCCEEDED(list->AddItem(item.by(), &at)) && at == 0);
  list = {};
  item = {};
  DeactivateActCtx(0, cookie);
  ReleaseActCtx(context);
  CHECK(!Creates(L"Vestrel.clsObjectList"));
}

int Run(const wchar_t* path, const wchar_t* manifest) {
  libraryPath = path;
  library = LoadLibraryW(path);
  CHECK(library != nullptr);
  if (library == nullptr) return Totals("registration");
  CallEntry("DllUnregisterServer");  // what an earlier run may have left
  Unregistered(manifest);
  const Snapshot machine = ClassesSnapshot(HKEY_LOCAL_MACHINE);
  const Snapshot user = ClassesSnapshot(HKEY_CURRENT_USER);
  ForTheMachine(machine, user);
  BesideTheOther(machine);
  createKey = reinterpret_cast<decltype(&RegCreateKeyExW)>(
      TurnAside(library, "RegCreateKeyExW", reinterpret_cast<void*>(&RefusingCreateKey)));
  CHECK(createKey != nullptr);
  if (createKey != nullptr) {
    ForTheUser(machine, user, 0);
    ForTheUser(machine, user, 100);
    AfterTheUser(machine, user);
    WhenTheMachineFails(machine, user);
  }
  deleteTree = reinterpret_cast<decltype(&RegDeleteTreeW)>(
      TurnAside(library, "RegDeleteTreeW", reinterpret_cast<void*>(&RefusingDeleteTree)));
  CHECK(deleteTree != nullptr);
  if (deleteTree != nullptr) WhenSomethingStays(machine);
  return Totals("registration");
}

}  // namespace
}  // namespace host

// Registration FOLDER LIBRARY MANIFEST: full names; the folder is not used.
int wmain(int count, wchar_t** arguments) {
  return host::Program(count == 4, [&] { return host::Run(arguments[2], arguments[3]); });
}
