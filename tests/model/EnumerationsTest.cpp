// The values of the enumerations stand in files and in hosts: none of them may ever change.
#include <gtest/gtest.h>

#include <vector>

#include "controller/interfaces/Enumerations.h"

namespace vestrel {
namespace {

using Values = std::vector<std::int32_t>;

TEST(EnumerationsTest, WhatAButtonIs) {
  EXPECT_EQ(
      (Values{ButtonType_Sequence, ButtonType_Multi, ButtonType_Timeline, ButtonType_Auto, ButtonType_None}),
      (Values{1, 2, 3, 4, 999}));
  EXPECT_EQ((Values{PlayState_Off, PlayState_On, PlayState_Null}), (Values{0, 1, 999}));
  EXPECT_EQ((Values{FaderMode_Dimmer, FaderMode_Speed, FaderMode_Proportional}), (Values{0, 1, 2}));
  EXPECT_EQ((Values{BumpMode_Off, BumpMode_On}), (Values{0, 1}));
  EXPECT_EQ((Values{PSEventSource_User, PSEventSource_AutoRelease, PSEventSource_RecPlayback}),
            (Values{0, 1, 2}));
}

TEST(EnumerationsTest, WhatTheControllerIsAsked) {
  EXPECT_EQ((Values{EditMode_None, EditMode_Assign, EditMode_EditEnabled, EditMode_Move, EditMode_Copy,
                    EditMode_AdjFadeInOut}),
            (Values{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ((Values{TriggerMode_Toggle, TriggerMode_OffToOn, TriggerMode_OnToOff}), (Values{0, 1, 2}));
  EXPECT_EQ((Values{Highlight_First, Highlight_Prev, Highlight_Next, Highlight_NextAfter}),
            (Values{0, 1, 2, 3}));
  EXPECT_EQ((Values{PageDir_Prev, PageDir_Next}), (Values{0, 1}));
  EXPECT_EQ((Values{ShiftMode_Delete, ShiftMode_Insert}), (Values{0, 1}));
  EXPECT_EQ((Values{MarkFadeType_Mark, MarkFadeType_Fade}), (Values{0, 1}));
  EXPECT_EQ((Values{ButtonPred_IndexBetween, ButtonPred_IndexLessThan, ButtonPred_IndexGreaterThan,
                    ButtonPred_TypeIs}),
            (Values{0, 1, 2, 3}));
}

TEST(EnumerationsTest, WhatTheHostIsTold) {
  EXPECT_EQ(
      (Values{IFSSRefresh_EntirePage, IFSSRefresh_Group, IFSSRefresh_Control, IFSSRefresh_EntirePageNonGUI}),
      (Values{0, 1, 2, 3}));
  EXPECT_EQ((Values{FaderType_Group, FaderType_BumpFader}), (Values{0, 1}));
  EXPECT_EQ((Values{LEDGroup_GoButtons, LEDGroup_TopButtons_Row1, LEDGroup_TopButtons_Row2}),
            (Values{0, 1, 2}));
  EXPECT_EQ((Values{LEDState_Off, LEDState_On, LEDState_Blinking}), (Values{0, 1, 2}));
  EXPECT_EQ((Values{RecordMode_Overwrite, RecordMode_Merge}), (Values{0, 1}));
  EXPECT_EQ((Values{vxEvent_ButtonOn, vxEvent_ButtonOff}), (Values{0, 1}));
  EXPECT_EQ((Values{Stopped, playing, Paused}), (Values{0, 1, 2}));
}

TEST(EnumerationsTest, ErrorNumbers) {
  EXPECT_EQ((Values{BGCErr_GroupOutOfRange, BGCErr_ButtonIndexOutOfRange}), (Values{0, 1}));
  EXPECT_EQ(errBadFieldName, 1001);
}

}  // namespace
}  // namespace vestrel
