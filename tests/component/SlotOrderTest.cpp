// The slots of every class are fixed for ever: hosts were compiled against them. The list in slots.txt is
// kept by hand; nothing in it may move, new lines go to the end of a class.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "component/writers/SlotWriter.h"

namespace vestrel::component {
namespace {

TEST(SlotOrderTest, EveryClassHasItsSlotsInTheFixedOrder) {
  std::ifstream file(VESTREL_SLOTS_FILE);
  std::stringstream fixed;
  fixed << file.rdbuf();
  ASSERT_FALSE(fixed.str().empty());
  std::ostringstream actual;
  WriteSlots(actual);
  EXPECT_EQ(actual.str(), fixed.str());
}

}  // namespace
}  // namespace vestrel::component
