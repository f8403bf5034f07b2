// The system's own services, which are in force where nothing overrides them. One of each a process; each is
// implemented once per system.
#pragma once

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/HostServices.h"
#include "platform/TextEncoding.h"

namespace vestrel::platform {

Clock& SystemClock();
Files& SystemFiles();
TextEncoding& SystemEncoding();
HostServices& SystemHostServices();

}  // namespace vestrel::platform
