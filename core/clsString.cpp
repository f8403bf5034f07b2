#include "core/clsString.h"

#include "core/Cast.h"
#include "util/modLog.h"
#include "util/modUtils.h"

namespace vestrel {

std::int32_t clsString::CompareTo(Object* other, std::u16string_view /*field*/) {
  const int order = value_.compare(Cast<clsString>(other).value_);
  if (order == 0) return 0;
  return order < 0 ? -1 : 1;
}

std::int32_t clsString::FieldCompare(std::u16string_view /*fieldName*/, const Variant& /*value*/) {
  modLog::Log(u"IComparable_FieldCompare not implemented (or necessary) in clsString", LogLevel_1_SEVERE);
  modUtils::Assert(false);
  return 0;
}

Ref<clsString> BoxString(std::u16string_view value) {
  Ref<clsString> box = MakeRef<clsString>();
  box->SetValue(value);
  return box;
}

}  // namespace vestrel
