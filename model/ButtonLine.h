// A button's line in a page file as a value: seven fields joined by "|". Pure; clsButton reads and writes the
// line, this decides what it says.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controller/interfaces/Enumerations.h"

namespace vestrel {

struct ButtonLine {
  std::u16string name;
  ButtonTypeEnum buttonType{};
  PlayStateEnum playState{};
  BumpModeEnum bumpMode{};
  FaderModeEnum faderMode{};
  std::int32_t faderValue = 0;
  bool locked = false;
};

// "Intro|1|1|0|0|100|False". Nothing is escaped.
std::u16string ButtonLineText(const ButtonLine& line);

// Takes the fields apart; false, and `line` as it was, when there are not exactly seven. Raises 13 for a
// field that does not convert and 6 for one that does not fit (16 bits for type, bump and fader mode, 32 bits
// for play state and fader value); `line` stays as it was then too.
bool ParseButtonLine(std::u16string_view text, ButtonLine& line);

}  // namespace vestrel
