// A button's line in a page file as a value: seven fields joined by "|". Pure; clsButton reads and writes the
// line, this decides what it says.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
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

// The name of a button's line in its section: "Button12_fields", of which "Button12" is the prefix that tells
// the buttons apart.
class ButtonKey {
 public:
  static constexpr std::string_view kWithoutPrefix = "fields";

  explicit ButtonKey(std::int32_t buttonIndex) noexcept;

  std::string_view prefix() const noexcept { return {bytes_, prefix_}; }
  std::string_view view() const noexcept { return {bytes_, prefix_ + 1 + kWithoutPrefix.size()}; }

 private:
  char bytes_[32];  // not cleared
  std::size_t prefix_;
};

// Appends "Intro|1|1|0|0|100|False". Nothing is escaped.
void AppendButtonLine(const ButtonLine& line, TextBuffer& text);

// The same in the narrow page, where the name is short and all ASCII, as nearly every name is.
class NarrowButtonLine {
 public:
  // More than the fields behind the name can need.
  static constexpr std::size_t kOtherFields = 80;

  explicit NarrowButtonLine(const ButtonLine& line);

  // Empty where the name is another.
  std::string_view view() const noexcept { return {bytes_, size_}; }

 private:
  static constexpr std::size_t kLongestName = 120;

  char bytes_[kLongestName + kOtherFields];  // not cleared
  std::size_t size_ = 0;
};

// Takes the fields apart, the name as a part of `text`; false, and `line` as it was, when there are not
// exactly seven. Raises 13 for a field that does not convert and 6 for one that does not fit (16 bits for
// type, bump and fader mode, 32 bits for play state and fader value); `line` stays as it was then too.
bool ParseButtonLine(std::u16string_view text, ButtonLine& line);

// The same of a line in the narrow page that is as it is written and all ASCII, as nearly every line is;
// false, and all as it was, for any other. The name is put into `name`, of which it is a part.
bool ParseButtonLine(std::string_view bytes, std::u16string& name, ButtonLine& line);

}  // namespace vestrel
