// What every room of the controller uses: the parts it holds, each raising 91 where there is none.
#include "controller/clsButtonGroupController.h"

#include "controller/GroupButtons.h"
#include "core/Cast.h"
#include "core/Error.h"

namespace vestrel {
namespace {

template <class T>
Ref<T> Held(const Ref<T>& part) {
  if (!part) RaiseError(Error_ObjectNotSet, u"clsButtonGroupController");
  return part;
}

}  // namespace

clsButtonGroupController::clsButtonGroupController() = default;

clsButtonGroupController::~clsButtonGroupController() = default;

Ref<clsRecordController> clsButtonGroupController::recordController() const {
  return CastOrNone<clsRecordController>(recordController_.get());
}

Ref<IFormSequenceShortcuts> clsButtonGroupController::Form() const {
  return Held(form_);
}

Ref<LEDManager> clsButtonGroupController::Lamps() const {
  return Held(mLEDManager);
}

Ref<clsPageManager> clsButtonGroupController::Manager() const {
  return Held(pageManager_);
}

Ref<clsPage> clsButtonGroupController::CurrentPage() const {
  return Held(Manager()->CurrentPage());
}

Ref<clsButtonGroup> clsButtonGroupController::Group(std::int32_t groupIndex) const {
  return GroupOf(*CurrentPage(), groupIndex);
}

Ref<clsButton> clsButtonGroupController::EditButton() const {
  return Held(editButton_);
}

}  // namespace vestrel
