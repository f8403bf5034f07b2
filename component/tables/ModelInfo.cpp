#include "component/ClassInfo.h"
#include "component/tables/clsButtonGroupTable.h"
#include "component/tables/clsButtonTable.h"
#include "component/tables/clsDeferredTable.h"
#include "component/tables/clsFaderCatchTable.h"
#include "component/tables/clsPageTable.h"

namespace vestrel::component {

VESTREL_CLASS_INFO(clsButton)
VESTREL_CLASS_INFO(clsFaderCatch)
VESTREL_CLASS_INFO(clsButtonGroup)
VESTREL_CLASS_INFO(clsDeferred)
VESTREL_CLASS_INFO(clsPage)

}  // namespace vestrel::component
