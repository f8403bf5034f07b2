#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "platform/Platform.h"
#include "platform/System.h"

namespace vestrel::platform {
namespace {

void PrintMessageBox(std::u16string_view text, std::u16string_view caption, void* /*context*/) {
  bool lossy = false;
  const std::string line =
      "[" + SystemEncoding().Narrow(caption, lossy) + "] " + SystemEncoding().Narrow(text, lossy) + "\n";
  std::fputs(line.c_str(), stderr);
}

struct Hooks {
  MessageBoxFunction messageBox = PrintMessageBox;
  void* messageBoxContext = nullptr;
  PumpFunction pump = nullptr;
  void* pumpContext = nullptr;
};

thread_local Hooks hooks;

const char insideThisModule = 0;

std::string ProgramPath() {
  char path[4096];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  return length > 0 ? std::string(path, static_cast<std::size_t>(length)) : std::string();
}

// A shared library is known by the full path it was loaded from, the program itself perhaps by a relative
// one.
std::string ModulePath() {
  Dl_info info{};
  if (dladdr(&insideThisModule, &info) != 0 && info.dli_fname != nullptr && info.dli_fname[0] == '/')
    return info.dli_fname;
  return ProgramPath();
}

class PosixHostServices final : public HostServices {
 public:
  void ShowMessageBox(std::u16string_view text, std::u16string_view caption) override {
    hooks.messageBox(text, caption, hooks.messageBoxContext);
  }

  void PumpMessages() override {
    if (hooks.pump != nullptr) hooks.pump(hooks.pumpContext);
  }

  std::u16string ModuleFolder() override {
    std::u16string path = SystemEncoding().Widen(ModulePath());
    std::replace(path.begin(), path.end(), u'/', u'\\');
    path.erase(std::min(path.rfind(u'\\'), path.size()));
    return path;
  }
};

}  // namespace

HostServices& SystemHostServices() {
  static PosixHostServices services;
  return services;
}

void SetMessageBoxFunction(MessageBoxFunction function, void* context) {
  hooks.messageBox = function != nullptr ? function : PrintMessageBox;
  hooks.messageBoxContext = context;
}

void SetPumpFunction(PumpFunction function, void* context) {
  hooks.pump = function;
  hooks.pumpContext = context;
}

}  // namespace vestrel::platform
