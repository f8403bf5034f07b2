// Stand-ins for the clock and the host's user interface.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Clock.h"
#include "platform/HostServices.h"
#include "tests/support/Allocations.h"

namespace vestrel::test {

class FakeClock final : public platform::Clock {
 public:
  std::uint32_t ticks = 0;
  std::u16string dateTime = u"15/11/2026 07:31:41";

  std::uint32_t TickCount() override { return ticks; }
  std::u16string LocalDateTimeText() override { return dateTime; }
};

class FakeHostServices final : public platform::HostServices {
 public:
  struct Box {
    std::u16string text;
    std::u16string caption;
  };

  std::vector<Box> boxes;
  int pumps = 0;
  // Called inside each pump, where set.
  std::function<void()> onPump;
  std::u16string moduleFolder = u"C:\\module";

  void ShowMessageBox(std::u16string_view text, std::u16string_view caption) override {
    const Allocations::Spared spared;
    boxes.push_back({std::u16string(text), std::u16string(caption)});
  }
  void PumpMessages() override {
    ++pumps;
    if (onPump) onPump();
  }
  std::u16string ModuleFolder() override { return moduleFolder; }
};

}  // namespace vestrel::test
