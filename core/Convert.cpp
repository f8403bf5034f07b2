#include "core/Convert.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

#include "core/Error.h"

namespace vestrel {
namespace {

enum class ParseResult : std::uint8_t { Ok, NotANumber, Overflow };

bool IsBlank(char16_t unit) noexcept {
  return unit == u' ' || unit == u'\t';
}

bool IsDigit(char16_t unit) noexcept {
  return unit >= u'0' && unit <= u'9';
}

std::u16string_view Trim(std::u16string_view text) noexcept {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// A number in text, taken apart: `digits` is the unsigned number in the form that from_chars reads.
struct NumberText {
  bool negative = false;
  std::string digits;
  // Power of ten of the first digit that is not zero; tells an overflow from an underflow.
  std::int64_t magnitude = 0;
};

std::size_t TakeDigits(std::u16string_view text, std::size_t at, std::string& digits) {
  while (at < text.size() && IsDigit(text[at])) digits.push_back(static_cast<char>(text[at++]));
  return at;
}

std::int64_t LeadingPower(std::string_view number) noexcept {
  const std::size_t point = std::min(number.find('.'), number.size());
  const std::size_t first = number.find_first_of("123456789");
  if (first == std::string_view::npos) return 0;
  const auto distance = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  return first < point ? distance - 1 : distance;
}

// Adds the exponent that starts at `at`; the result is false when it is malformed.
bool TakeExponent(std::u16string_view text, std::size_t at, NumberText& number) {
  number.digits.push_back('e');
  bool negative = false;
  if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) {
    negative = text[at++] == u'-';
    if (negative) number.digits.push_back('-');
  }
  const std::size_t first = number.digits.size();
  at = TakeDigits(text, at, number.digits);
  if (number.digits.size() == first || at != text.size()) return false;
  std::int64_t exponent = 0;
  for (const char digit : std::string_view(number.digits).substr(first)) {
    exponent =
        std::min<std::int64_t>(exponent * 10 + (digit - '0'), std::numeric_limits<std::int32_t>::max());
  }
  number.magnitude += negative ? -exponent : exponent;
  return true;
}

bool TakeApart(std::u16string_view text, NumberText& number) {
  text = Trim(text);
  std::size_t at = 0;
  if (!text.empty() && (text[0] == u'+' || text[0] == u'-')) number.negative = text[at++] == u'-';
  at = TakeDigits(text, at, number.digits);
  std::size_t count = number.digits.size();
  if (at < text.size() && text[at] == u'.') {
    number.digits.push_back('.');
    at = TakeDigits(text, at + 1, number.digits);
    count = number.digits.size() - 1;
  }
  if (count == 0) return false;
  number.magnitude = LeadingPower(number.digits);
  if (at == text.size()) return true;
  return FoldCase(text[at]) == u'e' && TakeExponent(text, at + 1, number);
}

template <class Number>
ParseResult Parse(std::u16string_view text, Number& value) {
  NumberText number;
  if (!TakeApart(text, number)) return ParseResult::NotANumber;
  const char* const end = number.digits.data() + number.digits.size();
  const auto [last, problem] = std::from_chars(number.digits.data(), end, value);
  if (problem == std::errc::result_out_of_range) {
    if (number.magnitude > 0) return ParseResult::Overflow;
    value = 0;
  } else if (problem != std::errc() || last != end) {
    return ParseResult::NotANumber;
  }
  if (number.negative) value = -value;
  return ParseResult::Ok;
}

template <class Number>
Number ParseOrRaise(std::u16string_view text) {
  Number value = 0;
  switch (Parse(text, value)) {
    case ParseResult::Ok:
      return value;
    case ParseResult::Overflow:
      RaiseError(Error_Overflow);
    case ParseResult::NotANumber:
      break;
  }
  RaiseError(Error_TypeMismatch);
}

// What numbers in files are: a few digits and nothing else. `value` receives the number only then.
bool IsPlainNumber(std::u16string_view text, std::int32_t& value) noexcept {
  constexpr std::size_t kFitsInAnyCase = 9;
  if (text.empty() || text.size() > kFitsInAnyCase) return false;
  std::int32_t number = 0;
  for (const char16_t unit : text) {
    if (!IsDigit(unit)) return false;
    number = number * 10 + (unit - u'0');
  }
  value = number;
  return true;
}

// Whether the text is "True" or "False"; `value` receives which.
bool IsBooleanWord(std::u16string_view text, bool& value) noexcept {
  text = Trim(text);
  value = EqualIgnoringCase(text, u"true");
  return value || EqualIgnoringCase(text, u"false");
}

// "d.ddde+xx" taken apart into its digits and its power of ten.
struct Decimal {
  std::string digits;
  int exponent = 0;
};

Decimal SplitScientific(std::string_view text) {
  const std::size_t mark = text.find('e');
  Decimal result;
  result.digits = text.substr(0, mark);
  if (result.digits.size() > 1) result.digits.erase(1, 1);
  std::string_view power = text.substr(mark + 1);
  if (power.front() == '+') power.remove_prefix(1);
  std::from_chars(power.data(), power.data() + power.size(), result.exponent);
  return result;
}

std::string LayOutPlain(const Decimal& number) {
  const auto size = static_cast<int>(number.digits.size());
  if (number.exponent < 0) {
    return "0." + std::string(static_cast<std::size_t>(-number.exponent - 1), '0') + number.digits;
  }
  const int whole = number.exponent + 1;
  if (size <= whole) return number.digits + std::string(static_cast<std::size_t>(whole - size), '0');
  std::string result = number.digits;
  result.insert(static_cast<std::size_t>(whole), 1, '.');
  return result;
}

std::string LayOutScientific(const Decimal& number) {
  std::string result = number.digits;
  if (result.size() > 1) result.insert(1, 1, '.');
  const int power = std::abs(number.exponent);
  result += number.exponent < 0 ? "E-" : "E+";
  if (power < 10) result += '0';
  return result + std::to_string(power);
}

// Numbers within these powers of ten are written out, others with an exponent.
constexpr int kSmallestPlainPower = -5;
constexpr int kLargestPlainPower = 15;

template <class Number>
std::u16string RealToText(Number value) {
  if (value == 0) return u"0";
  char buffer[64];
  const auto [end, problem] =
      std::to_chars(std::begin(buffer), std::end(buffer), std::abs(value), std::chars_format::scientific);
  const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
  std::string result = std::signbit(value) ? "-" : "";
  if (!std::isfinite(value)) return FromUtf8(result.append(text));
  const Decimal number = SplitScientific(text);
  const bool plain = number.exponent >= kSmallestPlainPower && number.exponent < kLargestPlainPower;
  return FromUtf8(result + (plain ? LayOutPlain(number) : LayOutScientific(number)));
}

}  // namespace

bool IsNumericText(std::u16string_view text) {
  double value = 0;
  return Parse(text, value) == ParseResult::Ok;
}

double TextToDouble(std::u16string_view text) {
  return ParseOrRaise<double>(text);
}

float TextToSingle(std::u16string_view text) {
  return ParseOrRaise<float>(text);
}

std::int32_t TextToLong(std::u16string_view text) {
  std::int32_t number = 0;
  if (IsPlainNumber(text, number)) return number;
  bool word = false;
  if (IsBooleanWord(text, word)) return word ? -1 : 0;
  return ToLong(TextToDouble(text));
}

std::int16_t TextToShort(std::u16string_view text) {
  std::int32_t number = 0;
  if (IsPlainNumber(text, number) && number <= std::numeric_limits<std::int16_t>::max()) {
    return static_cast<std::int16_t>(number);
  }
  bool word = false;
  if (IsBooleanWord(text, word)) return word ? -1 : 0;
  return ToShort(TextToDouble(text));
}

bool TextToBoolean(std::u16string_view text) {
  bool word = false;
  if (IsBooleanWord(text, word)) return word;
  return TextToDouble(text) != 0;
}

std::u16string LongToText(std::int32_t value) {
  char buffer[16];
  const auto [end, problem] = std::to_chars(std::begin(buffer), std::end(buffer), value);
  return std::u16string(buffer, end);
}

std::u16string DoubleToText(double value) {
  return RealToText(value);
}

std::u16string SingleToText(float value) {
  return RealToText(value);
}

std::u16string_view BooleanToText(bool value) noexcept {
  return value ? u"True" : u"False";
}

}  // namespace vestrel
