#include "recording/EventLine.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "core/Convert.h"

namespace vestrel {
namespace {

// Whole numbers of so many digits are floats exactly.
constexpr std::size_t kExactDigits = 7;
// As many as a 32-bit number has at most.
constexpr std::size_t kMostDigits = 10;

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
    if (size >= 1e-4F) {
      return std::to_chars(out, out + kEventLineRoom, value, std::chars_format::fixed).ptr;
    }
  }
  const std::string text = ToUtf8(SingleToText(value));
  return std::copy(text.begin(), text.end(), out);
}

// Walks over a line up to its LF, which no step but the last passes; so none needs to look for the end of the
// bytes. At the first thing that is not as it should be it goes to the LF and stays there.
class Walk {
 public:
  // `lineFeed` is where the LF stands.
  Walk(const char* begin, const char* lineFeed) noexcept : at_(begin), lineFeed_(lineFeed) {}

  // Whether all was as it should be and the LF comes next, behind a CR or not.
  bool EndsWell() noexcept {
    if (*at_ == '\r') ++at_;
    return good_ && at_ == lineFeed_;
  }

  void Pass(char byte) noexcept {
    if (*at_ != byte) return Fail();
    ++at_;
  }

  template <class Integer>
  void Read(Integer& value) noexcept {
    const bool negative = PassSign();
    const char* const digits = at_;
    const std::uint64_t number = ReadDigits();
    const auto count = static_cast<std::size_t>(at_ - digits);
    const std::uint64_t most = std::uint64_t{std::numeric_limits<Integer>::max()} + (negative ? 1 : 0);
    if (count - 1 >= kMostDigits || number > most) return Fail();
    value = static_cast<Integer>(negative ? 0 - number : number);
  }

  void Read(float& value) noexcept {
    const char* const start = at_;
    const bool negative = PassSign();
    const char* const digits = at_;
    const auto whole = static_cast<std::int32_t>(ReadDigits());
    const auto count = static_cast<std::size_t>(at_ - digits);
    const bool isWhole = *at_ == ',' || *at_ == '\r' || *at_ == '\n';
    if (count == 0) return Fail();
    if (!isWhole || count > kExactDigits) return ReadFraction(start, value);
    value = negative ? -static_cast<float>(whole) : static_cast<float>(whole);
  }

  void ReadQuoted(std::string_view& value) noexcept {
    Pass('"');
    const auto left = static_cast<std::size_t>(lineFeed_ - at_);
    const void* const quote = std::memchr(at_, '"', left);
    if (quote == nullptr) return Fail();
    value = {at_, static_cast<std::size_t>(static_cast<const char*>(quote) - at_)};
    at_ = static_cast<const char*>(quote) + 1;
  }

 private:
  void Fail() noexcept {
    good_ = false;
    at_ = lineFeed_;
  }

  bool PassSign() noexcept {
    if (*at_ != '-') return false;
    ++at_;
    return true;
  }

  // Wraps where there are too many digits, which the callers see from their number.
  std::uint64_t ReadDigits() noexcept {
    std::uint64_t number = 0;
    for (unsigned digit = DigitAt(at_); digit <= 9; digit = DigitAt(++at_)) number = number * 10 + digit;
    return number;
  }

  void ReadFraction(const char* start, float& value) noexcept {
    const auto [next, problem] = std::from_chars(start, lineFeed_, value);
    if (problem != std::errc()) return Fail();
    at_ = next;
  }

  static unsigned DigitAt(const char* at) noexcept { return static_cast<unsigned char>(*at) - unsigned{'0'}; }

  const char* at_;
  const char* lineFeed_;
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
  const std::size_t lineFeed = bytes.find('\n');
  if (lineFeed == std::string_view::npos) return 0;
  Walk walk(bytes.data(), bytes.data() + lineFeed);
  walk.Read(line.time);
  walk.Pass(',');
  walk.ReadQuoted(line.name);
  walk.Pass(',');
  walk.Read(line.eventType);
  walk.Pass(',');
  walk.Read(line.mouseButton);
  walk.Pass(',');
  walk.Read(line.shift);
  walk.Pass(',');
  walk.Read(line.x);
  walk.Pass(',');
  walk.Read(line.y);
  return walk.EndsWell() ? lineFeed + 1 : 0;
}

}  // namespace vestrel
