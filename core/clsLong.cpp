#include "core/clsLong.h"

#include "core/Cast.h"
#include "util/modLog.h"
#include "util/modUtils.h"

namespace vestrel {

std::int32_t clsLong::CompareTo(Object* other, std::u16string_view /*field*/) {
  const std::int32_t theirs = Cast<clsLong>(other).value_;
  if (value_ == theirs) return 0;
  return value_ < theirs ? -1 : 1;
}

std::int32_t clsLong::FieldCompare(std::u16string_view /*fieldName*/, const Variant& /*value*/) {
  modLog::Log(u"IComparable_FieldCompare not implemented (or necessary!) in clsLong", LogLevel_1_SEVERE);
  modUtils::Assert(false);
  return 0;
}

bool clsLong::SortKeyFor(std::u16string_view /*field*/, SortKey& key) const {
  key = {KeyOf<clsLong>(), value_};
  return true;
}

Ref<clsLong> BoxLong(std::int32_t value) {
  Ref<clsLong> box = MakeRef<clsLong>();
  box->SetValue(value);
  return box;
}

}  // namespace vestrel
