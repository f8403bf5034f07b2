#include "workbench/server/Desktop.h"

#include <spawn.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>

namespace vestrel::workbench {

void OpenInBrowser(const std::string& address) {
  if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr) return;
  // Nobody waits for the opener.
  std::signal(SIGCHLD, SIG_IGN);
  std::string program = "xdg-open";
  std::string argument = address;
  const std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
  pid_t child = 0;
  posix_spawnp(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ);
}

}  // namespace vestrel::workbench
