// Between the library's UTF-16 text and the wide characters of the system's calls.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace vestrel::platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline std::wstring ToWide(std::u16string_view text) {
  return {text.begin(), text.end()};
}

inline std::u16string FromWide(std::wstring_view text) {
  return {text.begin(), text.end()};
}

inline std::wstring FullPath(const std::wstring& path) {
  std::wstring full(MAX_PATH, L'\0');
  const DWORD size = GetFullPathNameW(path.c_str(), MAX_PATH, full.data(), nullptr);
  full.resize(size);
  // Then it was the room that it needs.
  if (size >= MAX_PATH) full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
  return full;
}

}  // namespace vestrel::platform
