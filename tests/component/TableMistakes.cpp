// Compiled, not run: with STATE_right everything here is a proper table, with STATE_wrong the one mistake
// that is chosen by MISTAKE_... is in it and the compiler has to refuse.
#include "component/Table.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"

namespace vestrel::component {

#ifdef STATE_wrong
constexpr bool kWrong = true;
#else
constexpr bool kWrong = false;
#endif

#if defined(MISTAKE_Count)
constexpr auto kTable = [] {
  if constexpr (kWrong) {
    return Method<&clsObjectList::AddItemBefore>("AddItemBefore", "", "item");
  } else {
    return Method<&clsObjectList::AddItemBefore>("AddItemBefore", "", "item", "before");
  }
}();
#elif defined(MISTAKE_Direction)
constexpr auto kTable =
    Method<&clsIterator::hasNextLong>("hasNextLong", "", kWrong ? Parameter("outLong") : Out("outLong"));
#elif defined(MISTAKE_DefaultType)
constexpr auto kTable = Method<&clsObjectList::FindObjectValue>(
    "FindObjectValue", "", "valueObj", kWrong ? Optional("field", 1) : Optional("field", u"all"));
#elif defined(MISTAKE_WrongMember)
#ifdef STATE_wrong
constexpr auto kTable = Method<&clsLong::NoSuchMember>("value", "");
#else
constexpr auto kTable = Get<&clsLong::value>("value", "");
#endif
#endif

static_assert(std::tuple_size_v<decltype(kTable)> == 1);

}  // namespace vestrel::component
