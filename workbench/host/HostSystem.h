// What the simulated host gives the library of a system's user interface: message boxes go to the listener
// and count as answered, there are no pending messages, and the library's folder is the data folder.
#pragma once

#include <string>

#include "platform/HostServices.h"
#include "workbench/host/CallReporter.h"

namespace vestrel::workbench {

class HostSystem : public platform::HostServices {
 public:
  // `calls` outlives it.
  HostSystem(const CallReporter& calls, std::u16string moduleFolder)
      : calls_(calls), moduleFolder_(std::move(moduleFolder)) {}

  void ShowMessageBox(std::u16string_view text, std::u16string_view caption) override;
  void PumpMessages() override {}
  std::u16string ModuleFolder() override { return moduleFolder_; }

 private:
  const CallReporter& calls_;
  std::u16string moduleFolder_;
};

}  // namespace vestrel::workbench
