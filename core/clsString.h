// A boxed text, so that plain strings can live in lists. Owned by whoever holds it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/HasValue.h"
#include "core/IComparable.h"
#include "core/Ref.h"

namespace vestrel {

class clsString : public IComparable, public HasValue {
 public:
  VESTREL_OBJECT(clsString, IComparable, HasValue)

  // Empty in a new box.
  const std::u16string& value() const noexcept { return value_; }
  void SetValue(std::u16string_view value) { value_ = value; }

  // By code units, so capitals come first: -1, 0 or 1; `field` is ignored. Raises 13 when `other` is no
  // clsString, 91 for none.
  std::int32_t CompareTo(Object* other, std::u16string_view field = u"all") override;
  // Not supported: logs at LogLevel_1_SEVERE and raises 7155. Boxes are found by value.
  std::int32_t FieldCompare(std::u16string_view fieldName, const Variant& value) override;

  Variant DefaultValue() const override { return value_; }

 private:
  std::u16string value_;
};

// A new box with this value.
Ref<clsString> BoxString(std::u16string_view value);

}  // namespace vestrel
