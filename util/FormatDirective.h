// One directive of a format, read: "%-05.2f" as flags, width, precision and conversion. Used by modSprintf
// alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vestrel::modSprintf {

enum class Conversion : std::uint8_t {
  Text,
  SignedDecimal,
  FixedPoint,
  Octal,
  Hexadecimal,
  Character,
  UnsignedDecimal,
  Exponent,
  General,
  Pointer,
  TextSoFar,
};

struct Directive {
  Conversion conversion = Conversion::Text;
  bool upperCase = false;
  bool zeroPad = false;
  bool leftAlign = false;
  bool forceSign = false;
  bool alternate = false;
  bool precisionFromArgument = false;
  std::int32_t width = 0;
  std::int32_t precision = -1;
  std::int32_t defaultPrecision = -1;

  char16_t PadCharacter() const noexcept { return zeroPad ? u'0' : u' '; }
  // The precision for numbers, where a negative one stands for the conversion's own.
  std::int32_t NumberPrecision() const noexcept { return precision < 0 ? defaultPrecision : precision; }
};

// The directive whose text between "%" and `conversion` is `inner`, or nothing when it cannot be read.
// Raises 6 for a width or precision beyond 32 bits.
std::optional<Directive> ParseDirective(std::u16string_view inner, char16_t conversion);

}  // namespace vestrel::modSprintf
