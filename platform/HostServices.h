// What the library asks of the user interface around it: a modal message box, one turn of the message loop,
// and the folder the library itself was loaded from.
#pragma once

#include <string>
#include <string_view>

namespace vestrel::platform {

class HostServices {
 public:
  HostServices() = default;
  HostServices(const HostServices&) = delete;
  HostServices& operator=(const HostServices&) = delete;
  virtual ~HostServices() = default;

  // A modal box with an OK button; returns when it was answered.
  virtual void ShowMessageBox(std::u16string_view text, std::u16string_view caption) = 0;
  // Processes the pending user-interface messages once. May call back into the library.
  virtual void PumpMessages() = 0;
  // Without a separator at its end.
  virtual std::u16string ModuleFolder() = 0;
};

}  // namespace vestrel::platform
