// Turns the calls of the simulated host's parts into HostCalls for the one listener, if there is one. Owned
// by the host; its parts refer to it.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "workbench/host/HostListener.h"
#include "workbench/host/ValueText.h"

namespace vestrel::workbench {

class CallReporter {
 public:
  // Null: nobody listens.
  void SetListener(HostListener* listener) noexcept { listener_ = listener; }
  HostListener* listener() const noexcept { return listener_; }

  template <class... Arguments>
  void Callback(std::string_view name, const Arguments&... arguments) const {
    CallbackWithNote(name, {}, arguments...);
  }
  template <class... Arguments>
  void CallbackWithNote(std::string_view name, std::string note, const Arguments&... arguments) const {
    if (listener_ != nullptr) listener_->CallbackMade({name, {ValueText(arguments)...}, std::move(note)});
  }
  template <class... Arguments>
  void Acted(std::string_view name, const Arguments&... arguments) const {
    if (listener_ != nullptr) listener_->HostActed({name, {ValueText(arguments)...}, {}});
  }

 private:
  HostListener* listener_ = nullptr;
};

}  // namespace vestrel::workbench
