#include <gtest/gtest.h>

#include <fstream>
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

// The ids are fixed for ever: hosts were compiled with them. The list in ids.txt is kept by hand; nothing in
// it may change.
TEST(IdsTest, IdsHaveNotChanged) {
  std::set<std::string> actual{"library " + ToText(LibraryId()),
                               "TUIFaderValues " + ToText(IdOfType("TUIFaderValues"))};
  for (const ClassDescription& description : AllDescriptions()) {
    const ClassIds& ids = IdsOf(description.name());
    actual.insert(std::string(description.name()) + " interface " + ToText(ids.interfaceId) + " class " +
                  ToText(ids.classId));
  }
  for (const EnumerationDescription& description : AllEnumerations()) {
    actual.insert(std::string(description.name) + " " + ToText(IdOfType(description.name)));
  }
  std::ifstream file(VESTREL_IDS_FILE);
  std::set<std::string> fixed;
  for (std::string line; std::getline(file, line);) fixed.insert(line);
  EXPECT_EQ(actual, fixed);
}

TEST(IdsTest, AnUnknownNameHasNoId) {
  EXPECT_THROW(IdsOf("clsNothing"), std::logic_error);
  EXPECT_THROW(IdOfType("clsButton"), std::logic_error);
}

}  // namespace
}  // namespace vestrel::component
