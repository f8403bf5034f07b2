// The order of an object among others of its kind, as lists search and sort by it. Implemented by the boxed
// values, buttons, pages and by hosts. A plain IComparable can be made too: it equals everything.
// Signs: negative when this object comes first, 0 when equal, positive when it comes after.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/Object.h"
#include "core/SortKey.h"
#include "core/Variant.h"

namespace vestrel {

class IComparable : public virtual Object {
 public:
  VESTREL_OBJECT(IComparable)

  // Compares with `other`. `field` names the field of a record to compare by; "all" means the whole value.
  // Implementations raise 13 for an `other` of another kind and 91 for none.
  virtual std::int32_t CompareTo(Object* other, std::u16string_view field = u"all");
  // Compares the field `fieldName` with a plain value: 0 when equal. For a field that they do not have
  // implementations raise or answer other than 0.
  virtual std::int32_t FieldCompare(std::u16string_view fieldName, const Variant& value);
  // For the library's own sort: whether CompareTo between objects of one kind, by this field, has the sign of
  // the difference of their keys and no other effect. By default there is no key.
  virtual bool SortKeyFor(std::u16string_view field, SortKey& key) const;
};

inline std::int32_t IComparable::CompareTo(Object* /*other*/, std::u16string_view /*field*/) {
  return 0;
}

inline std::int32_t IComparable::FieldCompare(std::u16string_view /*fieldName*/, const Variant& /*value*/) {
  return 0;
}

inline bool IComparable::SortKeyFor(std::u16string_view /*field*/, SortKey& /*key*/) const {
  return false;
}

}  // namespace vestrel
