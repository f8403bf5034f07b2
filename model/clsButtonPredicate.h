// Selects buttons by index range or by type; for clsObjectList's searches and filter.
#pragma once

#include <cstdint>

#include "controller/interfaces/Enumerations.h"
#include "core/IObjectPredicate.h"

namespace vestrel {

class clsButtonPredicate : public virtual IObjectPredicate {
 public:
  VESTREL_OBJECT(clsButtonPredicate, IObjectPredicate)

  // lower <= index <= upper.
  void SetButtonIndexBetween(std::int32_t lower, std::int32_t upper) noexcept;
  void SetButtonIndexGreaterThan(std::int32_t lower, bool inclusive) noexcept;
  void SetButtonIndexLessThan(std::int32_t upper, bool inclusive) noexcept;
  void SetButtonType(ButtonTypeEnum buttonType) noexcept;

  // Raises 13 for an object that is no button, 91 for none.
  bool IsTrueFor(Object* obj) override;

 private:
  ButtonPredicateMode mode_ = ButtonPred_IndexBetween;
  std::int32_t lower_ = 0;
  std::int32_t upper_ = 100;
  bool inclusive_ = false;
  ButtonTypeEnum buttonType_{};
};

}  // namespace vestrel
