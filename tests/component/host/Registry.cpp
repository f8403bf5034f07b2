#include "tests/component/host/Registry.h"

#include <vector>

namespace host {
namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes\\";

std::wstring TextOf(HKEY key, const wchar_t* name) {
  DWORD size = 0;
  DWORD type = 0;
  if (RegQueryValueExW(key, name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) return L"(none)";
  std::wstring text(size / sizeof(wchar_t) + 1, L'\0');
  RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size);
  return text.c_str();
}

void Walk(HKEY key, const std::wstring& path, std::map<std::wstring, std::wstring>& found) {
  found[path] = L"";
  std::vector<wchar_t> name(16384);
  DWORD length = static_cast<DWORD>(name.size());
  for (DWORD i = 0;
       RegEnumValueW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
       ++i) {
    found[path + L"|" + name.data()] = TextOf(key, name.data());
    length = static_cast<DWORD>(name.size());
  }
  for (DWORD i = 0;; ++i) {
    length = static_cast<DWORD>(name.size());
    if (RegEnumKeyExW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
      return;
    HKEY child = nullptr;
    if (RegOpenKeyExW(key, name.data(), 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
    Walk(child, path + L"\\" + name.data(), found);
    RegCloseKey(child);
  }
}

// Where the module keeps the address of an imported function, or null.
void** PlaceOf(HMODULE module, const char* function) {
  auto* base = reinterpret_cast<BYTE*>(module);
  const auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  auto* import = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
  for (; import->Name != 0; ++import) {
    auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + import->OriginalFirstThunk);
    auto* places = reinterpret_cast<void**>(base + import->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++places) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      const auto* byName = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
      if (std::string(reinterpret_cast<const char*>(byName->Name)) == function) return places;
    }
  }
  return nullptr;
}

}  // namespace

std::map<std::wstring, std::wstring> ClassesSnapshot(HKEY root) {
  std::map<std::wstring, std::wstring> found;
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, kClasses, 0, KEY_READ, &key) != ERROR_SUCCESS) return found;
  Walk(key, L"", found);
  RegCloseKey(key);
  return found;
}

std::wstring ClassesText(HKEY root, const std::wstring& name, const wchar_t* value) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, (kClasses + name).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return L"(none)";
  std::wstring text = TextOf(key, value);
  RegCloseKey(key);
  return text;
}

void* TurnAside(HMODULE module, const char* function, void* replacement) {
  void** place = PlaceOf(module, function);
  if (place == nullptr) return nullptr;
  void* original = *place;
  DWORD protection = 0;
  VirtualProtect(place, sizeof(void*), PAGE_READWRITE, &protection);
  *place = replacement;
  VirtualProtect(place, sizeof(void*), protection, &protection);
  return original;
}

}  // namespace host
