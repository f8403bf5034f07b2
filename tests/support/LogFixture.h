// A fixture with the fake platform and a log in memory that has just been initialised, and the lines that the
// code under test added to it.
#pragma once

#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/FakePlatform.h"
#include "util/modLog.h"

namespace vestrel::test {

class LogFixture : public TestPlatform {
 protected:
  static constexpr const char16_t* kLogFile = u"C:\\data\\log.txt";

  LogFixture() {
    files.PutFolder(u"C:\\data");
    modLog::Init(kLogFile);
  }

  std::string LogBytes() const { return files.Get(kLogFile); }

  // The lines after the header, without their ends.
  std::vector<std::string> LogLines() const {
    std::vector<std::string> lines;
    std::istringstream bytes(LogBytes());
    for (std::string line; std::getline(bytes, line);) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      lines.push_back(line);
    }
    lines.erase(lines.begin(), lines.begin() + 2);
    return lines;
  }
};

}  // namespace vestrel::test
