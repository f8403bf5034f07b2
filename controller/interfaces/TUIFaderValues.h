// The host's fader positions, 0 to 100: eight group faders and eight bump faders, each 1 to 8.
#pragma once

#include <array>
#include <cstdint>

#include "core/Error.h"

namespace vestrel {

// Eight 32-bit values indexed 1 to 8.
class FaderRow {
 public:
  // Raises 9 for an index outside 1 to 8.
  std::int32_t& operator[](std::int32_t index) { return values_[Position(index)]; }
  std::int32_t operator[](std::int32_t index) const { return values_[Position(index)]; }

 private:
  static std::size_t Position(std::int32_t index) {
    if (index < 1 || index > 8) RaiseError(Error_SubscriptOutOfRange);
    return static_cast<std::size_t>(index - 1);
  }

  std::array<std::int32_t, 8> values_{};
};

struct TUIFaderValues {
  FaderRow GroupFaders;
  FaderRow BumpFaders;
};

}  // namespace vestrel
