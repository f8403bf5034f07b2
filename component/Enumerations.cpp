#include "component/Enumerations.h"

#include <array>

#include "controller/interfaces/Enumerations.h"
#include "util/LogLevel.h"
#include "util/clsFormatCaptureItem.h"

namespace vestrel::component {
namespace {

// A member's name is its own identifier, so the two cannot differ.
#define MEMBER(Name) \
  { #Name, Name }

constexpr EnumerationMember kButtonTypeEnum[] = {
    MEMBER(ButtonType_Sequence), MEMBER(ButtonType_Multi), MEMBER(ButtonType_Timeline),
    MEMBER(ButtonType_Auto),     MEMBER(ButtonType_None),
};
constexpr EnumerationMember kPlayStateEnum[] = {
    MEMBER(PlayState_Off),
    MEMBER(PlayState_On),
    MEMBER(PlayState_Null),
};
constexpr EnumerationMember kFaderModeEnum[] = {
    MEMBER(FaderMode_Dimmer),
    MEMBER(FaderMode_Speed),
    MEMBER(FaderMode_Proportional),
};
constexpr EnumerationMember kBumpModeEnum[] = {
    MEMBER(BumpMode_Off),
    MEMBER(BumpMode_On),
};
constexpr EnumerationMember kPSEventSourceEnum[] = {
    MEMBER(PSEventSource_User),
    MEMBER(PSEventSource_AutoRelease),
    MEMBER(PSEventSource_RecPlayback),
};
constexpr EnumerationMember kEditModeEnum[] = {
    MEMBER(EditMode_None), MEMBER(EditMode_Assign), MEMBER(EditMode_EditEnabled),
    MEMBER(EditMode_Move), MEMBER(EditMode_Copy),   MEMBER(EditMode_AdjFadeInOut),
};
constexpr EnumerationMember kTriggerModeEnum[] = {
    MEMBER(TriggerMode_Toggle),
    MEMBER(TriggerMode_OffToOn),
    MEMBER(TriggerMode_OnToOff),
};
constexpr EnumerationMember kHighlightDirEnum[] = {
    MEMBER(Highlight_First),
    MEMBER(Highlight_Prev),
    MEMBER(Highlight_Next),
    MEMBER(Highlight_NextAfter),
};
constexpr EnumerationMember kPageDirEnum[] = {
    MEMBER(PageDir_Prev),
    MEMBER(PageDir_Next),
};
constexpr EnumerationMember kShiftModeEnum[] = {
    MEMBER(ShiftMode_Delete),
    MEMBER(ShiftMode_Insert),
};
constexpr EnumerationMember kMarkFadeTypeEnum[] = {
    MEMBER(MarkFadeType_Mark),
    MEMBER(MarkFadeType_Fade),
};
constexpr EnumerationMember kIFSSRefreshEnum[] = {
    MEMBER(IFSSRefresh_EntirePage),
    MEMBER(IFSSRefresh_Group),
    MEMBER(IFSSRefresh_Control),
    MEMBER(IFSSRefresh_EntirePageNonGUI),
};
constexpr EnumerationMember kIFSSFaderTypeEnum[] = {
    MEMBER(FaderType_Group),
    MEMBER(FaderType_BumpFader),
};
constexpr EnumerationMember kLEDGroupEnum[] = {
    MEMBER(LEDGroup_GoButtons),
    MEMBER(LEDGroup_TopButtons_Row1),
    MEMBER(LEDGroup_TopButtons_Row2),
};
constexpr EnumerationMember kLEDStateEnum[] = {
    MEMBER(LEDState_Off),
    MEMBER(LEDState_On),
    MEMBER(LEDState_Blinking),
};
constexpr EnumerationMember kLogLevel_Enum[] = {
    MEMBER(LogLevel_0_SYSTEM), MEMBER(LogLevel_1_SEVERE), MEMBER(LogLevel_2_WARNING),
    MEMBER(LogLevel_3_INFO),   MEMBER(LogLevel_4_SPEW),
};
constexpr EnumerationMember kRecordModeEnum[] = {
    MEMBER(RecordMode_Overwrite),
    MEMBER(RecordMode_Merge),
};
constexpr EnumerationMember kVxEventTypeEnum[] = {
    MEMBER(vxEvent_ButtonOn),
    MEMBER(vxEvent_ButtonOff),
};
constexpr EnumerationMember kTransportStateEnum[] = {
    MEMBER(Stopped),
    MEMBER(playing),
    MEMBER(Paused),
};
constexpr EnumerationMember kCaptureTypeEnum[] = {
    MEMBER(CaptureType_Long),
};
constexpr EnumerationMember kButtonPredicateMode[] = {
    MEMBER(ButtonPred_IndexBetween),
    MEMBER(ButtonPred_IndexLessThan),
    MEMBER(ButtonPred_IndexGreaterThan),
    MEMBER(ButtonPred_TypeIs),
};
constexpr EnumerationMember kBGCErrors[] = {
    MEMBER(BGCErr_GroupOutOfRange),
    MEMBER(BGCErr_ButtonIndexOutOfRange),
};
constexpr EnumerationMember kClsButtonErrors[] = {
    MEMBER(errBadFieldName),
};

#undef MEMBER

constexpr EnumerationDescription kEnumerations[] = {
    {"ButtonTypeEnum", "The kind of item a button stands for.", kButtonTypeEnum},
    {"PlayStateEnum", "Whether a button is on.", kPlayStateEnum},
    {"FaderModeEnum", "What a button's fader controls.", kFaderModeEnum},
    {"BumpModeEnum", "Whether a button follows press and release instead of clicks.", kBumpModeEnum},
    {"PSEventSourceEnum", "Who caused a change of a play state.", kPSEventSourceEnum},
    {"EditModeEnum", "What the next click on a control does instead of toggling its button.", kEditModeEnum},
    {"TriggerModeEnum", "Which change of a play state a click may cause.", kTriggerModeEnum},
    {"HighlightDirEnum", "Where the highlight of a group goes.", kHighlightDirEnum},
    {"PageDirEnum", "Which way a group turns its page.", kPageDirEnum},
    {"ShiftModeEnum", "Which way buttons are renumbered.", kShiftModeEnum},
    {"MarkFadeTypeEnum", "What is made of a button.", kMarkFadeTypeEnum},
    {"IFSSRefreshEnum", "What the form is asked to redraw.", kIFSSRefreshEnum},
    {"IFSSFaderTypeEnum", "Which row of faders a value belongs to.", kIFSSFaderTypeEnum},
    {"LEDGroupEnum", "The lamp rows of the control surface.", kLEDGroupEnum},
    {"LEDStateEnum", "The state of one lamp.", kLEDStateEnum},
    {"LogLevel_Enum", "The levels of the log, most important first.", kLogLevel_Enum},
    {"RecordModeEnum", "How a take is combined with the recording.", kRecordModeEnum},
    {"vxEventTypeEnum", "What a recorded event did to its button.", kVxEventTypeEnum},
    {"TransportStateEnum", "The state of the transport.", kTransportStateEnum},
    {"CaptureTypeEnum", "What a captured group holds.", kCaptureTypeEnum},
    {"ButtonPredicateMode", "The tests of clsButtonPredicate.", kButtonPredicateMode},
    {"BGCErrors", "Error numbers of the controller's validation.", kBGCErrors},
    {"clsButtonErrors", "Error numbers of a button's comparison.", kClsButtonErrors},
};

}  // namespace

std::span<const EnumerationDescription> AllEnumerations() noexcept {
  return kEnumerations;
}

std::string_view NameOfValue(std::string_view enumeration, std::int32_t value) noexcept {
  for (const EnumerationDescription& description : kEnumerations) {
    if (description.name != enumeration) continue;
    for (const EnumerationMember& member : description.members) {
      if (member.value == value) return member.name;
    }
  }
  return {};
}

}  // namespace vestrel::component
