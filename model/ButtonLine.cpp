#include "model/ButtonLine.h"

#include <algorithm>
#include <array>
#include <limits>

#include "core/Convert.h"

namespace vestrel {
namespace {

constexpr std::size_t kFields = 7;
using Fields = std::array<std::u16string_view, kFields>;

// False when there are more or fewer fields; an empty text has none.
bool Split(std::u16string_view text, Fields& fields) {
  if (text.empty()) return false;
  std::size_t count = 0;
  for (std::size_t start = 0; start <= text.size(); ++count) {
    if (count == kFields) return false;
    const std::size_t end = std::min(text.find(u'|', start), text.size());
    fields[count] = text.substr(start, end - start);
    start = end + 1;
  }
  return count == kFields;
}

bool IsDigit(char16_t unit) noexcept {
  return unit >= u'0' && unit <= u'9';
}

// Takes the digits at `at`, up to nine, and the divider behind them.
bool TakeLongNumber(std::u16string_view text, std::size_t& at, std::int32_t& number) noexcept {
  constexpr std::size_t kFitsInAnyCase = 9;
  const std::size_t start = at;
  number = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at) {
    if (at - start == kFitsInAnyCase) return false;
    number = number * 10 + (text[at] - u'0');
  }
  return at > start && at < text.size() && text[at++] == u'|';
}

// The same; most numbers have one digit.
inline bool TakeNumber(std::u16string_view text, std::size_t& at, std::int32_t& number) noexcept {
  if (at + 1 >= text.size() || text[at + 1] != u'|' || !IsDigit(text[at]))
    return TakeLongNumber(text, at, number);
  number = text[at] - u'0';
  at += 2;
  return true;
}

inline bool TakeShort(std::u16string_view text, std::size_t& at, std::int16_t& number) noexcept {
  std::int32_t wide = 0;
  if (!TakeNumber(text, at, wide) || wide > std::numeric_limits<std::int16_t>::max()) return false;
  number = static_cast<std::int16_t>(wide);
  return true;
}

// Reads the form that AppendButtonLine writes, which nearly every line has. False, and `line` of no use, for
// any other, whether it is a line or none.
bool ParseWrittenForm(std::u16string_view text, ButtonLine& line) {
  std::size_t at = std::min(text.find(u'|'), text.size());
  line.name = text.substr(0, at++);
  std::int16_t type = 0;
  std::int16_t bump = 0;
  std::int16_t fader = 0;
  std::int32_t state = 0;
  if (!TakeShort(text, at, type) || !TakeNumber(text, at, state) || !TakeShort(text, at, bump) ||
      !TakeShort(text, at, fader) || !TakeNumber(text, at, line.faderValue))
    return false;
  line.buttonType = static_cast<ButtonTypeEnum>(type);
  line.playState = static_cast<PlayStateEnum>(state);
  line.bumpMode = static_cast<BumpModeEnum>(bump);
  line.faderMode = static_cast<FaderModeEnum>(fader);
  const std::u16string_view locked = text.substr(at);
  line.locked = locked != BooleanToText(false);
  return !line.locked || locked == BooleanToText(true);
}

bool ParseAnyForm(std::u16string_view text, ButtonLine& line) {
  Fields fields;
  if (!Split(text, fields)) return false;
  line.name = fields[0];
  line.buttonType = static_cast<ButtonTypeEnum>(TextToShort(fields[1]));
  line.playState = static_cast<PlayStateEnum>(TextToLong(fields[2]));
  line.bumpMode = static_cast<BumpModeEnum>(TextToShort(fields[3]));
  line.faderMode = static_cast<FaderModeEnum>(TextToShort(fields[4]));
  line.faderValue = TextToLong(fields[5]);
  line.locked = TextToBoolean(fields[6]);
  return true;
}

}  // namespace

void AppendButtonLine(const ButtonLine& line, TextBuffer& text) {
  text.Append(line.name);
  for (const std::int32_t number :
       {std::int32_t{line.buttonType}, std::int32_t{line.playState}, std::int32_t{line.bumpMode},
        std::int32_t{line.faderMode}, line.faderValue}) {
    text.Append(u'|');
    text.AppendDecimal(number);
  }
  text.Append(u'|');
  text.Append(BooleanToText(line.locked));
}

bool ParseButtonLine(std::u16string_view text, ButtonLine& line) {
  ButtonLine result;
  if (!ParseWrittenForm(text, result) && !ParseAnyForm(text, result)) return false;
  line = result;
  return true;
}

}  // namespace vestrel
