// What the simulated host gives the library of a system's user interface: message boxes go to the listener
// and, with the pending messages, to the front end's dialogs; without those they count as answered and
// nothing is pending. The library's folder is the data folder.
#pragma once

#include <string>

#include "platform/HostServices.h"
#include "workbench/host/CallReporter.h"
#include "workbench/host/Dialogs.h"

namespace vestrel::workbench {

class HostSystem : public platform::HostServices {
 public:
  // `calls` outlives it.
  HostSystem(const CallReporter& calls, std::u16string moduleFolder)
      : calls_(calls), moduleFolder_(std::move(moduleFolder)) {}

  void ShowMessageBox(std::u16string_view text, std::u16string_view caption) override;
  void PumpMessages() override;
  std::u16string ModuleFolder() override { return moduleFolder_; }

  // Null: there are none.
  void SetDialogs(Dialogs* dialogs) noexcept { dialogs_ = dialogs; }
  Dialogs* dialogs() const noexcept { return dialogs_; }

 private:
  const CallReporter& calls_;
  std::u16string moduleFolder_;
  Dialogs* dialogs_ = nullptr;
};

}  // namespace vestrel::workbench
