// A show in memory with everything that a host gives the controller: what a run operates on.
#pragma once

#include <string_view>

#include "tests/support/FakeServices.h"
#include "tests/support/SimulatedHost.h"

namespace vestrel::fuzz {

inline constexpr std::u16string_view kApp = u"C:\\data";
inline constexpr std::u16string_view kShow = u"Show";

struct ShowStage : test::SimulatedHost {
  ShowStage() { Join(kApp); }
};

}  // namespace vestrel::fuzz
