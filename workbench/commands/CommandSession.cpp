#include "workbench/commands/CommandSession.h"

namespace vestrel::workbench {

CommandSession::CommandSession(SimulatedHost& host, FileWatch* watch)
    : host_(host),
      watch_(watch),
      multi_(MakeRef<clsMultiFile>()),
      globals_(MakeRef<GlobalButtons>()),
      statics_(MakeRef<VestrelStatic>()) {}

}  // namespace vestrel::workbench
