#include <gtest/gtest.h>

#include "core/Error.h"
#include "leds/LampStates.h"

namespace vestrel {
namespace {

TEST(LampStatesTest, TheMaskOfALampIsItsBitAndBit15FromThereOn) {
  EXPECT_EQ(LampMask(0), 1);
  EXPECT_EQ(LampMask(14), 0x4000);
  EXPECT_EQ(LampMask(15), 0x8000);
  EXPECT_EQ(LampMask(16), 0x8000);
  EXPECT_EQ(LampMask(40), 0x8000);
}

TEST(LampStatesTest, ARowsCodeFitsAByteOrOverflows) {
  EXPECT_EQ(LampRowCode(0), 245);
  EXPECT_EQ(LampRowCode(2), 247);
  EXPECT_EQ(LampRowCode(10), 255);
  for (const std::int32_t row : {-1, 11, 256}) {
    try {
      LampRowCode(row);
      ADD_FAILURE() << row;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), Error_Overflow);
    }
  }
}

TEST(LampStatesTest, PlayingWinsOverAssigned) {
  EXPECT_EQ(LampStateFor(false, false), LEDState_Off);
  EXPECT_EQ(LampStateFor(true, false), LEDState_On);
  EXPECT_EQ(LampStateFor(true, true), LEDState_Blinking);
  EXPECT_EQ(LampStateFor(false, true), LEDState_Blinking);
}

TEST(LampStatesTest, BlinkBitsOfOneLampLeaveTheOthers) {
  LampStates lamps;
  lamps.SetBlinking(TopLamp(16), true);
  lamps.SetBlinking(TopLamp(1), true);
  lamps.SetBlinking(TopLamp(17), true);
  EXPECT_EQ(lamps.blinkMask(LEDGroup_TopButtons_Row1), 0x8001);
  EXPECT_EQ(lamps.blinkMask(LEDGroup_TopButtons_Row2), 1);
  lamps.SetBlinking(TopLamp(16), false);
  EXPECT_EQ(lamps.blinkMask(LEDGroup_TopButtons_Row1), 1);
  EXPECT_TRUE(lamps.AnyBlinking());
}

TEST(LampStatesTest, DarkeningARowLeavesItsBlinkMaskAndTheOtherRows) {
  LampStates lamps;
  lamps.SetState(GoLamp(1), LEDState_Blinking);
  lamps.SetBlinking(GoLamp(1), true);
  lamps.SetState(TopLamp(1), LEDState_On);
  lamps.Darken(LEDGroup_GoButtons);
  EXPECT_EQ(lamps.state(GoLamp(1)), LEDState_Off);
  EXPECT_EQ(lamps.blinkMask(LEDGroup_GoButtons), 1);
  EXPECT_EQ(lamps.state(TopLamp(1)), LEDState_On);
}

}  // namespace
}  // namespace vestrel
