// UTF-16 (little endian) file bytes as text that the INI rules can be applied to, and back. The text is UTF-8
// in which half characters keep a form of their own, so that what is not changed comes back bit for bit.
#pragma once

#include <string>
#include <string_view>

namespace vestrel::utf16 {

// Whether the bytes begin with the UTF-16 little endian byte order mark.
bool HasMark(std::string_view bytes) noexcept;
// The text behind the mark. A single byte left at the end is no character and is dropped.
std::string Decode(std::string_view bytes);
// Mark and text.
std::string Encode(std::string_view text);

// Between that form and the library's texts.
std::string FromText(std::u16string_view text);
std::u16string ToText(std::string_view text);

}  // namespace vestrel::utf16
