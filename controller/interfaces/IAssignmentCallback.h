// The host's object that started an assignment; told when the operator completes it. Kept alive by the
// controller until another assignment or show takes its place. What it raises ends the assignment before the
// button is placed.
#pragma once

#include "core/Object.h"

namespace vestrel {

class IAssignmentCallback : public virtual Object {
 public:
  VESTREL_OBJECT(IAssignmentCallback)

  // The button is about to be placed. forceOverwrite: it replaces one that was deleted just before.
  virtual void CompleteAssignment(bool /*forceOverwrite*/ = false) {}
};

}  // namespace vestrel
