// The TUIFaderValues record as an object, for hosts that cannot handle records: handed to a late-bound form
// in the record's place, and accepted wherever the record is. Owned by whoever holds it.
#pragma once

#include <cstdint>

#include "controller/interfaces/TUIFaderValues.h"
#include "core/Object.h"

namespace vestrel {

class UIFaderValues : public Object {
 public:
  VESTREL_OBJECT(UIFaderValues)

  TUIFaderValues values;

  // The position of a group or bump fader, index 1 to 8; raise 9 for another index.
  std::int32_t GroupFaders(std::int32_t index) const { return values.GroupFaders[index]; }
  void SetGroupFaders(std::int32_t index, std::int32_t value) { values.GroupFaders[index] = value; }
  std::int32_t BumpFaders(std::int32_t index) const { return values.BumpFaders[index]; }
  void SetBumpFaders(std::int32_t index, std::int32_t value) { values.BumpFaders[index] = value; }
};

}  // namespace vestrel
