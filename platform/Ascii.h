// The quick way between narrow and wide text for text that is all ASCII, which names and values nearly always
// are. Every code page agrees on it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace vestrel::platform {

// Whether none of the bits is set in any eight bytes of the text, nor in what is left of it at the end.
template <class Unit>
bool LacksBits(std::basic_string_view<Unit> text, std::uint64_t bits) noexcept {
  constexpr std::size_t kTogether = sizeof bits / sizeof(Unit);
  std::uint64_t seen = 0;
  std::size_t at = 0;
  for (; at + kTogether <= text.size(); at += kTogether) {
    std::uint64_t units = 0;
    std::memcpy(&units, text.data() + at, sizeof units);
    seen |= units;
  }
  std::uint64_t rest = 0;
  if (at < text.size()) std::memcpy(&rest, text.data() + at, (text.size() - at) * sizeof(Unit));
  return ((seen | rest) & bits) == 0;
}

// The bits that no unit of ASCII has, in eight bytes of text.
template <class Unit>
constexpr std::uint64_t kBeyondAscii = sizeof(Unit) == 1 ? 0x8080808080808080U : 0xFF80FF80FF80FF80U;

inline bool IsAscii(std::u16string_view text) noexcept {
  return LacksBits(text, kBeyondAscii<char16_t>);
}

inline bool IsAscii(std::string_view bytes) noexcept {
  return LacksBits(bytes, kBeyondAscii<char>);
}

constexpr std::size_t kCopiedTogether = 8;

// Copies eight units, which compilers make a few steps of.
template <class From, class To>
inline void CopyEight(const From* from, To* to) noexcept {
  From units[kCopiedTogether];
  To copies[kCopiedTogether];
  std::memcpy(units, from, sizeof units);
  for (std::size_t i = 0; i < kCopiedTogether; ++i) copies[i] = static_cast<To>(units[i]);
  std::memcpy(to, copies, sizeof copies);
}

// Bits of kBeyondAscii when not all of eight units are ASCII.
template <class Unit>
inline std::uint64_t BitsOfEight(const Unit* units) noexcept {
  std::uint64_t blocks[kCopiedTogether * sizeof(Unit) / sizeof(std::uint64_t)];
  std::memcpy(blocks, units, sizeof blocks);
  std::uint64_t bits = 0;
  for (const std::uint64_t block : blocks) bits |= block;
  return bits;
}

// Puts each unit of `from` into `to`, which has room for all. False when not all are ASCII; what `to` holds
// is of no use then. The last eight units overlap those before.
template <class From, class To>
bool CopyAscii(std::basic_string_view<From> from, To* to) noexcept {
  std::uint64_t bits = 0;
  if (from.size() < kCopiedTogether) {
    for (const From unit : from) {
      bits |= static_cast<std::make_unsigned_t<From>>(unit);
      *to++ = static_cast<To>(unit);
    }
    return bits <= 0x7F;
  }
  const From* const last = from.data() + from.size() - kCopiedTogether;
  To* const lastTo = to + from.size() - kCopiedTogether;
  for (const From* at = from.data(); at < last; at += kCopiedTogether, to += kCopiedTogether) {
    bits |= BitsOfEight(at);
    CopyEight(at, to);
  }
  bits |= BitsOfEight(last);
  CopyEight(last, lastTo);
  return (bits & kBeyondAscii<From>) == 0;
}

// Both require IsAscii.
inline std::string NarrowAscii(std::u16string_view text) {
  std::string bytes(text.size(), '\0');
  CopyAscii(text, bytes.data());
  return bytes;
}

inline std::u16string WidenAscii(std::string_view bytes) {
  std::u16string text(bytes.size(), u'\0');
  CopyAscii(bytes, text.data());
  return text;
}

}  // namespace vestrel::platform
