// The platform services in force. Each thread starts with the system's own; a host or a test replaces any of
// them for as long as its Override lives. The services given must outlive the Override.
#pragma once

#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/HostServices.h"
#include "platform/TextEncoding.h"

namespace vestrel::platform {

Clock& clock();
Files& files();
TextEncoding& encoding();
HostServices& hostServices();

// Replaces the services that are given (null keeps what is in force) on this thread until it is destroyed.
// Overrides nest.
class Override {
 public:
  struct Services {
    Clock* clock = nullptr;
    Files* files = nullptr;
    TextEncoding* encoding = nullptr;
    HostServices* hostServices = nullptr;
  };
  explicit Override(const Services& services);
  Override(const Override&) = delete;
  Override& operator=(const Override&) = delete;
  ~Override();

 private:
  Services previous_;
};

// Elsewhere than on Windows: where message boxes go (by default to standard error), and what one turn of the
// message loop does (by default nothing). On Windows the system's own are used and these have no effect.
using MessageBoxFunction = void (*)(std::u16string_view text, std::u16string_view caption, void* context);
using PumpFunction = void (*)(void* context);
void SetMessageBoxFunction(MessageBoxFunction function, void* context);
void SetPumpFunction(PumpFunction function, void* context);

// Whether the environment asks for message boxes to be logged instead of shown (VESTREL_MESSAGE_BOX=log).
bool MessageBoxesAreLogged();

}  // namespace vestrel::platform
