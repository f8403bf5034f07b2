#include <cmath>
#include <limits>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/Error.h"
#include "core/HasValue.h"

namespace vestrel {
namespace {

// Not by the floating-point unit's rounding mode, which a host may have changed.
double RoundHalvesToEven(double value) noexcept {
  const double whole = std::trunc(value);
  if (std::abs(value - whole) == 0.5) return 2 * std::round(value / 2);
  return std::round(value);
}

template <class Integer>
Integer RoundInto(double value) {
  const double rounded = RoundHalvesToEven(value);
  // Written so that a value that is no number overflows, too.
  if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
    RaiseError(Error_Overflow);
  }
  return static_cast<Integer>(rounded);
}

// The value that an object stands for. Raises 91 for none and 13 for an object without one.
Variant ValueOf(const Ref<Object>& object) {
  if (!object) RaiseError(Error_ObjectNotSet);
  const auto* holder = static_cast<HasValue*>(object->Query(KeyOf<HasValue>()));
  if (holder == nullptr) RaiseError(Error_TypeMismatch);
  Variant value = holder->DefaultValue();
  if (value.kind() == Variant::Kind::Object) RaiseError(Error_TypeMismatch);
  return value;
}

}  // namespace

bool IsNumeric(const Variant& value) {
  switch (value.kind()) {
    case Variant::Kind::Boolean:
    case Variant::Kind::Long:
    case Variant::Kind::Double:
      return true;
    case Variant::Kind::String:
      return IsNumericText(value.AsString());
    default:
      return false;
  }
}

std::u16string ToText(const Variant& value) {
  switch (value.kind()) {
    case Variant::Kind::Boolean:
      return std::u16string(BooleanToText(value.AsBoolean()));
    case Variant::Kind::Long:
      return LongToText(value.AsLong());
    case Variant::Kind::Double:
      return DoubleToText(value.AsDouble());
    case Variant::Kind::String:
      return value.AsString();
    case Variant::Kind::Object:
      return ToText(ValueOf(value.AsObject()));
    case Variant::Kind::Empty:
      break;
  }
  return {};
}

double ToDouble(const Variant& value) {
  switch (value.kind()) {
    case Variant::Kind::Boolean:
      return value.AsBoolean() ? -1 : 0;
    case Variant::Kind::Long:
      return value.AsLong();
    case Variant::Kind::Double:
      return value.AsDouble();
    case Variant::Kind::String:
      return TextToDouble(value.AsString());
    case Variant::Kind::Object:
      return ToDouble(ValueOf(value.AsObject()));
    case Variant::Kind::Empty:
      break;
  }
  return 0;
}

std::int32_t ToLong(const Variant& value) {
  if (value.kind() == Variant::Kind::Long) return value.AsLong();
  if (value.kind() == Variant::Kind::String) return TextToLong(value.AsString());
  if (value.kind() == Variant::Kind::Object) return ToLong(ValueOf(value.AsObject()));
  return RoundInto<std::int32_t>(ToDouble(value));
}

std::int16_t ToShort(const Variant& value) {
  if (value.kind() == Variant::Kind::String) return TextToShort(value.AsString());
  if (value.kind() == Variant::Kind::Object) return ToShort(ValueOf(value.AsObject()));
  return RoundInto<std::int16_t>(ToDouble(value));
}

bool ToBoolean(const Variant& value) {
  if (value.kind() == Variant::Kind::Boolean) return value.AsBoolean();
  if (value.kind() == Variant::Kind::String) return TextToBoolean(value.AsString());
  if (value.kind() == Variant::Kind::Object) return ToBoolean(ValueOf(value.AsObject()));
  return ToDouble(value) != 0;
}

}  // namespace vestrel
