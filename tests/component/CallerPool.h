// Objects and values for callers that mean no good: some of every kind, well and badly chosen.
#pragma once

#if defined(VESTREL_SANITIZED)
#include <sanitizer/lsan_interface.h>
#endif

#include <vector>

#include "component/ByName.h"
#include "component/ClassInfo.h"
#include "component/ValueArray.h"
#include "storage/TextFile.h"
#include "tests/support/Errors.h"

namespace vestrel::test {

inline std::vector<Variant> OddValues() {
  auto array = MakeRef<component::ValueArray>();
  array->items = {Variant(1), Variant(u"two"), Variant()};
  return {Variant(),
          Variant(true),
          Variant(0),
          Variant(-1),
          Variant(3),
          Variant(2147483647),
          Variant(std::int32_t{-2147483647 - 1}),
          Variant(1e300),
          Variant(0.5),
          Variant(u""),
          Variant(u"all"),
          Variant(u"12"),
          Variant(u"no number"),
          Variant(std::u16string(3000, u'x')),
          Variant(Ref<Object>()),
          Variant(array),
          Variant(MakeRef<component::ValueArray>())};
}

// One new object of each class.
inline std::vector<Ref<Object>> OneOfEach() {
  std::vector<Ref<Object>> result;
  for (const component::ClassInfo* info : component::AllClasses()) result.push_back(info->create());
  return result;
}

// Such callers tie objects in circles, a list in itself, which counted references never let go. What is made
// while one of these lives is not told as leaked.
struct CirclesAllowed {
  CirclesAllowed() {}
#if defined(VESTREL_SANITIZED)
  __lsan::ScopedDisabler disabler;
#endif
};

// Closes what callers left open, before the files in memory go.
inline void CloseTextFiles() {
  for (std::int32_t number = 1; number <= TextFile::kHighestNumber; ++number)
    RaisedNumber([&] { TextFile::Close(number); });
}

}  // namespace vestrel::test
