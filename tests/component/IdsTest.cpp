#include <gtest/gtest.h>

#include <set>
#include <string>

#include "component/ClassDescription.h"
#include "component/Enumerations.h"
#include "component/Ids.h"

namespace vestrel::component {
namespace {

TEST(IdsTest, EveryIdIsUsedOnce) {
  std::set<std::string> ids{ToText(LibraryId()), ToText(IdOfType("TUIFaderValues"))};
  std::size_t count = 2;
  for (const ClassDescription& description : AllDescriptions()) {
    ids.insert(ToText(IdsOf(description.name()).interfaceId));
    ids.insert(ToText(IdsOf(description.name()).classId));
    count += 2;
  }
  for (const EnumerationDescription& description : AllEnumerations()) {
    ids.insert(ToText(IdOfType(description.name)));
    ++count;
  }
  EXPECT_EQ(ids.size(), count);
}

// A few are written down here as well, so that the file of ids cannot be made anew unnoticed.
TEST(IdsTest, IdsHaveNotChanged) {
  EXPECT_EQ(ToText(LibraryId()), "3FA5C2F7-0C9A-4C12-B15E-5A820E769D59");
  EXPECT_EQ(ToText(IdsOf("clsObjectList").interfaceId), "AA2FE2F4-1FF2-4306-B229-A52F51BF92E2");
  EXPECT_EQ(ToText(IdsOf("clsObjectList").classId), "4495C427-7F4D-466C-AB8A-6DB6517863BE");
}

TEST(IdsTest, AnUnknownNameHasNoId) {
  EXPECT_THROW(IdsOf("clsNothing"), std::logic_error);
  EXPECT_THROW(IdOfType("clsButton"), std::logic_error);
}

}  // namespace
}  // namespace vestrel::component
