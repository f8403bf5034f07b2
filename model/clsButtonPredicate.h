// Selects buttons by index range or by type; for clsObjectList's searches and filter. A new one is true for
// the indices 0 to 100. Each setter chooses the test and keeps what it does not name. Owned by whoever holds
// it.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "core/IObjectPredicate.h"

namespace vestrel {

class clsButtonPredicate : public virtual IObjectPredicate {
 public:
  VESTREL_OBJECT(clsButtonPredicate, IObjectPredicate)

  // lower <= buttonIndex <= upper; never true when lower is above upper.
  void SetButtonIndexBetween(std::int32_t lower, std::int32_t upper) noexcept;
  // buttonIndex > lower, or >= when inclusive.
  void SetButtonIndexGreaterThan(std::int32_t lower, bool inclusive) noexcept;
  // buttonIndex < upper, or <= when inclusive.
  void SetButtonIndexLessThan(std::int32_t upper, bool inclusive) noexcept;
  // The button's type is this one.
  void SetButtonType(ButtonTypeEnum buttonType) noexcept;

  // Whether the button fits. Raises 13 for an object that is no button, 91 for none.
  bool IsTrueFor(Object* obj) override;

 private:
  ButtonPredicateMode mode_ = ButtonPred_IndexBetween;
  std::int32_t lower_ = 0;
  std::int32_t upper_ = 100;
  bool inclusive_ = false;
  ButtonTypeEnum buttonType_{};
};

}  // namespace vestrel
