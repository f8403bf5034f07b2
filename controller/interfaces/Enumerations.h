// The shared enumerations. Their values are part of the file formats and of the host interface.
#pragma once

#include <cstdint>

namespace vestrel {

// The kind of item a button stands for.
enum ButtonTypeEnum : std::int32_t {
  ButtonType_Sequence = 1,
  ButtonType_Multi = 2,
  ButtonType_Timeline = 3,
  ButtonType_Auto = 4,
  ButtonType_None = 999,
};

enum PlayStateEnum : std::int32_t {
  PlayState_Off = 0,
  PlayState_On = 1,
  PlayState_Null = 999,
};

enum FaderModeEnum : std::int32_t {
  FaderMode_Dimmer = 0,
  FaderMode_Speed = 1,
  FaderMode_Proportional = 2,
};

enum BumpModeEnum : std::int32_t {
  BumpMode_Off = 0,
  BumpMode_On = 1,
};

// Who caused a change of a play state.
enum PSEventSourceEnum : std::int32_t {
  PSEventSource_User = 0,
  PSEventSource_AutoRelease = 1,
  PSEventSource_RecPlayback = 2,
};

enum EditModeEnum : std::int32_t {
  EditMode_None = 0,
  EditMode_Assign = 1,
  EditMode_EditEnabled = 2,
  EditMode_Move = 3,
  EditMode_Copy = 4,
  EditMode_AdjFadeInOut = 5,
};

enum TriggerModeEnum : std::int32_t {
  TriggerMode_Toggle = 0,
  TriggerMode_OffToOn = 1,
  TriggerMode_OnToOff = 2,
};

enum HighlightDirEnum : std::int32_t {
  Highlight_First = 0,
  Highlight_Prev = 1,
  Highlight_Next = 2,
  Highlight_NextAfter = 3,
};

enum PageDirEnum : std::int32_t {
  PageDir_Prev = 0,
  PageDir_Next = 1,
};

enum ShiftModeEnum : std::int32_t {
  ShiftMode_Delete = 0,
  ShiftMode_Insert = 1,
};

enum MarkFadeTypeEnum : std::int32_t {
  MarkFadeType_Mark = 0,
  MarkFadeType_Fade = 1,
};

// What the form is asked to redraw.
enum IFSSRefreshEnum : std::int32_t {
  IFSSRefresh_EntirePage = 0,
  IFSSRefresh_Group = 1,
  IFSSRefresh_Control = 2,
  IFSSRefresh_EntirePageNonGUI = 3,
};

enum IFSSFaderTypeEnum : std::int32_t {
  FaderType_Group = 0,
  FaderType_BumpFader = 1,
};

// The lamp rows of the control surface.
enum LEDGroupEnum : std::int32_t {
  LEDGroup_GoButtons = 0,
  LEDGroup_TopButtons_Row1 = 1,
  LEDGroup_TopButtons_Row2 = 2,
};

enum LEDStateEnum : std::int32_t {
  LEDState_Off = 0,
  LEDState_On = 1,
  LEDState_Blinking = 2,
};

// How a take is combined with the recording.
enum RecordModeEnum : std::int32_t {
  RecordMode_Overwrite = 0,
  RecordMode_Merge = 1,
};

enum vxEventTypeEnum : std::int32_t {
  vxEvent_ButtonOn = 0,
  vxEvent_ButtonOff = 1,
};

enum TransportStateEnum : std::int32_t {
  Stopped = 0,
  playing = 1,
  Paused = 2,
};

enum ButtonPredicateMode : std::int32_t {
  ButtonPred_IndexBetween = 0,
  ButtonPred_IndexLessThan = 1,
  ButtonPred_IndexGreaterThan = 2,
  ButtonPred_TypeIs = 3,
};

// Error numbers of the controller's validation.
enum BGCErrors : std::int32_t {
  BGCErr_GroupOutOfRange = 0,
  BGCErr_ButtonIndexOutOfRange = 1,
};

// Error numbers of a button's comparison.
enum clsButtonErrors : std::int32_t {
  errBadFieldName = 1001,
};

}  // namespace vestrel
