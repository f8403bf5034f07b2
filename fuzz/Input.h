// The bytes that the fuzzer gives for one run, as text that is cut in two levels: pieces, and fields of a
// piece. So a corpus file is a text with two kinds of separators that occur in no file of the library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"

namespace vestrel::fuzz {

constexpr char kPieceEnd = '\x1E';
constexpr char kFieldEnd = '\x1F';

inline std::string_view AsText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// At least one, which may be empty.
inline std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  std::size_t end = 0;
  for (; (end = text.find(separator)) != std::string_view::npos; text.remove_prefix(end + 1)) {
    parts.push_back(text.substr(0, end));
  }
  parts.push_back(text);
  return parts;
}

// Takes the first part off, empty at the end.
inline std::string_view TakePart(std::string_view& text, char separator) {
  const std::size_t end = text.find(separator);
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return part;
}

inline std::u16string Wide(std::string_view bytes) {
  return platform::encoding().Widen(bytes);
}

// Bytes taken one by one as choices; 0 at the end.
class Choices {
 public:
  explicit Choices(std::string_view bytes) : bytes_(bytes) {}

  bool AtEnd() const noexcept { return bytes_.empty(); }
  std::uint8_t Byte() noexcept {
    if (bytes_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte;
  }
  std::size_t Below(std::size_t limit) noexcept { return Byte() % limit; }
  // From -128 to 127.
  std::int32_t Small() noexcept { return static_cast<std::int8_t>(Byte()); }

 private:
  std::string_view bytes_;
};

}  // namespace vestrel::fuzz
