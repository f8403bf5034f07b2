#include "component/com/Thunk.h"
#include "component/tables/LEDManagerTable.h"
#include "component/tables/clsButtonGroupControllerTable.h"
#include "component/tables/clsPageManagerTable.h"

namespace vestrel::component {

template <>
const ClassInfo& InfoOf<clsPageManager>();
template <>
const ClassInfo& InfoOf<clsButtonGroupController>();
template <>
const ClassInfo& InfoOf<LEDManager>();

VESTREL_FACE_CLASS(clsPageManager)
VESTREL_FACE_CLASS(clsButtonGroupController)
VESTREL_FACE_CLASS(LEDManager)

}  // namespace vestrel::component
