// A dynamic value as hosts pass them: nothing, a boolean, a 32-bit integer, a floating-point number, a text
// or an object reference. Conversions between them are the rules of core/Convert.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "core/Ref.h"

namespace vestrel {

class Variant {
 public:
  // The order is that of the alternatives below.
  enum class Kind : std::uint8_t { Empty, Boolean, Long, Double, String, Object };

  Variant() noexcept = default;
  Variant(bool value) noexcept : value_(value) {}  // NOLINT(google-explicit-constructor)
  Variant(std::int16_t value) noexcept
      : value_(std::int32_t{value}) {}                                  // NOLINT(google-explicit-constructor)
  Variant(std::int32_t value) noexcept : value_(value) {}               // NOLINT(google-explicit-constructor)
  Variant(double value) noexcept : value_(value) {}                     // NOLINT(google-explicit-constructor)
  Variant(std::u16string value) noexcept : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Variant(std::u16string_view value)
      : value_(std::u16string(value)) {}                             // NOLINT(google-explicit-constructor)
  Variant(const char16_t* value) : value_(std::u16string(value)) {}  // NOLINT(google-explicit-constructor)
  template <class T>
  Variant(Ref<T> value) noexcept
      : value_(Ref<Object>(std::move(value))) {}  // NOLINT(google-explicit-constructor)

  Kind kind() const noexcept { return static_cast<Kind>(value_.index()); }
  bool IsEmpty() const noexcept { return kind() == Kind::Empty; }

  // Each of these requires the matching kind.
  bool AsBoolean() const { return std::get<bool>(value_); }
  std::int32_t AsLong() const { return std::get<std::int32_t>(value_); }
  double AsDouble() const { return std::get<double>(value_); }
  const std::u16string& AsString() const { return std::get<std::u16string>(value_); }
  const Ref<Object>& AsObject() const { return std::get<Ref<Object>>(value_); }

 private:
  std::variant<std::monostate, bool, std::int32_t, double, std::u16string, Ref<Object>> value_;
};

}  // namespace vestrel
