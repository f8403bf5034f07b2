#include "workbench/host/HostSystem.h"

namespace vestrel::workbench {

void HostSystem::ShowMessageBox(std::u16string_view text, std::u16string_view caption) {
  if (HostListener* listener = calls_.listener()) listener->MessageBoxShown(text, caption);
  dialogs_->ShowMessage(text, caption);
}

void HostSystem::PumpMessages() {
  dialogs_->PumpMessages();
}

}  // namespace vestrel::workbench
