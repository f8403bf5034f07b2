#include <gtest/gtest.h>

#include "workbench/host/Stage.h"

namespace vestrel::workbench {
namespace {

Ref<clsButton> Button(std::int32_t index, PlayStateEnum state) {
  auto button = MakeRef<clsButton>();
  button->InitWithValues(nullptr, 1, index, u"Intro", ButtonType_Sequence, nullptr);
  button->setPlayState(state, PSEventSource_User, 1, 0, 0, 0, true);
  return button;
}

TEST(StageTest, AButtonThatIsOnPlaysAtItsTriggeredLevel) {
  Stage stage;
  const Ref<clsButton> button = Button(1, PlayState_On);
  button->triggeredDimmerValue = 60;
  stage.Follow(*button, 1000);
  ASSERT_EQ(stage.items().size(), 1U);
  EXPECT_EQ(stage.items()[0].level, 60);
  EXPECT_EQ(stage.items()[0].startedAt, 1000U);
}

TEST(StageTest, AButtonThatGoesOffStopsItsItemAlone) {
  Stage stage;
  const Ref<clsButton> first = Button(1, PlayState_On);
  const Ref<clsButton> second = Button(2, PlayState_On);
  stage.Follow(*first, 0);
  stage.Follow(*second, 0);
  first->setPlayState(PlayState_Off, PSEventSource_User, 1, 0, 0, 0, true);
  stage.Follow(*first, 5);
  ASSERT_EQ(stage.items().size(), 1U);
  EXPECT_EQ(stage.items()[0].button, second);
}

TEST(StageTest, LevelsAndGoesReachOnlyWhatPlays) {
  Stage stage;
  const Ref<clsButton> playing = Button(1, PlayState_On);
  const Ref<clsButton> silent = Button(2, PlayState_Off);
  stage.Follow(*playing, 0);
  stage.SetLevel(*playing, 30);
  stage.SetLevel(*silent, 30);
  stage.Go(*playing);
  stage.Go(*silent);
  ASSERT_EQ(stage.items().size(), 1U);
  EXPECT_EQ(stage.items()[0].level, 30);
  EXPECT_EQ(stage.items()[0].goes, 1);
}

}  // namespace
}  // namespace vestrel::workbench
