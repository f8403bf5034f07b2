// For tests that call every operation of a class by name: the test EVERY_OPERATION_OF(clsLong) { ... } fails
// when one was left out.
#pragma once

#include <set>
#include <string>

#include "component/ClassDescription.h"
#include "tests/component/Subject.h"
#include "tests/support/LogFixture.h"

namespace vestrel::test {

// The classes that have such a test.
std::set<std::string>& TestedClasses();

class EveryOperation : public LogFixture {
 protected:
  EveryOperation();
  void TearDown() override;

  static Subject Box(std::int32_t number);
  static Subject Box(std::u16string_view text);
  static std::int32_t Unboxed(const Subject& box) { return box.Number(u"value"); }
  // The numbers, or the texts, in a list of boxes: "3 1 2".
  static std::string Boxes(const Subject& list);
};

}  // namespace vestrel::test

#define EVERY_OPERATION_OF(Class)                                                    \
  const bool tested##Class = ::vestrel::test::TestedClasses().insert(#Class).second; \
  TEST_F(EveryOperation, Class)
