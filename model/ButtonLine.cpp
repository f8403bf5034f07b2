#include "model/ButtonLine.h"

#include <array>

#include "core/Convert.h"
#include "util/TextBuffer.h"

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

}  // namespace

std::u16string ButtonLineText(const ButtonLine& line) {
  TextBuffer text;
  text.Append(line.name);
  for (const std::int32_t number :
       {std::int32_t{line.buttonType}, std::int32_t{line.playState}, std::int32_t{line.bumpMode},
        std::int32_t{line.faderMode}, line.faderValue}) {
    text.Append(u'|');
    text.AppendDecimal(number);
  }
  text.Append(u'|');
  text.Append(BooleanToText(line.locked));
  return std::u16string(text.view());
}

bool ParseButtonLine(std::u16string_view text, ButtonLine& line) {
  Fields fields;
  if (!Split(text, fields)) return false;
  ButtonLine result;
  result.name = fields[0];
  result.buttonType = static_cast<ButtonTypeEnum>(TextToShort(fields[1]));
  result.playState = static_cast<PlayStateEnum>(TextToLong(fields[2]));
  result.bumpMode = static_cast<BumpModeEnum>(TextToShort(fields[3]));
  result.faderMode = static_cast<FaderModeEnum>(TextToShort(fields[4]));
  result.faderValue = TextToLong(fields[5]);
  result.locked = TextToBoolean(fields[6]);
  line = std::move(result);
  return true;
}

}  // namespace vestrel
