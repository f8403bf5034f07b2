#include "component/com/Thunk.h"
#include "component/tables/clsRecordControllerTable.h"
#include "component/tables/vxEventListTable.h"
#include "component/tables/vxEventTable.h"

namespace vestrel::component {

template <>
const ClassInfo& InfoOf<vxEvent>();
template <>
const ClassInfo& InfoOf<vxEventList>();
template <>
const ClassInfo& InfoOf<clsRecordController>();

VESTREL_FACE_CLASS(vxEvent)
VESTREL_FACE_CLASS(vxEventList)
VESTREL_FACE_CLASS(clsRecordController)

}  // namespace vestrel::component
