// A table of the runs of capital letters; the basic alphabet, by far the most frequent, goes past it.
#include "core/LetterCase.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "core/Convert.h"

namespace vestrel {
namespace {

// Capitals from `first` to `last`, `step` apart, each with its small letter `distance` further on.
struct CapitalRun {
  char16_t first;
  char16_t last;
  std::int16_t distance;
  std::uint8_t step;
};

// In ascending order. Left out are rare letters and those whose other case is none, several letters or a
// matter of language.
constexpr CapitalRun kCapitals[] = {
    {0x00C0, 0x00D6, 32, 1}, {0x00D8, 0x00DE, 32, 1}, {0x0100, 0x012E, 1, 2},    {0x0132, 0x0136, 1, 2},
    {0x0139, 0x0147, 1, 2},  {0x014A, 0x0176, 1, 2},  {0x0178, 0x0178, -121, 1}, {0x0179, 0x017D, 1, 2},
    {0x01A0, 0x01A4, 1, 2},  {0x01AF, 0x01AF, 1, 1},  {0x01CD, 0x01DB, 1, 2},    {0x01DE, 0x01EE, 1, 2},
    {0x01F8, 0x021E, 1, 2},  {0x0222, 0x0232, 1, 2},  {0x0386, 0x0386, 38, 1},   {0x0388, 0x038A, 37, 1},
    {0x038C, 0x038C, 64, 1}, {0x038E, 0x038F, 63, 1}, {0x0391, 0x03A1, 32, 1},   {0x03A3, 0x03AB, 32, 1},
    {0x0400, 0x040F, 80, 1}, {0x0410, 0x042F, 32, 1}, {0x0460, 0x0480, 1, 2},    {0x048A, 0x04BE, 1, 2},
    {0x04C1, 0x04CD, 1, 2},  {0x04D0, 0x052E, 1, 2},  {0x1E00, 0x1E94, 1, 2},    {0x1EA0, 0x1EFE, 1, 2},
    {0xFF21, 0xFF3A, 32, 1},
};

}  // namespace

char16_t FoldLetter(char16_t unit) noexcept {
  if (unit < kCapitals[0].first) return FoldCase(unit);
  const auto* const run =
      std::partition_point(std::begin(kCapitals), std::end(kCapitals),
                           [unit](const CapitalRun& capitals) { return capitals.last < unit; });
  if (run == std::end(kCapitals) || unit < run->first || (unit - run->first) % run->step != 0) return unit;
  return static_cast<char16_t>(unit + run->distance);
}

bool EqualIgnoringLetterCase(std::u16string_view a, std::u16string_view b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t x, char16_t y) { return FoldLetter(x) == FoldLetter(y); });
}

}  // namespace vestrel
