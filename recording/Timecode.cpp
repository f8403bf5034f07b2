#include "recording/Timecode.h"

#include <algorithm>
#include <array>
#include <span>

#include "core/Convert.h"
#include "core/clsObjectList.h"
#include "util/clsFormatCapture.h"

namespace vestrel {
namespace {

std::u16string Padded(std::int32_t value, std::size_t digits) {
  std::u16string text = LongToText(value < 0 ? -value : value);
  if (text.size() < digits) text.insert(0, digits - text.size(), u'0');
  return value < 0 ? u"-" + text : text;
}

// The digit groups of the text, right-aligned: hours, minutes, seconds, milliseconds. Those that the pattern
// lacks are 0.
bool Read(std::u16string_view pattern, std::u16string_view text, std::array<std::int32_t, 4>& fields) {
  const Ref<clsFormatCapture> capture = MakeRef<clsFormatCapture>();
  if (!capture->DoMatch(pattern, text)) return false;
  const auto groups = static_cast<std::size_t>(std::count(pattern.begin(), pattern.end(), u':')) + 2;
  fields = {};
  return capture->ParseItems(std::span(fields).last(groups));
}

}  // namespace

std::u16string MillisecondsToTimecode(std::int32_t milliseconds) {
  const std::int32_t seconds = milliseconds / 1000;
  const std::int32_t minutes = seconds / 60;
  return Padded(minutes / 60, 2) + u":" + Padded(minutes % 60, 2) + u":" + Padded(seconds % 60, 2) + u"." +
         Padded(milliseconds % 1000, 3);
}

bool TimecodeToMilliseconds(std::u16string_view timecode, std::int32_t& milliseconds) {
  std::array<std::int32_t, 4> fields{};
  for (const std::u16string_view pattern : {u"##.###", u"##:##.###", u"##:##:##.###"}) {
    if (!Read(pattern, timecode, fields)) continue;
    milliseconds = ((fields[0] * 60 + fields[1]) * 60 + fields[2]) * 1000 + fields[3];
    return true;
  }
  return false;
}

}  // namespace vestrel
