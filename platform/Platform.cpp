#include "platform/Platform.h"

#include <cstdlib>
#include <string_view>

#include "platform/System.h"

namespace vestrel::platform {
namespace {

thread_local Override::Services current;

template <class T>
void Replace(T*& service, T* replacement) {
  if (replacement != nullptr) service = replacement;
}

}  // namespace

Clock& clock() {
  return current.clock != nullptr ? *current.clock : SystemClock();
}

Files& files() {
  return current.files != nullptr ? *current.files : SystemFiles();
}

TextEncoding& encoding() {
  return current.encoding != nullptr ? *current.encoding : SystemEncoding();
}

HostServices& hostServices() {
  return current.hostServices != nullptr ? *current.hostServices : SystemHostServices();
}

Override::Override(const Services& services) : previous_(current) {
  Replace(current.clock, services.clock);
  Replace(current.files, services.files);
  Replace(current.encoding, services.encoding);
  Replace(current.hostServices, services.hostServices);
}

Override::~Override() {
  current = previous_;
}

bool MessageBoxesAreLogged() {
  const char* setting = std::getenv("VESTREL_MESSAGE_BOX");
  return setting != nullptr && std::string_view(setting) == "log";
}

}  // namespace vestrel::platform
