#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/Error.h"
#include "leds/LEDManager.h"

namespace vestrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Writes down every call, and runs what a test hangs into the next call of a kind.
class RecordingSetter : public ILEDSetter {
 public:
  VESTREL_OBJECT(RecordingSetter, ILEDSetter)

  void setLED(std::uint8_t code, std::int16_t bits, bool state) override {
    calls.push_back("setLED " + std::to_string(code) + " " + std::to_string(bits) + (state ? " on" : " off"));
    Run(onSetLED);
  }
  void StartLEDTimer() override {
    calls.emplace_back("start");
    Run(onTimer);
  }
  void EndLEDTimer() override {
    calls.emplace_back("end");
    Run(onTimer);
  }

  std::vector<std::string> Take() { return std::exchange(calls, {}); }

  std::vector<std::string> calls;
  std::function<void()> onSetLED;
  std::function<void()> onTimer;

 private:
  static void Run(std::function<void()>& action) {
    if (!action) return;
    const auto once = std::exchange(action, nullptr);
    once();
  }
};

class LEDManagerTest : public testing::Test {
 protected:
  LEDManagerTest() { leds->Init(setter.get()); }

  Ref<RecordingSetter> setter = MakeRef<RecordingSetter>();
  Ref<LEDManager> leds = MakeRef<LEDManager>();
};

struct Transition {
  const char* name;
  LEDStateEnum from;
  LEDStateEnum to;
  std::vector<std::string> calls;
};

void ReportGroup3(LEDManager& leds, LEDStateEnum state) {
  leds.setButtonsInGroups1To8(3, state != LEDState_Off, state == LEDState_Blinking);
}

void ReportTop17(LEDManager& leds, LEDStateEnum state) {
  leds.setButtonInTop32(17, state != LEDState_Off, state == LEDState_Blinking);
}

TEST_F(LEDManagerTest, EveryChangeOfAGoButtonSendsWhatTheTableSays) {
  const std::vector<Transition> table = {
      {"off to off", LEDState_Off, LEDState_Off, {}},
      {"off to on", LEDState_Off, LEDState_On, {"setLED 245 4 on"}},
      {"off to blinking", LEDState_Off, LEDState_Blinking, {"start", "setLED 245 4 off"}},
      {"on to off", LEDState_On, LEDState_Off, {"setLED 245 4 off"}},
      {"on to on", LEDState_On, LEDState_On, {}},
      {"on to blinking", LEDState_On, LEDState_Blinking, {"start", "setLED 245 4 off"}},
      {"blinking to off", LEDState_Blinking, LEDState_Off, {"end", "setLED 245 4 off"}},
      {"blinking to on", LEDState_Blinking, LEDState_On, {"end", "setLED 245 4 on"}},
      {"blinking to blinking", LEDState_Blinking, LEDState_Blinking, {}},
  };
  for (const Transition& row : table) {
    leds = MakeRef<LEDManager>();
    leds->Init(setter.get());
    ReportGroup3(*leds, row.from);
    setter->Take();
    ReportGroup3(*leds, row.to);
    EXPECT_EQ(setter->Take(), row.calls) << row.name;
  }
}

TEST_F(LEDManagerTest, EveryChangeOfATopButtonSendsWhatTheTableSays) {
  const std::vector<Transition> table = {
      {"off to on", LEDState_Off, LEDState_On, {"setLED 247 1 on"}},
      {"off to blinking", LEDState_Off, LEDState_Blinking, {"start", "setLED 247 1 off"}},
      {"on to off", LEDState_On, LEDState_Off, {"setLED 247 1 off"}},
      {"on to blinking", LEDState_On, LEDState_Blinking, {"start", "setLED 247 1 off"}},
      {"blinking to off", LEDState_Blinking, LEDState_Off, {"end", "setLED 247 1 off"}},
      {"blinking to on", LEDState_Blinking, LEDState_On, {"end", "setLED 247 1 on"}},
  };
  for (const Transition& row : table) {
    leds = MakeRef<LEDManager>();
    leds->Init(setter.get());
    ReportTop17(*leds, row.from);
    setter->Take();
    ReportTop17(*leds, row.to);
    EXPECT_EQ(setter->Take(), row.calls) << row.name;
  }
}

TEST_F(LEDManagerTest, InitSendsNothing) {
  EXPECT_THAT(setter->calls, IsEmpty());
}

TEST_F(LEDManagerTest, TheSameStateIsSentOnce) {
  leds->setButtonsInGroups1To8(1, true, false);
  leds->setButtonsInGroups1To8(1, true, false);
  EXPECT_THAT(setter->calls, ElementsAre("setLED 245 1 on"));
}

TEST_F(LEDManagerTest, AssignedPlayingAssignedStartsAndEndsTheTimer) {
  leds->TimerTick();
  leds->setButtonsInGroups1To8(3, true, false);
  leds->setButtonsInGroups1To8(3, true, true);
  leds->setButtonsInGroups1To8(3, true, false);
  EXPECT_THAT(setter->calls,
              ElementsAre("setLED 245 4 on", "start", "setLED 245 4 on", "end", "setLED 245 4 on"));
}

TEST_F(LEDManagerTest, PlayingBlinksEvenWithoutAssigned) {
  leds->setButtonsInGroups1To8(8, false, true);
  EXPECT_THAT(setter->calls, ElementsAre("start", "setLED 245 128 off"));
}

TEST_F(LEDManagerTest, GroupsOutsideOneToEightAreIgnored) {
  for (const std::int32_t group : {-1, 0, 9, 100}) leds->setButtonsInGroups1To8(group, true, true);
  EXPECT_THAT(setter->calls, IsEmpty());
}

TEST_F(LEDManagerTest, TopButtonsMapToTheirRowAndBit) {
  for (const std::int32_t index : {1, 16, 17, 31, 32}) leds->setButtonInTop32(index, true, false);
  EXPECT_THAT(setter->calls, ElementsAre("setLED 246 1 on", "setLED 246 -32768 on", "setLED 247 1 on",
                                         "setLED 247 16384 on", "setLED 247 -32768 on"));
}

TEST_F(LEDManagerTest, TopButtonsOutsideOneTo32AreOutOfRange) {
  for (const std::int32_t index : {-1, 0, 33}) {
    try {
      leds->setButtonInTop32(index, true, false);
      ADD_FAILURE() << index;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), Error_SubscriptOutOfRange);
    }
  }
  EXPECT_THAT(setter->calls, IsEmpty());
}

TEST_F(LEDManagerTest, TheTimerRunsUntilTheLastLampStopsBlinking) {
  leds->setButtonsInGroups1To8(1, true, true);
  leds->setButtonInTop32(20, true, true);
  setter->Take();
  leds->setButtonsInGroups1To8(1, true, false);
  EXPECT_THAT(setter->Take(), ElementsAre("start", "setLED 245 1 on"));
  leds->setButtonInTop32(20, false, false);
  EXPECT_THAT(setter->Take(), ElementsAre("end", "setLED 247 8 off"));
}

TEST_F(LEDManagerTest, ATickSendsTheBlinkMaskOfEachRowThatHasOne) {
  leds->setButtonsInGroups1To8(1, true, true);
  leds->setButtonsInGroups1To8(2, true, true);
  leds->setButtonInTop32(32, true, true);
  leds->setButtonInTop32(1, true, false);
  setter->Take();
  leds->TimerTick();
  leds->TimerTick();
  EXPECT_THAT(setter->Take(), ElementsAre("setLED 245 3 on", "setLED 247 -32768 on", "setLED 245 3 off",
                                          "setLED 247 -32768 off"));
}

TEST_F(LEDManagerTest, ATickWithNothingBlinkingSendsNothingButTurnsThePhase) {
  leds->TimerTick();
  EXPECT_THAT(setter->Take(), IsEmpty());
  leds->setButtonInTop32(2, true, true);
  EXPECT_THAT(setter->Take(), ElementsAre("start", "setLED 246 2 on"));
}

TEST_F(LEDManagerTest, ClearAllEndsTheTimerAndDarkensTheRowsInOrder) {
  leds->setButtonsInGroups1To8(1, true, false);
  setter->Take();
  leds->clearAll();
  EXPECT_THAT(setter->Take(),
              ElementsAre("end", "setLED 245 -1 off", "setLED 246 -1 off", "setLED 247 -1 off"));
  leds->setButtonsInGroups1To8(1, false, false);
  EXPECT_THAT(setter->Take(), IsEmpty());
  leds->setButtonsInGroups1To8(1, true, false);
  EXPECT_THAT(setter->Take(), ElementsAre("setLED 245 1 on"));
}

TEST_F(LEDManagerTest, ClearAllDarkensTheTopButtonsOfBothRows) {
  for (const std::int32_t index : {1, 16, 17, 32}) leds->setButtonInTop32(index, true, false);
  leds->clearAll();
  setter->Take();
  for (const std::int32_t index : {1, 16, 17, 32}) leds->setButtonInTop32(index, false, false);
  EXPECT_THAT(setter->Take(), IsEmpty());
  for (const std::int32_t index : {1, 16, 17, 32}) leds->setButtonInTop32(index, true, false);
  EXPECT_THAT(setter->Take(), ElementsAre("setLED 246 1 on", "setLED 246 -32768 on", "setLED 247 1 on",
                                          "setLED 247 -32768 on"));
}

TEST_F(LEDManagerTest, ClearAllStartsThePhaseDark) {
  leds->TimerTick();
  leds->clearAll();
  setter->Take();
  leds->setButtonInTop32(1, true, true);
  EXPECT_THAT(setter->Take(), ElementsAre("start", "setLED 246 1 off"));
}

TEST_F(LEDManagerTest, ABlinkBitLeftByClearAllBlinksAgainWithTheTimer) {
  leds->setButtonsInGroups1To8(2, true, true);
  leds->clearAll();
  setter->Take();
  leds->setButtonsInGroups1To8(2, true, false);
  EXPECT_THAT(setter->Take(), ElementsAre("setLED 245 2 on"));  // no word to the timer
  leds->setButtonsInGroups1To8(1, true, true);
  setter->Take();
  leds->TimerTick();
  EXPECT_THAT(setter->Take(), ElementsAre("setLED 245 3 on"));
}

TEST_F(LEDManagerTest, ABlinkBitLeftByClearAllGoesWhenTheLampBlinkedOnceMore) {
  leds->setButtonsInGroups1To8(2, true, true);
  leds->clearAll();
  leds->setButtonsInGroups1To8(2, true, true);
  setter->Take();
  leds->setButtonsInGroups1To8(2, true, false);
  EXPECT_THAT(setter->Take(), ElementsAre("end", "setLED 245 2 on"));
}

TEST_F(LEDManagerTest, InitForgetsWhatBlinksButNotTheLampStates) {
  leds->setButtonsInGroups1To8(2, true, true);
  leds->setButtonsInGroups1To8(3, true, false);
  leds->TimerTick();
  leds->Init(setter.get());
  setter->Take();
  leds->TimerTick();
  leds->setButtonsInGroups1To8(3, true, false);
  leds->setButtonsInGroups1To8(2, true, true);
  EXPECT_THAT(setter->Take(), IsEmpty());
}

TEST_F(LEDManagerTest, InitStartsThePhaseDark) {
  leds->TimerTick();
  leds->Init(setter.get());
  leds->setButtonInTop32(1, true, true);
  EXPECT_THAT(setter->Take(), ElementsAre("start", "setLED 246 1 off"));
}

TEST_F(LEDManagerTest, WithoutAnOutputAChangeRaises91) {
  leds->Init(nullptr);
  EXPECT_THROW(leds->setButtonInTop32(1, true, false), Error);
  EXPECT_THROW(leds->clearAll(), Error);
  EXPECT_NO_THROW(leds->TimerTick());
}

TEST_F(LEDManagerTest, AFailingOutputReachesTheCallerAfterTheStateWasStored) {
  setter->onSetLED = [] { RaiseError(Error_DeviceIO); };
  EXPECT_THROW(leds->setButtonInTop32(1, true, false), Error);
  setter->Take();
  leds->setButtonInTop32(1, true, false);
  EXPECT_THAT(setter->Take(), IsEmpty());
}

TEST_F(LEDManagerTest, AFailingTimerCallReachesTheCallerAndEndsTheReport) {
  setter->onTimer = [] { RaiseError(Error_DeviceIO); };
  EXPECT_THROW(leds->setButtonInTop32(1, true, true), Error);
  EXPECT_THAT(setter->Take(), ElementsAre("start"));
  leds->setButtonInTop32(1, true, true);
  EXPECT_THAT(setter->Take(), IsEmpty());
  setter->onTimer = [] { RaiseError(Error_DeviceIO); };
  EXPECT_THROW(leds->clearAll(), Error);
  EXPECT_THAT(setter->Take(), ElementsAre("end"));
}

TEST_F(LEDManagerTest, AFailingOutputEndsATick) {
  leds->setButtonsInGroups1To8(1, true, true);
  leds->setButtonInTop32(1, true, true);
  setter->Take();
  setter->onSetLED = [] { RaiseError(Error_DeviceIO); };
  EXPECT_THROW(leds->TimerTick(), Error);
  EXPECT_THAT(setter->Take(), ElementsAre("setLED 245 1 on"));
}

TEST_F(LEDManagerTest, ALampReportedFromWithinTheTimerCallShowsTheLaterState) {
  setter->onTimer = [this] { leds->setButtonsInGroups1To8(1, true, false); };
  leds->setButtonsInGroups1To8(1, true, true);
  EXPECT_THAT(setter->Take(), ElementsAre("start", "end", "setLED 245 1 on"));
}

TEST_F(LEDManagerTest, ALampThatStartsToBlinkDuringATickJoinsThePhase) {
  setter->onTimer = [this] { leds->TimerTick(); };
  leds->setButtonsInGroups1To8(1, true, true);
  EXPECT_THAT(setter->Take(), ElementsAre("start", "setLED 245 1 on", "setLED 245 1 on"));
}

TEST_F(LEDManagerTest, ALampReportedWhileTheRowsAreClearedIsKnownToBeDark) {
  setter->onSetLED = [this] { setter->onSetLED = [this] { leds->setButtonInTop32(20, true, false); }; };
  leds->clearAll();
  EXPECT_EQ(setter->Take().back(), "setLED 247 -1 off");
  leds->setButtonInTop32(20, true, false);
  EXPECT_THAT(setter->Take(), ElementsAre("setLED 247 8 on"));
}

TEST_F(LEDManagerTest, TheHostMayDropManagerAndOutputFromWithinACall) {
  const long before = Object::LiveCount();
  setter->onSetLED = [this] {
    leds->Init(nullptr);
    setter = nullptr;
    leds = nullptr;
  };
  leds->setButtonInTop32(1, true, false);
  EXPECT_EQ(Object::LiveCount(), before - 2);
}

}  // namespace
}  // namespace vestrel
