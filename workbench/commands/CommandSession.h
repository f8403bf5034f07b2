// What a run of commands works on beside the host: the multi file, the shared button state and the helper
// object that the commands create as a host's program would. Owned by the front end; refers to the host.
#pragma once

#include "core/Ref.h"
#include "storage/clsMultiFile.h"
#include "util/GlobalButtons.h"
#include "util/VestrelStatic.h"
#include "workbench/host/SimulatedHost.h"

namespace vestrel::workbench {

class FileWatch;

class CommandSession {
 public:
  // Both outlive it. `watch` may be null: then nobody watches the files.
  CommandSession(SimulatedHost& host, FileWatch* watch);

  SimulatedHost& host() noexcept { return host_; }
  // The files of the data folder, or null.
  FileWatch* watch() noexcept { return watch_; }
  // Names no file before its Init.
  clsMultiFile& multi() noexcept { return *multi_; }
  GlobalButtons& globals() noexcept { return *globals_; }
  VestrelStatic& statics() noexcept { return *statics_; }

 private:
  SimulatedHost& host_;
  FileWatch* watch_;
  Ref<clsMultiFile> multi_;
  Ref<GlobalButtons> globals_;
  Ref<VestrelStatic> statics_;
};

}  // namespace vestrel::workbench
