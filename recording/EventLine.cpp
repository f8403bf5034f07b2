#include "recording/EventLine.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "core/Convert.h"

namespace vestrel {
namespace {

// Whole numbers of so many digits are floats exactly.
constexpr std::ptrdiff_t kExactDigits = 7;
// As many as a 32-bit number has at most.
constexpr std::ptrdiff_t kMostDigits = 10;

template <class Number>
char* WriteNumber(char* out, Number value) noexcept {
  return std::to_chars(out, out + kEventLineRoom, value).ptr;
}

// As SingleToText gives it; the plain forms, which positions have nearly always, are quicker to write here.
char* WriteFloat(char* out, float value) {
  const float size = std::abs(value);
  if (size < 1e6F) {
    const auto whole = static_cast<std::int32_t>(value);
    if (static_cast<float>(whole) == value) return WriteNumber(out, whole);
    if (size >= 1e-4F) return std::to_chars(out, out + kEventLineRoom, value, std::chars_format::fixed).ptr;
  }
  const std::string text = ToUtf8(SingleToText(value));
  return std::copy(text.begin(), text.end(), out);
}

// Walks over a line; turns bad at the first thing that is not as it should be.
class Walk {
 public:
  explicit Walk(std::string_view bytes) noexcept : at_(bytes.data()), end_(at_ + bytes.size()) {}

  bool good() const noexcept { return good_; }
  const char* at() const noexcept { return at_; }

  void Expect(char byte) noexcept {
    good_ = good_ && at_ != end_ && *at_ == byte;
    if (good_) ++at_;
  }

  void EndLine() noexcept {
    if (at_ != end_ && *at_ == '\r') ++at_;
    Expect('\n');
  }

  template <class Integer>
  void Read(Integer& value) noexcept {
    const bool negative = at_ != end_ && *at_ == '-';
    std::int64_t number = 0;
    const char* const digits = negative ? at_ + 1 : at_;
    const char* const last = digits + std::min<std::ptrdiff_t>(end_ - digits, kMostDigits);
    const char* next = digits;
    while (next != last && IsDigit(*next)) number = number * 10 + (*next++ - '0');
    if (negative) number = -number;
    good_ = good_ && next != digits && number >= std::numeric_limits<Integer>::min() &&
            number <= std::numeric_limits<Integer>::max();
    at_ = next;
    value = static_cast<Integer>(number);
  }

  void Read(float& value) noexcept {
    const char* const start = at_;
    const bool negative = at_ != end_ && *at_ == '-';
    const char* const digits = negative ? at_ + 1 : at_;
    const char* const last = digits + std::min(end_ - digits, kExactDigits);
    const char* next = digits;
    std::int32_t whole = 0;
    while (next != last && IsDigit(*next)) whole = whole * 10 + (*next++ - '0');
    good_ = good_ && next != digits;
    value = static_cast<float>(negative ? -whole : whole);
    at_ = next;
    const bool isWhole = next != end_ && (*next == ',' || *next == '\r' || *next == '\n');
    if (good_ && (!isWhole || (negative && whole == 0))) ReadAny(start, value);
  }

  void ReadQuoted(std::string_view& value) noexcept {
    Expect('"');
    if (!good_) return;
    const char* const start = at_;
    while (at_ != end_ && *at_ != '"' && *at_ != '\r' && *at_ != '\n') ++at_;
    value = {start, static_cast<std::size_t>(at_ - start)};
    Expect('"');
  }

 private:
  void ReadAny(const char* start, float& value) noexcept {
    const auto [next, problem] = std::from_chars(start, end_, value);
    good_ = problem == std::errc();
    at_ = next;
  }

  static bool IsDigit(char byte) noexcept { return byte >= '0' && byte <= '9'; }

  const char* at_;
  const char* end_;
  bool good_ = true;
};

}  // namespace

char* WriteEventLine(char* out, const EventLine& line, std::u16string_view asciiName) {
  out = WriteNumber(out, line.time);
  *out++ = ',';
  *out++ = '"';
  out = std::transform(asciiName.begin(), asciiName.end(), out,
                       [](char16_t unit) { return static_cast<char>(unit); });
  *out++ = '"';
  *out++ = ',';
  out = WriteNumber(out, line.eventType);
  *out++ = ',';
  out = WriteNumber(out, line.mouseButton);
  *out++ = ',';
  out = WriteNumber(out, line.shift);
  *out++ = ',';
  out = WriteFloat(out, line.x);
  *out++ = ',';
  out = WriteFloat(out, line.y);
  *out++ = '\r';
  *out++ = '\n';
  return out;
}

std::size_t ReadEventLine(std::string_view bytes, EventLine& line) noexcept {
  Walk walk(bytes);
  walk.Read(line.time);
  walk.Expect(',');
  walk.ReadQuoted(line.name);
  walk.Expect(',');
  walk.Read(line.eventType);
  walk.Expect(',');
  walk.Read(line.mouseButton);
  walk.Expect(',');
  walk.Read(line.shift);
  walk.Expect(',');
  walk.Read(line.x);
  walk.Expect(',');
  walk.Read(line.y);
  walk.EndLine();
  return walk.good() ? static_cast<std::size_t>(walk.at() - bytes.data()) : 0;
}

}  // namespace vestrel
