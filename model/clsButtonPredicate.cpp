#include "model/clsButtonPredicate.h"

#include "core/Cast.h"
#include "model/clsButton.h"

namespace vestrel {

void clsButtonPredicate::SetButtonIndexBetween(std::int32_t lower, std::int32_t upper) noexcept {
  mode_ = ButtonPred_IndexBetween;
  lower_ = lower;
  upper_ = upper;
}

void clsButtonPredicate::SetButtonIndexGreaterThan(std::int32_t lower, bool inclusive) noexcept {
  mode_ = ButtonPred_IndexGreaterThan;
  lower_ = lower;
  inclusive_ = inclusive;
}

void clsButtonPredicate::SetButtonIndexLessThan(std::int32_t upper, bool inclusive) noexcept {
  mode_ = ButtonPred_IndexLessThan;
  upper_ = upper;
  inclusive_ = inclusive;
}

void clsButtonPredicate::SetButtonType(ButtonTypeEnum buttonType) noexcept {
  mode_ = ButtonPred_TypeIs;
  buttonType_ = buttonType;
}

bool clsButtonPredicate::IsTrueFor(Object* obj) {
  const clsButton& button = Cast<clsButton>(obj);
  const std::int32_t index = button.buttonIndex;
  switch (mode_) {
    case ButtonPred_IndexBetween:
      return lower_ <= index && index <= upper_;
    case ButtonPred_IndexLessThan:
      return inclusive_ ? index <= upper_ : index < upper_;
    case ButtonPred_IndexGreaterThan:
      return inclusive_ ? index >= lower_ : index > lower_;
    case ButtonPred_TypeIs:
      return button.buttonType == buttonType_;
  }
  return false;
}

}  // namespace vestrel
