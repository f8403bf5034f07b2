#include "workbench/host/HostSystem.h"

namespace vestrel::workbench {

void HostSystem::ShowMessageBox(std::u16string_view text, std::u16string_view caption) {
  if (HostListener* listener = calls_.listener()) listener->MessageBoxShown(text, caption);
}

}  // namespace vestrel::workbench
