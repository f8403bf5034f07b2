#include "util/FormatDirective.h"

#include <cstddef>

#include "core/Checked.h"

namespace vestrel::modSprintf {
namespace {

struct ConversionRow {
  char16_t character;
  Conversion conversion;
  bool upperCase;
  std::int32_t defaultPrecision;
};

constexpr ConversionRow kConversions[] = {
    {u's', Conversion::Text, false, -1},           {u'd', Conversion::SignedDecimal, false, 1},
    {u'i', Conversion::SignedDecimal, false, 1},   {u'f', Conversion::FixedPoint, false, 6},
    {u'o', Conversion::Octal, false, 0},           {u'x', Conversion::Hexadecimal, false, 0},
    {u'X', Conversion::Hexadecimal, true, 0},      {u'c', Conversion::Character, false, 0},
    {u'u', Conversion::UnsignedDecimal, false, 1}, {u'e', Conversion::Exponent, false, 6},
    {u'E', Conversion::Exponent, true, 6},         {u'g', Conversion::General, false, 5},
    {u'G', Conversion::General, true, 5},          {u'p', Conversion::Pointer, false, 0},
    {u'n', Conversion::TextSoFar, false, 0},
};

const ConversionRow* FindConversion(char16_t character) noexcept {
  for (const ConversionRow& row : kConversions) {
    if (row.character == character) return &row;
  }
  return nullptr;
}

bool TakeFlag(char16_t unit, Directive& directive) noexcept {
  switch (unit) {
    case u'0':
      return directive.zeroPad = true;
    case u'-':
      return directive.leftAlign = true;
    case u'+':
      return directive.forceSign = true;
    case u'#':
      return directive.alternate = true;
    case u'*':
      return directive.precisionFromArgument = true;
    default:
      return false;
  }
}

// The decimal number at `at`, 0 where there is none; `at` moves behind it.
std::int32_t TakeNumber(std::u16string_view text, std::size_t& at) {
  std::int32_t number = 0;
  while (at < text.size() && text[at] >= u'0' && text[at] <= u'9') {
    number = AddChecked(MultiplyChecked(number, 10), text[at++] - u'0');
  }
  return number;
}

}  // namespace

std::optional<Directive> ParseDirective(std::u16string_view inner, char16_t conversion) {
  const ConversionRow* row = FindConversion(conversion);
  if (row == nullptr) return std::nullopt;
  Directive directive;
  directive.conversion = row->conversion;
  directive.upperCase = row->upperCase;
  directive.precision = directive.defaultPrecision = row->defaultPrecision;
  std::size_t at = 0;
  while (at < inner.size() && TakeFlag(inner[at], directive)) ++at;
  directive.width = TakeNumber(inner, at);
  if (at < inner.size() && inner[at] == u'.') directive.precision = TakeNumber(inner, ++at);
  if (at != inner.size()) return std::nullopt;
  return directive;
}

}  // namespace vestrel::modSprintf
