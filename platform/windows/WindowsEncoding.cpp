// The narrow page is the system's ANSI code page.
#include "platform/Ascii.h"
#include "platform/System.h"
#include "platform/windows/WindowsText.h"

namespace vestrel::platform {
namespace {

bool IsSurrogate(wchar_t unit) {
  return unit >= 0xD800 && unit <= 0xDFFF;
}

bool IsPairAt(const std::wstring& text, std::size_t i) {
  return text[i] <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF;
}

// Half characters have no form in any page; the system would drop or replace them in its own way.
void ReplaceUnpairedSurrogates(std::wstring& text, bool& lossy) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsSurrogate(text[i])) continue;
    if (IsPairAt(text, i)) {
      ++i;
    } else {
      text[i] = L'?';
      lossy = true;
    }
  }
}

class WindowsEncoding final : public TextEncoding {
 public:
  std::string Narrow(std::u16string_view text, bool& lossy) override {
    if (IsAscii(text)) return NarrowAscii(text);
    std::wstring wide = ToWide(text);
    ReplaceUnpairedSurrogates(wide, lossy);
    const bool utf8 = GetACP() == CP_UTF8;
    const DWORD flags = utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* replacement = utf8 ? nullptr : "?";
    BOOL replaced = FALSE;
    std::string bytes(wide.size() * 4, '\0');
    const int length =
        WideCharToMultiByte(CP_ACP, flags, wide.data(), static_cast<int>(wide.size()), bytes.data(),
                            static_cast<int>(bytes.size()), replacement, utf8 ? nullptr : &replaced);
    bytes.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    if (replaced != FALSE) lossy = true;
    return bytes;
  }

  std::u16string Widen(std::string_view bytes) override {
    if (IsAscii(bytes)) return WidenAscii(bytes);
    std::wstring wide(bytes.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()),
                                           wide.data(), static_cast<int>(wide.size()));
    return FromWide(std::wstring_view(wide).substr(0, length > 0 ? static_cast<std::size_t>(length) : 0));
  }

  std::size_t CutLength(std::string_view bytes, std::size_t limit) override {
    if (bytes.size() <= limit) return bytes.size();
    return GetACP() == CP_UTF8 ? CutUtf8(bytes, limit) : CutDoubleByte(bytes, limit);
  }

 private:
  static std::size_t CutUtf8(std::string_view bytes, std::size_t limit) {
    std::size_t cut = limit;
    while (cut > 0 && (static_cast<unsigned char>(bytes[cut]) & 0xC0U) == 0x80U) --cut;
    return cut;
  }

  // Whether a byte leads a character shows only from the start of the text on.
  static std::size_t CutDoubleByte(std::string_view bytes, std::size_t limit) {
    std::size_t cut = 0;
    while (cut < limit) {
      const std::size_t width = IsDBCSLeadByte(static_cast<BYTE>(bytes[cut])) != FALSE ? 2 : 1;
      if (cut + width > limit) break;
      cut += width;
    }
    return cut;
  }
};

}  // namespace

TextEncoding& SystemEncoding() {
  static WindowsEncoding encoding;
  return encoding;
}

}  // namespace vestrel::platform
