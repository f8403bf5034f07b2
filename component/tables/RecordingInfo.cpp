#include "component/ClassInfo.h"
#include "component/tables/clsRecordControllerTable.h"
#include "component/tables/vxEventListTable.h"
#include "component/tables/vxEventTable.h"

namespace vestrel::component {

VESTREL_CLASS_INFO(vxEvent)
VESTREL_CLASS_INFO(vxEventList)
VESTREL_CLASS_INFO(clsRecordController)

}  // namespace vestrel::component
