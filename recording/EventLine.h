// One line of an event file as bytes, in the form in which it is written: time,"name",type,mouse button,
// shift,x,y and a line break (docs/event-file.md). A value; knows neither files nor buttons. Lines in any
// other form, with blanks for instance, are left to the general reading of fields.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vestrel {

struct EventLine {
  std::int32_t time = 0;
  // In the narrow code page; points into what was read.
  std::string_view name;
  std::int32_t eventType = 0;
  std::int16_t mouseButton = 0;
  std::int16_t shift = 0;
  float x = 0;
  float y = 0;
};

// More bytes than the line takes beside its name.
inline constexpr std::size_t kEventLineRoom = 128;

// Writes the line at `out`, which has kEventLineRoom bytes more than the name; answers its end. The name is
// given apart. Null when it is not ASCII alone, which is the same in every narrow code page; what stands at
// `out` is of no use then.
char* WriteEventLine(char* out, const EventLine& line, std::u16string_view name);

// Reads the line that `bytes` begin with and answers how many of them it took. 0 when it is not whole or not
// in the form that WriteEventLine gives it; its line break may be a bare LF, though.
std::size_t ReadEventLine(std::string_view bytes, EventLine& line) noexcept;

}  // namespace vestrel
