#include "fuzz/Check.h"

#include <cstdio>
#include <cstdlib>

#include "core/Convert.h"

namespace vestrel::fuzz {
namespace {

// Bytes that are no plain ASCII as hexadecimal numbers.
std::string Shown(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    if (code >= 0x20 && code < 0x7F && byte != '\\') {
      text += byte;
    } else {
      char hex[5] = {};
      std::snprintf(hex, sizeof hex, "\\x%02X", unsigned{code});
      text += hex;
    }
  }
  return text;
}

}  // namespace

void Fault(std::string_view what) {
  std::fprintf(stderr, "FAULT: %.*s\n", static_cast<int>(what.size()), what.data());
  std::abort();
}

void ExpectSame(std::string_view is, std::string_view wanted, std::string_view what) {
  if (is == wanted) return;
  Fault(std::string(what) + "\n  is     " + Shown(is) + "\n  wanted " + Shown(wanted));
}

void ExpectSame(std::u16string_view is, std::u16string_view wanted, std::string_view what) {
  if (is == wanted) return;
  Fault(std::string(what) + "\n  is     " + Shown(ToUtf8(is)) + "\n  wanted " + Shown(ToUtf8(wanted)));
}

}  // namespace vestrel::fuzz
