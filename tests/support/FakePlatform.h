// A fixture that puts a clock, host services and files in memory in force for one test, with the real narrow
// page.
#pragma once

#include <gtest/gtest.h>

#include "platform/Platform.h"
#include "tests/support/FakeServices.h"
#include "tests/support/MemoryFiles.h"

namespace vestrel::test {

class TestPlatform : public testing::Test {
 protected:
  FakeClock clock;
  MemoryFiles files;
  FakeHostServices hostServices;

 private:
  platform::Override override_{{&clock, &files, nullptr, &hostServices}};
};

}  // namespace vestrel::test
