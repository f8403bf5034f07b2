// One argument of the formatter: a view of a value that must outlive the call, never a copy of it. Made
// implicitly from plain values, texts and dynamic values.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/Object.h"
#include "core/Variant.h"

namespace vestrel::modSprintf {

class FormatArg {
 public:
  enum class Kind : std::uint8_t { Nothing, Boolean, Long, Double, Text, InOutText, Object };

  constexpr FormatArg() noexcept : long_(0) {}
  // A template, so that a pointer does not turn into a boolean.
  template <std::same_as<bool> Boolean>
  FormatArg(Boolean value) noexcept
      : kind_(Kind::Boolean), long_(value ? -1 : 0) {}  // NOLINT(google-explicit-constructor)
  FormatArg(std::int32_t value) noexcept
      : kind_(Kind::Long), long_(value) {}  // NOLINT(google-explicit-constructor)
  FormatArg(double value) noexcept
      : kind_(Kind::Double), double_(value) {}  // NOLINT(google-explicit-constructor)
  FormatArg(std::u16string_view text) noexcept
      : kind_(Kind::Text), text_(text) {}  // NOLINT(google-explicit-constructor)
  FormatArg(const std::u16string& text) noexcept
      : kind_(Kind::Text), text_(text) {}  // NOLINT(google-explicit-constructor)
  FormatArg(const char16_t* text) noexcept
      : kind_(Kind::Text), text_(text) {}  // NOLINT(google-explicit-constructor)
  // A text that the conversion "%n" writes to; as any other argument it reads as its text.
  FormatArg(std::u16string* text) noexcept
      : kind_(Kind::InOutText), inOut_(text) {}  // NOLINT(google-explicit-constructor)
  // An object stands for its own value, where it has one.
  FormatArg(const Variant& value) noexcept;  // NOLINT(google-explicit-constructor)

  Kind kind() const noexcept { return kind_; }

  // Each of these requires the matching kind.
  std::int32_t AsLong() const noexcept { return long_; }  // Long, and Boolean as -1 or 0
  double AsDouble() const noexcept { return double_; }
  std::u16string_view AsText() const noexcept { return kind_ == Kind::InOutText ? *inOut_ : text_; }
  std::u16string* AsInOutText() const noexcept { return inOut_; }
  vestrel::Object* AsObject() const noexcept { return object_; }

 private:
  Kind kind_ = Kind::Nothing;
  union {
    std::int32_t long_;
    double double_;
    std::u16string_view text_;
    std::u16string* inOut_;
    vestrel::Object* object_;
  };
};

}  // namespace vestrel::modSprintf
