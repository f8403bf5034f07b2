#include "workbench/host/EnumNames.h"

#include <array>

namespace vestrel::workbench {

namespace {

constexpr std::array<EnumName, 5> kButtonTypeNames{{
    {ButtonType_Sequence, "ButtonType_Sequence"},
    {ButtonType_Multi, "ButtonType_Multi"},
    {ButtonType_Timeline, "ButtonType_Timeline"},
    {ButtonType_Auto, "ButtonType_Auto"},
    {ButtonType_None, "ButtonType_None"},
}};
constexpr std::array<EnumName, 3> kPlayStateNames{{
    {PlayState_Off, "PlayState_Off"},
    {PlayState_On, "PlayState_On"},
    {PlayState_Null, "PlayState_Null"},
}};
constexpr std::array<EnumName, 3> kFaderModeNames{{
    {FaderMode_Dimmer, "FaderMode_Dimmer"},
    {FaderMode_Speed, "FaderMode_Speed"},
    {FaderMode_Proportional, "FaderMode_Proportional"},
}};
constexpr std::array<EnumName, 2> kBumpModeNames{{
    {BumpMode_Off, "BumpMode_Off"},
    {BumpMode_On, "BumpMode_On"},
}};
constexpr std::array<EnumName, 3> kPSEventSourceNames{{
    {PSEventSource_User, "PSEventSource_User"},
    {PSEventSource_AutoRelease, "PSEventSource_AutoRelease"},
    {PSEventSource_RecPlayback, "PSEventSource_RecPlayback"},
}};
constexpr std::array<EnumName, 3> kTriggerModeNames{{
    {TriggerMode_Toggle, "TriggerMode_Toggle"},
    {TriggerMode_OffToOn, "TriggerMode_OffToOn"},
    {TriggerMode_OnToOff, "TriggerMode_OnToOff"},
}};
constexpr std::array<EnumName, 4> kHighlightDirNames{{
    {Highlight_First, "Highlight_First"},
    {Highlight_Prev, "Highlight_Prev"},
    {Highlight_Next, "Highlight_Next"},
    {Highlight_NextAfter, "Highlight_NextAfter"},
}};
constexpr std::array<EnumName, 2> kPageDirNames{{
    {PageDir_Prev, "PageDir_Prev"},
    {PageDir_Next, "PageDir_Next"},
}};
constexpr std::array<EnumName, 2> kMarkFadeTypeNames{{
    {MarkFadeType_Mark, "MarkFadeType_Mark"},
    {MarkFadeType_Fade, "MarkFadeType_Fade"},
}};
constexpr std::array<EnumName, 4> kIFSSRefreshNames{{
    {IFSSRefresh_EntirePage, "IFSSRefresh_EntirePage"},
    {IFSSRefresh_Group, "IFSSRefresh_Group"},
    {IFSSRefresh_Control, "IFSSRefresh_Control"},
    {IFSSRefresh_EntirePageNonGUI, "IFSSRefresh_EntirePageNonGUI"},
}};
constexpr std::array<EnumName, 2> kIFSSFaderTypeNames{{
    {FaderType_Group, "FaderType_Group"},
    {FaderType_BumpFader, "FaderType_BumpFader"},
}};
constexpr std::array<EnumName, 2> kRecordModeNames{{
    {RecordMode_Overwrite, "RecordMode_Overwrite"},
    {RecordMode_Merge, "RecordMode_Merge"},
}};
constexpr std::array<EnumName, 2> kVxEventTypeNames{{
    {vxEvent_ButtonOn, "vxEvent_ButtonOn"},
    {vxEvent_ButtonOff, "vxEvent_ButtonOff"},
}};
constexpr std::array<EnumName, 3> kTransportStateNames{{
    {Stopped, "Stopped"},
    {playing, "playing"},
    {Paused, "Paused"},
}};
constexpr std::array<EnumName, 5> kLogLevelNames{{
    {LogLevel_0_SYSTEM, "LogLevel_0_SYSTEM"},
    {LogLevel_1_SEVERE, "LogLevel_1_SEVERE"},
    {LogLevel_2_WARNING, "LogLevel_2_WARNING"},
    {LogLevel_3_INFO, "LogLevel_3_INFO"},
    {LogLevel_4_SPEW, "LogLevel_4_SPEW"},
}};

}  // namespace

template <>
std::span<const EnumName> NamesOf<ButtonTypeEnum>() {
  return kButtonTypeNames;
}
template <>
std::span<const EnumName> NamesOf<PlayStateEnum>() {
  return kPlayStateNames;
}
template <>
std::span<const EnumName> NamesOf<FaderModeEnum>() {
  return kFaderModeNames;
}
template <>
std::span<const EnumName> NamesOf<BumpModeEnum>() {
  return kBumpModeNames;
}
template <>
std::span<const EnumName> NamesOf<PSEventSourceEnum>() {
  return kPSEventSourceNames;
}
template <>
std::span<const EnumName> NamesOf<TriggerModeEnum>() {
  return kTriggerModeNames;
}
template <>
std::span<const EnumName> NamesOf<HighlightDirEnum>() {
  return kHighlightDirNames;
}
template <>
std::span<const EnumName> NamesOf<PageDirEnum>() {
  return kPageDirNames;
}
template <>
std::span<const EnumName> NamesOf<MarkFadeTypeEnum>() {
  return kMarkFadeTypeNames;
}
template <>
std::span<const EnumName> NamesOf<IFSSRefreshEnum>() {
  return kIFSSRefreshNames;
}
template <>
std::span<const EnumName> NamesOf<IFSSFaderTypeEnum>() {
  return kIFSSFaderTypeNames;
}
template <>
std::span<const EnumName> NamesOf<RecordModeEnum>() {
  return kRecordModeNames;
}
template <>
std::span<const EnumName> NamesOf<vxEventTypeEnum>() {
  return kVxEventTypeNames;
}
template <>
std::span<const EnumName> NamesOf<TransportStateEnum>() {
  return kTransportStateNames;
}
template <>
std::span<const EnumName> NamesOf<LogLevel_Enum>() {
  return kLogLevelNames;
}

std::string EnumText(std::span<const EnumName> names, std::int32_t value) {
  for (const EnumName& entry : names) {
    if (entry.value == value) return std::string(entry.name);
  }
  return std::to_string(value);
}

}  // namespace vestrel::workbench
