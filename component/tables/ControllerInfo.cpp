#include "component/ClassInfo.h"
#include "component/tables/LEDManagerTable.h"
#include "component/tables/clsButtonGroupControllerTable.h"
#include "component/tables/clsPageManagerTable.h"

namespace vestrel::component {

VESTREL_CLASS_INFO(clsPageManager)
VESTREL_CLASS_INFO(clsButtonGroupController)
VESTREL_CLASS_INFO(LEDManager)

}  // namespace vestrel::component
