#include "recording/EventLine.h"

#include <algorithm>
#include <bit>
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

char* WriteNumber(char* out, std::int32_t value) noexcept {
  if (value < 0 || value > 9) return std::to_chars(out, out + kEventLineRoom, value).ptr;
  *out = static_cast<char>('0' + value);
  return out + 1;
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

// The end of the text's units as bytes, or null when one of them is not ASCII.
char* CopyAscii(char* out, std::u16string_view text) noexcept {
  const char16_t* at = text.data();
  const char16_t* const end = at + text.size();
  std::uint64_t all = 0;
  if constexpr (std::endian::native == std::endian::little) {
    for (; end - at >= 4; at += 4) {
      std::uint64_t units = 0;
      std::memcpy(&units, at, sizeof units);
      all |= units;
      units |= units >> 8U;
      const auto bytes = static_cast<std::uint32_t>((units & 0xFFFFU) | (units >> 16U & 0xFFFF0000U));
      std::memcpy(out, &bytes, sizeof bytes);
      out += sizeof bytes;
    }
  }
  for (; at != end; ++at) {
    all |= *at;
    *out++ = static_cast<char>(*at);
  }
  return (all & 0xFF80FF80FF80FF80U) == 0 ? out : nullptr;
}

constexpr std::uint64_t EachByte(unsigned char byte) noexcept {
  return 0x0101010101010101U * byte;
}

// The high bits of the bytes that are zero, exact up to the lowest of them.
constexpr std::uint64_t ZeroBytes(std::uint64_t word) noexcept {
  return (word - EachByte(1)) & ~word & EachByte(0x80);
}

// The first quote or LF; an LF stands at `end`.
const char* QuoteOrLineFeed(const char* at, const char* end) noexcept {
  if constexpr (std::endian::native == std::endian::little) {
    for (; end - at >= 8; at += 8) {
      std::uint64_t word = 0;
      std::memcpy(&word, at, sizeof word);
      const std::uint64_t found = ZeroBytes(word ^ EachByte('"')) | ZeroBytes(word ^ EachByte('\n'));
      if (found != 0) return at + std::countr_zero(found) / 8;
    }
  }
  while (*at != '"' && *at != '\n') ++at;
  return at;
}

// Walks over a line up to its LF, which no step passes; so none needs to look for the end of the bytes. At
// the first thing that is not as it should be it goes to the last LF of all and stays there.
class Walk {
 public:
  // `lastLineFeed` is where the last LF of the bytes stands.
  Walk(const char* begin, const char* lastLineFeed) noexcept : at_(begin), lastLineFeed_(lastLineFeed) {}

  // Where the next line begins; null when something was not as it should be or the LF, behind a CR or not,
  // does not come next.
  const char* NextLine() noexcept {
    if (*at_ == '\r') ++at_;
    return good_ && *at_ == '\n' ? at_ + 1 : nullptr;
  }

  void Pass(char byte) noexcept {
    if (*at_ != byte) return Fail();
    ++at_;
  }

  template <class Integer>
  void Read(Integer& value) noexcept {
    const unsigned digit = DigitAt(at_);
    if (digit > 9 || DigitAt(at_ + 1) <= 9) return ReadLonger(value);
    value = static_cast<Integer>(digit);
    ++at_;
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
    const char* const end = QuoteOrLineFeed(at_, lastLineFeed_);
    if (*end != '"') return Fail();
    value = {at_, static_cast<std::size_t>(end - at_)};
    at_ = end + 1;
  }

 private:
  void Fail() noexcept {
    good_ = false;
    at_ = lastLineFeed_;
  }

  // Any form but that of a single digit.
  template <class Integer>
  void ReadLonger(Integer& value) noexcept {
    const bool negative = PassSign();
    const char* const digits = at_;
    const std::uint64_t number = ReadDigits();
    const auto count = static_cast<std::size_t>(at_ - digits);
    const std::uint64_t most = std::uint64_t{std::numeric_limits<Integer>::max()} + (negative ? 1 : 0);
    if (count - 1 >= kMostDigits || number > most) return Fail();
    value = static_cast<Integer>(negative ? 0 - number : number);
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
    const auto [next, problem] = std::from_chars(start, lastLineFeed_, value);
    if (problem != std::errc()) return Fail();
    at_ = next;
  }

  static unsigned DigitAt(const char* at) noexcept { return static_cast<unsigned char>(*at) - unsigned{'0'}; }

  const char* at_;
  const char* lastLineFeed_;
  bool good_ = true;
};

}  // namespace

char* WriteEventLine(char* out, const EventLine& line, std::u16string_view name) {
  out = WriteNumber(out, line.time);
  *out++ = ',';
  *out++ = '"';
  out = CopyAscii(out, name);
  if (out == nullptr) return nullptr;
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
  const std::size_t lastLineFeed = bytes.rfind('\n');
  if (lastLineFeed == std::string_view::npos) return 0;
  Walk walk(bytes.data(), bytes.data() + lastLineFeed);
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
  const char* const next = walk.NextLine();
  return next == nullptr ? 0 : static_cast<std::size_t>(next - bytes.data());
}

}  // namespace vestrel
