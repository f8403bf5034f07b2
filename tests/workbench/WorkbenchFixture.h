// A run of commands in a temporary folder, and what it printed.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "tests/support/TempFolder.h"
#include "workbench/DataFolder.h"
#include "workbench/HeadlessRun.h"

namespace vestrel::workbench {

inline std::string FileBytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// The folder with the sample show, wherever the test program is started.
inline std::filesystem::path Examples() {
  return VESTREL_EXAMPLES_DIR;
}

class Workbench : public testing::Test {
 protected:
  // Boxes are printed, whatever the caller's environment asks for.
  Workbench() { ForgetMessageBoxSetting(); }

  // The lines that the commands print in a folder of their own.
  std::string Play(std::string_view commands, RunStyle style = RunStyle::Commands) {
    std::istringstream in{std::string(commands)};
    std::ostringstream out;
    failures = PlayHeadless(folder(), in, out, style);
    return out.str();
  }
  // What the last command printed under itself.
  std::string LastOf(std::string_view commands) {
    const std::string printed = Play(commands);
    const std::size_t command = printed.rfind("> ");
    return printed.substr(printed.find('\n', command) + 1);
  }
  void PutSample() { CopyShows(Examples() / "shows", folder()); }
  std::filesystem::path folder() const { return std::filesystem::canonical(temporary_.Real()); }

  std::size_t failures = 0;

 private:
  static void ForgetMessageBoxSetting() {
#ifdef _WIN32
    _putenv_s("VESTREL_MESSAGE_BOX", "");
#else
    unsetenv("VESTREL_MESSAGE_BOX");
#endif
  }

  test::TempFolder temporary_;
};

}  // namespace vestrel::workbench
