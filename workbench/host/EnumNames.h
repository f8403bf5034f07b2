// The members of the shared enumerations by name, for reading commands and printing calls. A value without a
// name is written as its number.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "controller/interfaces/Enumerations.h"
#include "util/LogLevel.h"

namespace vestrel::workbench {

struct EnumName {
  std::int32_t value;
  std::string_view name;
};

// The members of enumeration E, in order of their values.
template <class E>
std::span<const EnumName> NamesOf();

template <>
std::span<const EnumName> NamesOf<ButtonTypeEnum>();
template <>
std::span<const EnumName> NamesOf<PlayStateEnum>();
template <>
std::span<const EnumName> NamesOf<FaderModeEnum>();
template <>
std::span<const EnumName> NamesOf<BumpModeEnum>();
template <>
std::span<const EnumName> NamesOf<PSEventSourceEnum>();
template <>
std::span<const EnumName> NamesOf<TriggerModeEnum>();
template <>
std::span<const EnumName> NamesOf<HighlightDirEnum>();
template <>
std::span<const EnumName> NamesOf<PageDirEnum>();
template <>
std::span<const EnumName> NamesOf<MarkFadeTypeEnum>();
template <>
std::span<const EnumName> NamesOf<IFSSRefreshEnum>();
template <>
std::span<const EnumName> NamesOf<IFSSFaderTypeEnum>();
template <>
std::span<const EnumName> NamesOf<RecordModeEnum>();
template <>
std::span<const EnumName> NamesOf<vxEventTypeEnum>();
template <>
std::span<const EnumName> NamesOf<TransportStateEnum>();
template <>
std::span<const EnumName> NamesOf<LogLevel_Enum>();

// The name of `value` among `names`, or its decimal text.
std::string EnumText(std::span<const EnumName> names, std::int32_t value);

}  // namespace vestrel::workbench
