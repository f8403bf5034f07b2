// What a run stands on: a clock that stands, files in memory, a host that says nothing, and a log of severe
// things only. Nothing of one run is left for the next.
#pragma once

#include "platform/Platform.h"
#include "tests/support/FakeServices.h"
#include "tests/support/MemoryFiles.h"
#include "util/modLog.h"

namespace vestrel::fuzz {

class MemoryWorld {
 public:
  MemoryWorld() {
    files.PutFolder(u"C:\\data");
    modLog::Init(u"C:\\data\\log.txt");
    modLog::SetLogLevel(LogLevel_1_SEVERE);
  }

  test::FakeClock clock;
  test::MemoryFiles files;
  test::FakeHostServices hostServices;

 private:
  platform::Override override_{{&clock, &files, nullptr, &hostServices}};
};

}  // namespace vestrel::fuzz
