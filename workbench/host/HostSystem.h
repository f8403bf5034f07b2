// What the simulated host gives the library of a system's user interface: message boxes go to the listener
// and, as turns of the message loop do, to the dialogs. The library's folder is the data folder.
#pragma once

#include <string>

#include "platform/HostServices.h"
#include "workbench/host/CallReporter.h"
#include "workbench/host/Dialogs.h"

namespace vestrel::workbench {

class HostSystem : public platform::HostServices {
 public:
  // `calls` and `dialogs` outlive it.
  HostSystem(const CallReporter& calls, Dialogs& dialogs, std::u16string moduleFolder)
      : calls_(calls), dialogs_(&dialogs), moduleFolder_(std::move(moduleFolder)) {}

  void ShowMessageBox(std::u16string_view text, std::u16string_view caption) override;
  void PumpMessages() override;
  std::u16string ModuleFolder() override { return moduleFolder_; }

  void SetDialogs(Dialogs& dialogs) noexcept { dialogs_ = &dialogs; }
  Dialogs& dialogs() const noexcept { return *dialogs_; }

 private:
  const CallReporter& calls_;
  Dialogs* dialogs_;
  std::u16string moduleFolder_;
};

}  // namespace vestrel::workbench
