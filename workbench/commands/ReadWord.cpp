#include "workbench/commands/ReadWord.h"

#include <charconv>
#include <limits>

#include "core/Convert.h"
#include "core/Error.h"

namespace vestrel::workbench {

namespace {

std::string Quote(const std::string& text) {
  return "\"" + text + "\"";
}

// Whether the word is a decimal number; one beyond 64 bits counts as the largest.
bool ReadDigits(const Word& word, std::int64_t& value) {
  const char* const end = word.text.data() + word.text.size();
  const auto [stop, error] = std::from_chars(word.text.data(), end, value);
  if (error == std::errc::result_out_of_range) value = std::numeric_limits<std::int64_t>::max();
  return error != std::errc::invalid_argument && stop == end;
}

bool IsAbsolute(const std::string& path) {
  return path.starts_with('/') || path.starts_with('\\') || (path.size() > 1 && path[1] == ':');
}

}  // namespace

void RejectWord(const Parameter& parameter, const std::string& what) {
  throw BadCommand(std::string(parameter.name) + ": " + what);
}

std::int32_t ReadWhole(const Word& word, const Parameter& parameter, std::int32_t least, std::int32_t most) {
  std::int64_t value = 0;
  if (!ReadDigits(word, value)) RejectWord(parameter, Quote(word.text) + " is no whole number");
  if (value < least || value > most) {
    RejectWord(parameter,
               word.text + " is not between " + std::to_string(least) + " and " + std::to_string(most));
  }
  return static_cast<std::int32_t>(value);
}

float ReadReal(const Word& word, const Parameter& parameter) {
  const std::u16string text = FromUtf8(word.text);
  if (!IsNumericText(text)) RejectWord(parameter, Quote(word.text) + " is no number");
  try {
    return TextToSingle(text);
  } catch (const Error&) {
    RejectWord(parameter, word.text + " is too large");
  }
}

bool ReadTruth(const Word& word, const Parameter& parameter) {
  for (const std::string_view yes : {"true", "yes", "on", "1", "-1"}) {
    if (word.text == yes) return true;
  }
  for (const std::string_view no : {"false", "no", "off", "0"}) {
    if (word.text == no) return false;
  }
  RejectWord(parameter, Quote(word.text) + " is neither true nor false");
}

std::int32_t ReadMember(const Word& word, const Parameter& parameter, std::span<const EnumName> names) {
  for (const EnumName& entry : names) {
    if (word.text == entry.name) return entry.value;
  }
  std::int64_t value = 0;
  if (ReadDigits(word, value)) {
    return ReadWhole(word, parameter, std::numeric_limits<std::int32_t>::min(),
                     std::numeric_limits<std::int32_t>::max());
  }
  std::string members;
  for (const EnumName& entry : names) members += (members.empty() ? "" : ", ") + std::string(entry.name);
  RejectWord(parameter, Quote(word.text) + " is no number and none of " + members);
}

std::u16string ReadText(const Word& word, const Parameter& parameter, const std::u16string& dataFolder) {
  if (!parameter.path || IsAbsolute(word.text)) return FromUtf8(word.text);
  if (word.text.empty() || word.text == ".") return dataFolder;
  return dataFolder + u"\\" + FromUtf8(word.text);
}

}  // namespace vestrel::workbench
