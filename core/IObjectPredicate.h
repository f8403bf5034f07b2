// A yes or no question about an object, given to a list's search and filter. Implemented by
// clsButtonPredicate and by hosts. A plain IObjectPredicate can be made too: it is true for nothing.
#pragma once

#include "core/Object.h"

namespace vestrel {

class IObjectPredicate : public virtual Object {
 public:
  VESTREL_OBJECT(IObjectPredicate)

  // What it raises reaches whoever searches.
  virtual bool IsTrueFor(Object* obj);
};

inline bool IObjectPredicate::IsTrueFor(Object* /*obj*/) {
  return false;
}

}  // namespace vestrel
