#include "util/FormatNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

#include "core/Convert.h"
#include "core/HasValue.h"

namespace vestrel::modSprintf {
namespace {

// Reals of at least this size do not fit 64 bits.
constexpr double kWholeLimit = 9223372036854775808.0;

bool ReadVariant(const Variant& value, Number& number) {
  if (value.kind() == Variant::Kind::Object || !IsNumeric(value)) return false;
  number.whole = value.kind() != Variant::Kind::Double && value.kind() != Variant::Kind::String;
  number.realValue = ToDouble(value);
  if (number.whole) number.wholeValue = static_cast<std::int64_t>(number.realValue);
  return true;
}

bool ReadObject(Object* object, Number& number) {
  const auto* holder = object == nullptr ? nullptr : static_cast<HasValue*>(object->Query(KeyOf<HasValue>()));
  return holder != nullptr && ReadVariant(holder->DefaultValue(), number);
}

bool ReadText(std::u16string_view text, Number& number) {
  if (!IsNumericText(text)) return false;
  number.whole = false;
  number.realValue = TextToDouble(text);
  return true;
}

double AsReal(const Number& number) noexcept {
  return number.whole ? static_cast<double>(number.wholeValue) : number.realValue;
}

// Halves go to the even neighbour. False when the value does not fit 64 bits.
bool AsWhole(const Number& number, std::int64_t& value) noexcept {
  value = number.wholeValue;
  if (number.whole) return true;
  const double floor = std::floor(number.realValue);
  const double fraction = number.realValue - floor;
  const bool up = fraction > 0.5 || (fraction == 0.5 && std::fmod(floor, 2) != 0);
  const double rounded = up ? floor + 1 : floor;
  if (!(rounded >= -kWholeLimit && rounded < kWholeLimit)) return false;
  value = static_cast<std::int64_t>(rounded);
  return true;
}

// The pieces of a number before they are padded.
struct Pieces {
  std::string_view sign;  // a sign, or the prefix of an alternate form
  std::size_t zeros = 0;  // between sign and digits
  std::string_view digits;
};

std::string_view SignText(const Directive& directive, bool negative) noexcept {
  if (negative) return "-";
  return directive.forceSign ? "+" : "";
}

void AppendPadded(TextBuffer& out, const Directive& directive, Pieces pieces) {
  const std::size_t length = pieces.sign.size() + pieces.zeros + pieces.digits.size();
  const auto width = static_cast<std::size_t>(std::max(directive.width, 0));
  const std::size_t padding = width > length ? width - length : 0;
  if (!directive.leftAlign && directive.zeroPad) pieces.zeros += padding;
  if (!directive.leftAlign && !directive.zeroPad) out.AppendRepeated(padding, u' ');
  out.AppendAscii(pieces.sign);
  out.AppendRepeated(pieces.zeros, u'0');
  out.AppendAscii(pieces.digits);
  // Zeros behind a number would change it.
  if (directive.leftAlign) out.AppendRepeated(padding, u' ');
}

void AppendDigits(TextBuffer& out, const Directive& directive, std::string_view sign,
                  std::string_view digits) {
  const auto least = static_cast<std::size_t>(std::max(directive.NumberPrecision(), 0));
  AppendPadded(out, directive, {sign, least > digits.size() ? least - digits.size() : 0, digits});
}

void AppendWholeNumber(TextBuffer& out, const Directive& directive, std::uint64_t value, int base,
                       std::string_view sign) {
  char buffer[72];
  const auto [end, problem] = std::to_chars(std::begin(buffer), std::end(buffer), value, base);
  AppendDigits(out, directive, sign, {buffer, static_cast<std::size_t>(end - buffer)});
}

// A text of `value` in a form of to_chars, however long.
std::string RealDigits(double value, std::chars_format form, std::int32_t precision) {
  std::string buffer(static_cast<std::size_t>(std::numeric_limits<double>::max_exponent10) + 8 +
                         static_cast<std::size_t>(std::max(precision, 0)),
                     '\0');
  const auto [end, problem] =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value), form, precision);
  buffer.resize(static_cast<std::size_t>(end - buffer.data()));
  return buffer;
}

int ExponentOf(std::string_view scientific) noexcept {
  const std::size_t mark = scientific.find('e');
  if (mark == std::string_view::npos) return 0;
  int exponent = 0;
  const char* const first = scientific.data() + mark + 2;
  std::from_chars(first, scientific.data() + scientific.size(), exponent);
  return scientific[mark + 1] == '-' ? -exponent : exponent;
}

// Writes the exponent with a sign and at least three digits.
std::string WithLongExponent(std::string_view mantissa, int exponent) {
  std::string digits = std::to_string(std::abs(exponent));
  digits.insert(0, digits.size() < 3 ? 3 - digits.size() : 0, '0');
  return std::string(mantissa) + (exponent < 0 ? "e-" : "e+") + digits;
}

std::string ExponentDigits(const Directive& directive, double value) {
  const std::int32_t precision = directive.NumberPrecision();
  const std::string text = RealDigits(value, std::chars_format::scientific, precision);
  std::string mantissa = text.substr(0, text.find('e'));
  if (directive.alternate && precision == 0) mantissa += '.';
  return WithLongExponent(mantissa, ExponentOf(text));
}

std::string FixedDigits(const Directive& directive, double value) {
  const std::int32_t precision = directive.NumberPrecision();
  std::string text = RealDigits(value, std::chars_format::fixed, precision);
  if (directive.alternate && precision == 0) text += '.';
  return text;
}

void DropTrailingZeros(std::string& digits) {
  if (digits.find('.') == std::string::npos) return;
  digits.erase(digits.find_last_not_of('0') + 1);
  if (digits.back() == '.') digits.pop_back();
}

std::string GeneralDigits(const Directive& directive, double value) {
  const std::int32_t significant = std::max(directive.NumberPrecision(), 1);
  std::string text = RealDigits(value, std::chars_format::scientific, significant - 1);
  const int exponent = ExponentOf(text);
  if (exponent >= -4 && exponent < significant) {
    const std::int64_t places = std::int64_t{significant} - 1 - exponent;
    text = RealDigits(
        value, std::chars_format::fixed,
        static_cast<std::int32_t>(std::min<std::int64_t>(places, std::numeric_limits<int>::max())));
    if (!directive.alternate) DropTrailingZeros(text);
    return text;
  }
  text.erase(text.find('e'));
  if (!directive.alternate) DropTrailingZeros(text);
  return WithLongExponent(text, exponent);
}

std::string RealText(const Directive& directive, double value) {
  if (!std::isfinite(value)) return std::isnan(value) ? "nan" : "inf";
  switch (directive.conversion) {
    case Conversion::Exponent:
      return ExponentDigits(directive, value);
    case Conversion::General:
      return GeneralDigits(directive, value);
    default:
      return FixedDigits(directive, value);
  }
}

void AppendReal(TextBuffer& out, const Directive& directive, double value) {
  std::string text = RealText(directive, value);
  if (directive.upperCase) {
    std::transform(text.begin(), text.end(), text.begin(), [](char unit) {
      return unit >= 'a' && unit <= 'z' ? static_cast<char>(unit - 32) : unit;
    });
  }
  AppendPadded(out, directive, {SignText(directive, std::signbit(value)), 0, text});
}

// A whole number too large for 64 bits still comes out as its digits.
void AppendLargeWhole(TextBuffer& out, Directive directive, double value) {
  directive.precision = 0;
  directive.alternate = false;
  directive.conversion = Conversion::FixedPoint;
  AppendReal(out, directive, value);
}

// Negative numbers show their two's complement, of 32 bits where they fit.
std::uint64_t UnsignedBits(std::int64_t value) noexcept {
  if (value >= std::numeric_limits<std::int32_t>::min() && value < 0) {
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(value));
  }
  return static_cast<std::uint64_t>(value);
}

void AppendSigned(TextBuffer& out, const Directive& directive, std::int64_t value) {
  const std::uint64_t size =
      value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
  AppendWholeNumber(out, directive, size, 10, SignText(directive, value < 0));
}

void AppendOctal(TextBuffer& out, Directive directive, std::uint64_t bits) {
  char buffer[24];
  buffer[0] = '0';
  const auto [end, problem] = std::to_chars(std::begin(buffer) + 1, std::end(buffer), bits, 8);
  const std::size_t skip = directive.alternate && bits != 0 ? 0 : 1;
  const std::string_view digits(buffer, static_cast<std::size_t>(end - buffer));
  AppendDigits(out, directive, SignText(directive, false), digits.substr(skip));
}

void AppendHexadecimal(TextBuffer& out, const Directive& directive, std::uint64_t bits) {
  const std::size_t start = out.size();
  AppendWholeNumber(out, directive, bits, 16, directive.alternate ? "0x" : "");
  if (!directive.upperCase) return;
  char16_t* const units = out.MutableFrom(start);
  std::transform(units, units + (out.size() - start), units, [](char16_t unit) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
  });
}

}  // namespace

bool ReadNumber(const FormatArg& arg, Number& number) {
  switch (arg.kind()) {
    case FormatArg::Kind::Boolean:
    case FormatArg::Kind::Long:
      number.wholeValue = arg.AsLong();
      return true;
    case FormatArg::Kind::Double:
      number.whole = false;
      number.realValue = arg.AsDouble();
      return true;
    case FormatArg::Kind::Text:
    case FormatArg::Kind::InOutText:
      return ReadText(arg.AsText(), number);
    case FormatArg::Kind::Object:
      return ReadObject(arg.AsObject(), number);
    case FormatArg::Kind::Nothing:
      break;
  }
  return false;
}

void AppendNumber(TextBuffer& out, const Directive& directive, const Number& number) {
  switch (directive.conversion) {
    case Conversion::FixedPoint:
    case Conversion::Exponent:
    case Conversion::General:
      AppendReal(out, directive, AsReal(number));
      return;
    default:
      break;
  }
  std::int64_t value = 0;
  if (!AsWhole(number, value)) {
    AppendLargeWhole(out, directive, number.realValue);
    return;
  }
  switch (directive.conversion) {
    case Conversion::Octal:
      AppendOctal(out, directive, UnsignedBits(value));
      return;
    case Conversion::Hexadecimal:
      AppendHexadecimal(out, directive, UnsignedBits(value));
      return;
    case Conversion::UnsignedDecimal:
      AppendWholeNumber(out, directive, UnsignedBits(value), 10, SignText(directive, false));
      return;
    default:
      AppendSigned(out, directive, value);
      return;
  }
}

void AppendAddress(TextBuffer& out, const Number& number) {
  std::int64_t value = 0;
  AsWhole(number, value);
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (int shift = 28; shift >= 0; shift -= 4) {
    if (shift == 12) out.Append(u':');
    out.Append(static_cast<char16_t>(kDigits[(static_cast<std::uint64_t>(value) >> shift) & 0xFU]));
  }
}

}  // namespace vestrel::modSprintf
