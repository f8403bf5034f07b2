#include <gmock/gmock.h>

#include "core/Ref.h"
#include "tests/support/Errors.h"
#include "tests/support/LogFixture.h"
#include "util/GlobalButtons.h"

namespace vestrel {
namespace {

using testing::ElementsAre;

class GlobalButtonsTest : public test::LogFixture {
 protected:
  Ref<GlobalButtons> buttons = MakeRef<GlobalButtons>();
};

TEST_F(GlobalButtonsTest, StartsEmpty) {
  EXPECT_FALSE(buttons->LoggingEnabled());
  EXPECT_FALSE(buttons->CountButton());
  EXPECT_EQ(buttons->NewButton(), u"");
  EXPECT_EQ(buttons->getButtonEditing(), u"");
  EXPECT_EQ(buttons->getButtonIndex(), 0);
  EXPECT_EQ(buttons->getButtonMoving(), 0);
  EXPECT_EQ(buttons->getButtonX(), 0);
  EXPECT_EQ(buttons->getButtonY(), 0);
  EXPECT_EQ(buttons->getButtonDown(), 0);
}

TEST_F(GlobalButtonsTest, KeepsEachValue) {
  buttons->SetCountButton(true);
  buttons->SetNewButton(u"new");
  buttons->setButtonEditing(u"Intro");
  buttons->setButtonIndex(1);
  buttons->setButtonMoving(2);
  buttons->setButtonX(3);
  buttons->setButtonY(4);
  buttons->setButtonDown(5);
  EXPECT_TRUE(buttons->CountButton());
  EXPECT_EQ(buttons->NewButton(), u"new");
  EXPECT_EQ(buttons->getButtonEditing(), u"Intro");
  EXPECT_EQ(buttons->getButtonIndex(), 1);
  EXPECT_EQ(buttons->getButtonMoving(), 2);
  EXPECT_EQ(buttons->getButtonX(), 3);
  EXPECT_EQ(buttons->getButtonY(), 4);
  EXPECT_EQ(buttons->getButtonDown(), 5);
  EXPECT_TRUE(LogLines().empty());
}

TEST_F(GlobalButtonsTest, TracesTheCallerAndItsAccesses) {
  buttons->SetLoggingEnabled(true);
  buttons->setCaller(u"frmEdit");
  buttons->setButtonIndex(5);
  buttons->getButtonIndex();
  EXPECT_THAT(LogLines(), ElementsAre("[Info] global buttons log: frmEdit:",
                                      "[Info] global buttons log:  - WRITE ButtonIndex (5)",
                                      "[Info] global buttons log:  - READ ButtonIndex (5)"));
}

TEST_F(GlobalButtonsTest, NamesEachValueInTheTrace) {
  buttons->SetLoggingEnabled(true);
  buttons->setButtonEditing(u"a)\\n%d");
  buttons->getButtonEditing();
  buttons->setButtonMoving(-1);
  buttons->getButtonMoving();
  buttons->setButtonX(2);
  buttons->getButtonX();
  buttons->setButtonY(3);
  buttons->getButtonY();
  buttons->setButtonDown(4);
  buttons->getButtonDown();
  const std::string start = "[Info] global buttons log:  - ";
  EXPECT_THAT(
      LogLines(),
      ElementsAre(start + "WRITE ButtonEditing (a)\\n%d)", start + "READ ButtonEditing (a)\\n%d)",
                  start + "WRITE ButtonMoving (-1)", start + "READ ButtonMoving (-1)",
                  start + "WRITE ButtonX (2)", start + "READ ButtonX (2)", start + "WRITE ButtonY (3)",
                  start + "READ ButtonY (3)", start + "WRITE ButtonDown (4)", start + "READ ButtonDown (4)"));
}

TEST_F(GlobalButtonsTest, PlainValuesAreNeverTraced) {
  buttons->SetLoggingEnabled(true);
  buttons->SetCountButton(true);
  buttons->SetNewButton(u"x");
  buttons->SetLoggingEnabled(false);
  buttons->setCaller(u"frmEdit");
  buttons->setButtonX(1);
  EXPECT_TRUE(LogLines().empty());
}

TEST_F(GlobalButtonsTest, AFailingLogFailsTheAccessAfterTheValueIsStored) {
  buttons->SetLoggingEnabled(true);
  files.FailCall(1, platform::FileStatus::AccessDenied);
  EXPECT_RAISES(75, buttons->setButtonX(9));
  files.FailNothing();
  EXPECT_EQ(buttons->getButtonX(), 9);
}

}  // namespace
}  // namespace vestrel
