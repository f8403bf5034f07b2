// What lives as long as what: shows and controllers are loaded, replaced and dropped, and objects counted.
#include <memory>
#include <utility>

#include "tests/controller/ControllerFixture.h"

namespace vestrel::test {
namespace {

class controllerLifetimeTest : public ControllerFixture {
 protected:
  controllerLifetimeTest() {
    NewShow();
    for (std::int32_t group = 0; group <= 9; ++group) {
      for (std::int32_t index = 1; index <= 5; ++index) {
        controller->assignButton(group, index, u"b", ButtonType_Sequence);
      }
    }
    controller->AddPage(u"Act 2");
    controller->SetPage(u"Act 2");
    controller->assignButton(2, 1, u"c", ButtonType_Sequence);
    controller->SetPage(u"Act 1");
  }
};

TEST_F(controllerLifetimeTest, ADroppedControllerTakesItsShowsWithIt) {
  controller = nullptr;
  const long without = Object::LiveCount();
  for (int round = 0; round < 3; ++round) {
    Start();
    controller->LoadShow(u"Gala");
    Click(33);
    controller->LoadShow(u"Gala");
    controller->CreateNewShow(u"Encore");
    controller->formShutdown();
    controller = nullptr;
    EXPECT_EQ(Object::LiveCount(), without);
  }
}

TEST_F(controllerLifetimeTest, AReplacedShowGoesAtOnce) {
  controller->CreateNewShow(u"Empty");
  controller->AddPage(u"Act 1");
  const long empty = Object::LiveCount();
  for (int round = 0; round < 3; ++round) {
    for (std::int32_t index = 1; index <= 5; ++index) {
      controller->assignButton(2, index, u"b", ButtonType_Sequence);
    }
    EXPECT_GT(Object::LiveCount(), empty);
    controller->CreateNewShow(u"Empty");
    controller->AddPage(u"Act 1");
    EXPECT_EQ(Object::LiveCount(), empty);
  }
}

TEST_F(controllerLifetimeTest, WhatTheDeferredListHoldsStaysAsLongAsTheController) {
  controller->LoadShow(u"Gala");
  const long once = Object::LiveCount();
  controller->LoadShow(u"Gala");
  const long twice = Object::LiveCount();
  controller->LoadShow(u"Gala");
  // Each load adds the two pages with their buttons and a record a button, and frees what holds no record.
  EXPECT_EQ(Object::LiveCount() - twice, twice - once);
  EXPECT_GE(twice - once, 2 * 51);
}

TEST_F(controllerLifetimeTest, TheEditButtonAndTheSourcePageGoWithTheShow) {
  const Ref<clsButton> button = controller->buttonWithIndex(2, 1);
  Pick(*button);
  controller->setModeMove();
  EXPECT_EQ(button->Page(), Page());
  controller->CreateNewShow(u"Encore");
  EXPECT_FALSE(button->Page());
}

TEST_F(controllerLifetimeTest, AButtonThatAHostKeptStaysUsableWithoutItsShow) {
  const Ref<clsButton> button = controller->buttonWithIndex(2, 1);
  const Ref<clsButtonGroup> group = Group(2);
  const Ref<clsObjectList> list = group->buttons;
  controller = nullptr;
  button->setPlayState(PlayState_On, PSEventSource_User, 1, 0, 0, 0);
  EXPECT_EQ(button->playState(), PlayState_On);
  button->SetLocked(true);
  EXPECT_FALSE(button->Page());
  EXPECT_TRUE(button->Copy());
  list->Remove(0);
  list->Clear();
  EXPECT_EQ(list->Size(), 0);
}

TEST_F(controllerLifetimeTest, APageThatAHostKeptStaysUsableWithoutItsController) {
  const Ref<clsPage> page = Page();
  controller = nullptr;
  page->saveToINI();
  page->loadFromINI();
  page->GotFocus();
  page->LostFocus();
  EXPECT_EQ(page->ButtonGroups(2)->buttons->Size(), 5);
}

TEST_F(controllerLifetimeTest, AControllerKeepsItsHostAndLetsItGo) {
  std::weak_ptr<int> hostAlive;
  {
    auto token = std::make_shared<int>(0);
    hostAlive = token;
    class Form final : public virtual IFormSequenceShortcuts {
     public:
      explicit Form(std::shared_ptr<int> held) : token(std::move(held)) {}
      std::shared_ptr<int> token;
    };
    const auto owned = MakeRef<Form>(std::move(token));
    controller->Init(owned.get(), kApp, lamps.get(), recorder.get());
  }
  EXPECT_FALSE(hostAlive.expired());
  controller = nullptr;
  EXPECT_TRUE(hostAlive.expired());
}

TEST_F(controllerLifetimeTest, AHostThatUsesTheControllerWhileItGoesFindsNone) {
  class Form final : public virtual IFormSequenceShortcuts {
   public:
    Ref<clsButton> button;
    ~Form() override {
      button->setPlayState(PlayState_On, PSEventSource_User, 1, 0, 0, 0);
      button->SetLocked(true);
    }
  };
  auto owned = MakeRef<Form>();
  owned->button = controller->buttonWithIndex(2, 1);
  controller->Init(owned.get(), kApp, lamps.get(), recorder.get());
  owned = nullptr;
  controller = nullptr;
  SUCCEED();
}

}  // namespace
}  // namespace vestrel::test
