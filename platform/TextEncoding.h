// The system's narrow code page (UTF-8 elsewhere than on Windows) and its conversions.
#pragma once

#include <string>
#include <string_view>

namespace vestrel::platform {

class TextEncoding {
 public:
  TextEncoding() = default;
  TextEncoding(const TextEncoding&) = delete;
  TextEncoding& operator=(const TextEncoding&) = delete;
  virtual ~TextEncoding() = default;

  // What the code page lacks becomes "?" and sets `lossy`, which is otherwise left as it was.
  virtual std::string Narrow(std::u16string_view text, bool& lossy) = 0;
  // Bytes that stand for no character become U+FFFD.
  virtual std::u16string Widen(std::string_view bytes) = 0;
  // The largest number of bytes, at most `limit`, at which `bytes` can be cut without splitting a character.
  virtual std::size_t CutLength(std::string_view bytes, std::size_t limit) = 0;
};

}  // namespace vestrel::platform
