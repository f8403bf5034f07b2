#include <gtest/gtest.h>

#include "workbench/commands/OperationTable.h"

namespace vestrel::workbench {
namespace {

TEST(OperationTableTest, FindsByExactNameAndSuggestsAnotherLetterCase) {
  const OperationTable table;
  ASSERT_NE(table.Find("controlClicked"), nullptr);
  EXPECT_EQ(table.Find("ControlClicked"), nullptr);
  EXPECT_EQ(table.Similar("CONTROLCLICKED"), "controlClicked");
  EXPECT_EQ(table.Similar("controlClick"), "");
}

TEST(OperationTableTest, NoNameIsThereTwice) {
  std::size_t declared = 0;
  for (const auto operations :
       {ShowOperations, InputOperations, LayoutOperations, EditingOperations, FaderOperations,
        NotificationOperations, ButtonOperations, PageManagerOperations, LampOperations, RecordOperations,
        MultiFileOperations, StaticOperations, GlobalOperations, HostOperations, StateOperations}) {
    declared += operations().size();
  }
  EXPECT_EQ(OperationTable().all().size(), declared);
}

TEST(OperationTableTest, EveryOperationNamesAllItsParameters) {
  const OperationTable table;
  for (const auto& [name, operation] : table.all()) {
    EXPECT_EQ(operation.parameters.size(), operation.kinds.size()) << name;
  }
}

TEST(OperationTableTest, UsageShowsWhatMayBeLeftOut) {
  const OperationTable table;
  EXPECT_EQ(table.Find("releaseButtonsOnPage")->Usage(),
            "releaseButtonsOnPage groupIndex [onlyType] [excludeButton]");
  EXPECT_EQ(table.Find("GetUIFaderValues")->Usage(), "GetUIFaderValues");
}

}  // namespace
}  // namespace vestrel::workbench
