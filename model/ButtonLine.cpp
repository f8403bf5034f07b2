#include "model/ButtonLine.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string>
#include <utility>

#include "core/Convert.h"
#include "platform/Ascii.h"

namespace vestrel {
namespace {

constexpr std::size_t kFields = 7;

// Of one of them in decimal, its sign included.
constexpr std::size_t kLongestNumber = 11;
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

// Takes a number in digits and the divider behind it; the result is where the next field begins, null when
// there is none such. One of more than nine digits may not fit and is none.
template <class Unit>
const Unit* TakeLongNumber(const Unit* at, const Unit* end, std::int32_t& number) noexcept {
  constexpr std::ptrdiff_t kFitsInAnyCase = 9;
  const Unit* const start = at;
  number = 0;
  for (; at != end && *at >= '0' && *at <= '9'; ++at) {
    if (at - start == kFitsInAnyCase) return nullptr;
    number = number * 10 + (*at - '0');
  }
  return at != start && at != end && *at == '|' ? at + 1 : nullptr;
}

// The same; most numbers have one digit.
template <class Unit>
inline const Unit* TakeNumber(const Unit* at, const Unit* end, std::int32_t& number) noexcept {
  const auto digit = static_cast<std::uint32_t>(end - at > 1 && at[1] == '|' ? at[0] - '0' : 10);
  if (digit > 9) return TakeLongNumber(at, end, number);
  number = static_cast<std::int32_t>(digit);
  return at + 2;
}

template <class Unit, std::size_t Size>
inline bool IsWord(const Unit* at, const Unit* end, const char (&word)[Size]) noexcept {
  return end - at == Size - 1 && std::equal(at, end, word);
}

template <class Unit, class... Numbers>
inline bool TakeNumbers(const Unit*& at, const Unit* end, Numbers&... numbers) noexcept {
  return (((at = TakeNumber(at, end, numbers)) != nullptr) && ...);
}

// Reads the fields behind the name in the form that is written, which nearly every line has. False, and
// `line` as it was, for any other, whether it is a line or none.
template <class Unit>
bool ParseWrittenFields(const Unit* at, const Unit* end, ButtonLine& line) noexcept {
  // Variables of their own: what is stored one by one and read together has to wait for the stores.
  std::int32_t type = 0;
  std::int32_t state = 0;
  std::int32_t bump = 0;
  std::int32_t mode = 0;
  std::int32_t value = 0;
  if (!TakeNumbers(at, end, type, state, bump, mode, value)) return false;
  const bool locked = IsWord(at, end, "True");
  if ((!locked && !IsWord(at, end, "False")) ||
      std::max({type, bump, mode}) > std::numeric_limits<std::int16_t>::max())
    return false;
  line.buttonType = static_cast<ButtonTypeEnum>(type);
  line.playState = static_cast<PlayStateEnum>(state);
  line.bumpMode = static_cast<BumpModeEnum>(bump);
  line.faderMode = static_cast<FaderModeEnum>(mode);
  line.faderValue = value;
  line.locked = locked;
  return true;
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

char* PutDecimal(char* to, std::int32_t number) noexcept {
  if (static_cast<std::uint32_t>(number) > 9) return std::to_chars(to, to + kLongestNumber, number).ptr;
  *to = static_cast<char>('0' + number);
  return to + 1;
}

char* PutField(char* to, std::int32_t number) noexcept {
  *to = '|';
  return PutDecimal(to + 1, number);
}

// All fields but the name, which are ASCII.
char* PutOtherFields(char* to, const ButtonLine& line) noexcept {
  to = PutField(to, line.buttonType);
  to = PutField(to, line.playState);
  to = PutField(to, line.bumpMode);
  to = PutField(to, line.faderMode);
  to = PutField(to, line.faderValue);
  const std::string_view word = line.locked ? "|True" : "|False";
  return std::copy(word.begin(), word.end(), to);
}

}  // namespace

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): nothing of bytes_ is read but what was written
ButtonKey::ButtonKey(std::int32_t buttonIndex) noexcept {
  constexpr std::string_view kFront = "Button";
  char* to = std::copy(kFront.begin(), kFront.end(), bytes_);
  to = PutDecimal(to, buttonIndex);
  prefix_ = static_cast<std::size_t>(to - bytes_);
  *to++ = '_';
  std::copy(kWithoutPrefix.begin(), kWithoutPrefix.end(), to);
}

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
NarrowButtonLine::NarrowButtonLine(const ButtonLine& line) {
  if (line.name.size() > kLongestName || !platform::CopyAscii(line.name, bytes_)) return;
  size_ = static_cast<std::size_t>(PutOtherFields(bytes_ + line.name.size(), line) - bytes_);
}

void AppendButtonLine(const ButtonLine& line, TextBuffer& text) {
  char fields[NarrowButtonLine::kOtherFields];
  text.Append(line.name);
  text.AppendAscii({fields, PutOtherFields(fields, line)});
}

bool ParseButtonLine(std::string_view bytes, std::u16string& name, ButtonLine& line) {
  const std::size_t divider = bytes.find('|');
  if (divider == std::string_view::npos) return false;
  std::u16string wide(divider, u'\0');
  if (!platform::CopyAscii(bytes.substr(0, divider), wide.data()) ||
      !ParseWrittenFields(bytes.data() + divider + 1, bytes.data() + bytes.size(), line))
    return false;
  name = std::move(wide);
  line.name = name;
  return true;
}

bool ParseButtonLine(std::u16string_view text, ButtonLine& line) {
  const std::size_t divider = text.find(u'|');
  if (divider != std::u16string_view::npos &&
      ParseWrittenFields(text.data() + divider + 1, text.data() + text.size(), line)) {
    line.name = text.substr(0, divider);
    return true;
  }
  ButtonLine result;
  if (!ParseAnyForm(text, result)) return false;
  line = result;
  return true;
}

}  // namespace vestrel
