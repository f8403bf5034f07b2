// Watches the simulated host: hears of every callback that the library makes, in order and as it happens, of
// every call that the host makes into the library on its own account, and of message boxes. Implemented by a
// front end, which must outlive the host or be taken away before it goes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vestrel::workbench {

// A call with its arguments as text (workbench/host/ValueText.h).
struct HostCall {
  std::string_view name;
  std::vector<std::string> arguments;
  // What belongs behind the call: the host's answer, or whether lamps were lit. Empty for most.
  std::string note;
};

class HostListener {
 public:
  HostListener() = default;
  HostListener(const HostListener&) = delete;
  HostListener& operator=(const HostListener&) = delete;
  virtual ~HostListener() = default;

  // The library called the host.
  virtual void CallbackMade(const HostCall& /*call*/) {}
  // The host called the library because of its policy, not because it was told to.
  virtual void HostActed(const HostCall& /*call*/) {}
  virtual void MessageBoxShown(std::u16string_view /*text*/, std::u16string_view /*caption*/) {}
};

}  // namespace vestrel::workbench
