// Matches fixed-width texts such as timecodes: "#" in a pattern stands for one decimal digit, any other
// character for itself, and each run of "#" is captured as a number. First DoMatch, then ParseItems with as
// many targets as the pattern has runs. Owned by whoever matches.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "core/Object.h"
#include "core/Ref.h"
#include "core/clsObjectList.h"
#include "util/clsFormatCaptureItem.h"

namespace vestrel {

class clsFormatCapture : public Object {
 public:
  VESTREL_OBJECT(clsFormatCapture)

  // Whether `against` fits the pattern `format_`, which it can only at the same length. The groups found
  // replace those of the match before, also when it does not fit.
  bool DoMatch(std::u16string_view format_, std::u16string_view against);
  // Stores the groups' numbers in order. False, with nothing stored, when there are more or fewer targets
  // than groups; false for a group that is no number, which keeps what was stored before it. Raises 6 for a
  // number that does not fit and 91 before the first DoMatch.
  bool ParseItems(std::span<std::int32_t> targets);

 private:
  bool MatchChar(char16_t p, char16_t c);
  void CloseGroup();

  bool capturing_ = false;
  Ref<clsFormatCaptureItem> current_;
  Ref<clsObjectList> items_;
};

}  // namespace vestrel
