#include <gtest/gtest.h>

#include "recording/vxEvent.h"
#include "tests/recording/RecordingFixture.h"

namespace vestrel {
namespace {

using vxEventTest = test::RecordingFixture;

TEST_F(vxEventTest, IsAllZeroAtFirst) {
  const Ref<vxEvent> event = MakeRef<vxEvent>();
  EXPECT_EQ(event->time(), 0);
  EXPECT_FALSE(event->button);
  EXPECT_EQ(event->eventType, vxEvent_ButtonOn);
  EXPECT_EQ(event->mouseButton, 0);
  EXPECT_EQ(event->shift, 0);
  EXPECT_EQ(event->x, 0);
  EXPECT_EQ(event->y, 0);
}

TEST_F(vxEventTest, InitSetsThreeFieldsAndSetExtrasTheOthers) {
  const Ref<clsButton> button = Button(u"a");
  const Ref<vxEvent> event = MakeRef<vxEvent>();
  event->SetExtras(1, 2, 3.5F, -4.25F);
  event->Init(-123, button.get(), vxEvent_ButtonOff);
  EXPECT_EQ(event->time(), -123);
  EXPECT_EQ(event->button, button);
  EXPECT_EQ(event->eventType, vxEvent_ButtonOff);
  EXPECT_EQ(event->mouseButton, 1);
  EXPECT_EQ(event->shift, 2);
  EXPECT_EQ(event->x, 3.5F);
  EXPECT_EQ(event->y, -4.25F);
}

TEST_F(vxEventTest, KeepsItsButtonAlive) {
  const long before = Object::LiveCount();
  Ref<vxEvent> event = Event(1, u"a");
  EXPECT_EQ(event->button->name, u"a");
  event = nullptr;
  EXPECT_EQ(Object::LiveCount(), before);
}

TEST_F(vxEventTest, CountsChangesOfTimesAlone) {
  const Ref<vxEvent> event = MakeRef<vxEvent>();
  const std::uint64_t before = vxEvent::TimeChanges();
  event->SetTime(0);
  event->mouseButton = 5;
  EXPECT_EQ(vxEvent::TimeChanges(), before);
  event->SetTime(1);
  EXPECT_EQ(vxEvent::TimeChanges(), before + 1);
}

}  // namespace
}  // namespace vestrel
