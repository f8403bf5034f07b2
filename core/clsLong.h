// A boxed 32-bit integer, so that plain numbers can live in lists. Owned by whoever holds it.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/HasValue.h"
#include "core/IComparable.h"
#include "core/Ref.h"

namespace vestrel {

class clsLong : public IComparable, public HasValue {
 public:
  VESTREL_OBJECT(clsLong, IComparable, HasValue)

  // 0 in a new box.
  std::int32_t value() const noexcept { return value_; }
  void SetValue(std::int32_t value) noexcept { value_ = value; }

  // By number: -1, 0 or 1; `field` is ignored. Raises 13 when `other` is no clsLong, 91 for none.
  std::int32_t CompareTo(Object* other, std::u16string_view field = u"all") override;
  // Not supported: logs at LogLevel_1_SEVERE and raises 7155. Boxes are found by value.
  std::int32_t FieldCompare(std::u16string_view fieldName, const Variant& value) override;

  // The value, whatever the field.
  bool SortKeyFor(std::u16string_view field, SortKey& key) const override;

  Variant DefaultValue() const override { return value_; }

 private:
  std::int32_t value_ = 0;
};

// A new box with this value.
Ref<clsLong> BoxLong(std::int32_t value);

}  // namespace vestrel
