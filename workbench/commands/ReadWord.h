// Words as plain values. Each raises BadCommand, which names the parameter, for a word that is not one.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "workbench/commands/Parameter.h"
#include "workbench/commands/Word.h"
#include "workbench/host/EnumNames.h"

namespace vestrel::workbench {

// A decimal number from `least` to `most`.
std::int32_t ReadWhole(const Word& word, const Parameter& parameter, std::int32_t least, std::int32_t most);
// With an optional point and exponent.
float ReadReal(const Word& word, const Parameter& parameter);
// true, yes, on, 1 or -1; false, no, off or 0.
bool ReadTruth(const Word& word, const Parameter& parameter);
// A member's name, or any number.
std::int32_t ReadMember(const Word& word, const Parameter& parameter, std::span<const EnumName> names);
// As it is; for a path the place that it means with the data folder `dataFolder`.
std::u16string ReadText(const Word& word, const Parameter& parameter, const std::u16string& dataFolder);

// "name: what", raised.
[[noreturn]] void RejectWord(const Parameter& parameter, const std::string& what);

}  // namespace vestrel::workbench
