#include "workbench/host/Assignment.h"

#include "workbench/host/SimulatedHost.h"

namespace vestrel::workbench {

void Assignment::CompleteAssignment(bool forceOverwrite) {
  host_.calls().Callback("CompleteAssignment", forceOverwrite);
}

}  // namespace vestrel::workbench
