// The component system's headers, in one place and in the right order.
#pragma once

#include <dispex.h>
#include <oaidl.h>
#include <objbase.h>
#include <ocidl.h>
#include <oleauto.h>
#include <windows.h>

#include <string>
#include <string_view>

namespace vestrel::component {

// Both are 16-bit units here; the component target is compiled without strict aliasing.
inline std::u16string_view ViewOf(const wchar_t* text, std::size_t length) {
  return {reinterpret_cast<const char16_t*>(text), length};
}
// None reads as the empty text.
inline std::u16string_view ViewOf(BSTR text) {
  return text == nullptr ? std::u16string_view{} : ViewOf(text, SysStringLen(text));
}
// Text that ends with a zero unit; none reads as the empty text.
inline std::u16string_view ViewOfTerminated(const wchar_t* text) {
  return text == nullptr ? std::u16string_view{} : ViewOf(text, wcslen(text));
}
inline const wchar_t* WideOf(const std::u16string& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
// Throws std::bad_alloc; the caller owns the result.
BSTR NewText(std::u16string_view text);

}  // namespace vestrel::component
