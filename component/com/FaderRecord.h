// The TUIFaderValues record as hosts know it.
#pragma once

#include "component/com/Windows.h"
#include "controller/interfaces/TUIFaderValues.h"

namespace vestrel::component {

struct FaderRecord {
  LONG GroupFaders[8];
  LONG BumpFaders[8];
};
static_assert(sizeof(FaderRecord) == 64);

const GUID& FaderRecordId() noexcept;
TUIFaderValues FromRecord(const FaderRecord& record);
FaderRecord ToRecord(const TUIFaderValues& values);

}  // namespace vestrel::component
