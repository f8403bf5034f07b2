// Compiled, not run: as it stands everything here is a proper table; with MISTAKE_... defined one entry has
// that mistake in it and the compiler has to refuse, with the message that the build asks for.
#include "component/Table.h"
#include "core/clsIterator.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"

namespace vestrel::component {

#if defined(MISTAKE_TooFew)
constexpr auto kAdd = Method<&clsObjectList::AddItemBefore>("AddItemBefore", "", "item");
#elif defined(MISTAKE_TooMany)
constexpr auto kAdd = Method<&clsObjectList::AddItemBefore>("AddItemBefore", "", "item", "before", "after");
#elif defined(MISTAKE_WrittenBackNothing)
constexpr auto kAdd = Method<&clsObjectList::AddItemBefore>("AddItemBefore", "", Out("item"), "before");
#else
constexpr auto kAdd = Method<&clsObjectList::AddItemBefore>("AddItemBefore", "", "item", "before");
#endif

#if defined(MISTAKE_NotWrittenBack)
constexpr auto kNext = Method<&clsIterator::hasNextLong>("hasNextLong", "", "outLong");
#else
constexpr auto kNext = Method<&clsIterator::hasNextLong>("hasNextLong", "", Out("outLong"));
#endif

#if defined(MISTAKE_DefaultOfAnotherType)
constexpr auto kFind =
    Method<&clsObjectList::FindObjectValue>("FindObjectValue", "", "valueObj", Optional("field", 1));
#elif defined(MISTAKE_NoneForAText)
constexpr auto kFind =
    Method<&clsObjectList::FindObjectValue>("FindObjectValue", "", "valueObj", Optional("field"));
#else
constexpr auto kFind =
    Method<&clsObjectList::FindObjectValue>("FindObjectValue", "", "valueObj", Optional("field", u"all"));
#endif

#if defined(MISTAKE_IndexOfAPlainProperty)
constexpr auto kValue = Property<&clsLong::value, &clsLong::SetValue>("value", "", "index");
#else
constexpr auto kValue = Property<&clsLong::value, &clsLong::SetValue>("value", "");
#endif

#if defined(MISTAKE_NoSuchMember)
constexpr auto kSize = Method<&clsObjectList::Length>("Size", "");
#else
constexpr auto kSize = Method<&clsObjectList::Size>("Size", "");
#endif

static_assert(std::tuple_size_v<decltype(kValue)> == 2);

}  // namespace vestrel::component
