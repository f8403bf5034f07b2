// One group of digits that a format capture found.
#pragma once

#include <cstdint>
#include <string>

#include "core/Object.h"

namespace vestrel {

enum CaptureTypeEnum : std::int32_t {
  CaptureType_Long = 0,
};

class clsFormatCaptureItem : public Object {
 public:
  VESTREL_OBJECT(clsFormatCaptureItem)

  // The digits as they stood in the text.
  std::u16string strValue;
  CaptureTypeEnum itemType = CaptureType_Long;
};

}  // namespace vestrel
