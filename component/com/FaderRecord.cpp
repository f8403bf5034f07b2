#include "component/com/FaderRecord.h"

#include "component/Ids.h"
#include "component/com/TypeInformation.h"

namespace vestrel::component {

const GUID& FaderRecordId() noexcept {
  static const GUID id = SystemGuid(IdOfType("TUIFaderValues"));
  return id;
}

TUIFaderValues FromRecord(const FaderRecord& record) {
  TUIFaderValues result;
  for (std::int32_t i = 0; i < 8; ++i) {
    result.GroupFaders[i + 1] = record.GroupFaders[i];
    result.BumpFaders[i + 1] = record.BumpFaders[i];
  }
  return result;
}

FaderRecord ToRecord(const TUIFaderValues& values) {
  FaderRecord result{};
  for (std::int32_t i = 0; i < 8; ++i) {
    result.GroupFaders[i] = values.GroupFaders[i + 1];
    result.BumpFaders[i] = values.BumpFaders[i + 1];
  }
  return result;
}

}  // namespace vestrel::component
