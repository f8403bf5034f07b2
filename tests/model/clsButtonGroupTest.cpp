#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/clsButtonGroup.h"
#include "tests/model/RecordingController.h"
#include "tests/support/Ending.h"

namespace vestrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Ref<clsButton> ButtonAt(std::int32_t index) {
  auto button = MakeRef<clsButton>();
  button->InitWithValues(nullptr, 4, index, u"n", ButtonType_Sequence, nullptr);
  return button;
}

TEST(clsButtonGroupTest, ANewGroupIsEmptyWithAFaderAtZero) {
  const auto group = MakeRef<clsButtonGroup>();
  group->Init(4, nullptr);
  EXPECT_EQ(group->groupIndex(), 4);
  EXPECT_EQ(group->pageOffset, 0);
  EXPECT_EQ(group->buttons->Size(), 0);
  EXPECT_EQ(group->nowPlayingList->Size(), 0);
  EXPECT_FALSE(group->highlightedButton);
  EXPECT_EQ(group->Fader()->value(), 0);
  EXPECT_FALSE(group->Fader()->Engaged());
}

TEST(clsButtonGroupTest, TheEndOfWhatInitReplacesFindsTheNewLists) {
  const auto group = MakeRef<clsButtonGroup>();
  group->Init(4, nullptr);
  const auto add = [&] {
    group->buttons->AddItem(ButtonAt(1).get());
    group->nowPlayingList->AddItem(ButtonAt(1).get());
  };
  {
    const auto guest = MakeRef<clsButton>();
    guest->Init(MakeRef<test::Ending<IButtonEventHandler>>(add).get(), nullptr);
    group->buttons->AddItem(guest.get());
  }
  group->Init(5, nullptr);
  EXPECT_EQ(group->groupIndex(), 5);
  EXPECT_EQ(group->buttons->Size(), 1);
  EXPECT_EQ(group->nowPlayingList->Size(), 1);
}

TEST(clsButtonGroupTest, InitStartsOver) {
  const auto group = MakeRef<clsButtonGroup>();
  group->Init(4, nullptr);
  group->highlightedButton = ButtonAt(1);
  group->pageOffset = 3;
  group->buttons->AddItem(ButtonAt(1).get());
  group->Fader()->SetValue(50);
  group->Init(5, nullptr);
  EXPECT_EQ(group->groupIndex(), 5);
  EXPECT_FALSE(group->highlightedButton);
  EXPECT_EQ(group->pageOffset, 0);
  EXPECT_EQ(group->buttons->Size(), 0);
  EXPECT_EQ(group->Fader()->value(), 0);
}

TEST(clsButtonGroupTest, TheControllerHearsOfButtonsWithTheGroupAsUserData) {
  const auto controller = MakeRef<test::RecordingController>();
  const auto group = MakeRef<clsButtonGroup>();
  group->Init(4, controller.get());
  group->buttons->AddItem(ButtonAt(1).get());
  group->buttons->AddItemBefore(ButtonAt(2).get(), 0);
  group->buttons->Remove(1);
  group->buttons->Clear();
  EXPECT_THAT(controller->Take(),
              ElementsAre("ItemAdded n@4/1 at 0 group 4", "ItemAdded n@4/2 at 0 group 4",
                          "ItemRemoved n@4/1 from 1 group 4", "ItemRemoved n@4/2 from 0 group 4"));
}

TEST(clsButtonGroupTest, NobodyHearsOfTheNowPlayingList) {
  const auto controller = MakeRef<test::RecordingController>();
  const auto group = MakeRef<clsButtonGroup>();
  group->Init(4, controller.get());
  group->nowPlayingList->AddItem(ButtonAt(1).get());
  group->nowPlayingList->Clear();
  EXPECT_THAT(controller->Take(), IsEmpty());
}

TEST(clsButtonGroupTest, AListOutlivesItsGroupAndItsController) {
  auto controller = MakeRef<test::RecordingController>();
  auto group = MakeRef<clsButtonGroup>();
  group->Init(4, controller.get());
  const auto buttons = group->buttons;
  controller = nullptr;
  group = nullptr;
  buttons->AddItem(ButtonAt(1).get());
  EXPECT_EQ(buttons->Size(), 1);
}

TEST(clsButtonGroupTest, GoesWithItsListsAndButtons) {
  const auto controller = MakeRef<test::RecordingController>();
  const long before = Object::LiveCount();
  {
    const auto group = MakeRef<clsButtonGroup>();
    group->Init(4, controller.get());
    const auto button = ButtonAt(1);
    group->buttons->AddItem(button.get());
    group->nowPlayingList->AddItem(button.get());
    group->highlightedButton = button;
  }
  EXPECT_EQ(Object::LiveCount(), before);
}

}  // namespace
}  // namespace vestrel
