// The host's side of an assignment that waits for its slot. Made for each assignment; held by the controller
// until the next one.
#pragma once

#include "controller/interfaces/IAssignmentCallback.h"

namespace vestrel::workbench {

class SimulatedHost;

class Assignment : public virtual IAssignmentCallback {
 public:
  VESTREL_OBJECT(Assignment, IAssignmentCallback)

  // `host` outlives every call that the library makes.
  explicit Assignment(SimulatedHost& host) noexcept : host_(host) {}

  void CompleteAssignment(bool forceOverwrite = false) override;

 private:
  SimulatedHost& host_;
};

}  // namespace vestrel::workbench
