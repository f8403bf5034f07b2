// A button's line in a page file as a value: seven fields joined by "|". Pure; clsButton reads and writes the
// line, this decides what it says.
#pragma once

#include <cstdint>
#include <string_view>

#include "controller/interfaces/Enumerations.h"
#include "util/TextBuffer.h"

namespace vestrel {

struct ButtonLine {
  std::u16string_view name;  // a part of whatever text it was taken from
  ButtonTypeEnum buttonType{};
  PlayStateEnum playState{};
  BumpModeEnum bumpMode{};
  FaderModeEnum faderMode{};
  std::int32_t faderValue = 0;
  bool locked = false;
};

// Appends "Intro|1|1|0|0|100|False". Nothing is escaped.
void AppendButtonLine(const ButtonLine& line, TextBuffer& text);

// Takes the fields apart, the name as a part of `text`; false, and `line` as it was, when there are not
// exactly seven. Raises 13 for a field that does not convert and 6 for one that does not fit (16 bits for
// type, bump and fader mode, 32 bits for play state and fader value); `line` stays as it was then too.
bool ParseButtonLine(std::u16string_view text, ButtonLine& line);

}  // namespace vestrel
