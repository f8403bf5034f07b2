// Transport positions as text: "hh:mm:ss.mmm". Knows neither transport nor display.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vestrel {

// Milliseconds as hours, minutes, seconds and milliseconds: 3723004 gives "01:02:03.004". From 100 hours on
// the hours take three digits; in a negative position every field that is not 0 has its own "-".
std::u16string MillisecondsToTimecode(std::int32_t milliseconds);

// Reads "ss.mmm", "mm:ss.mmm" or "hh:mm:ss.mmm", each letter one decimal digit; the fields have no upper
// bound of their own ("00:99.000" is 99 seconds). False, with `milliseconds` as it was, for anything else.
bool TimecodeToMilliseconds(std::u16string_view timecode, std::int32_t& milliseconds);

}  // namespace vestrel
