#include "component/ClassInfo.h"
#include "component/tables/IAssignmentCallbackTable.h"
#include "component/tables/IButtonEventHandlerTable.h"
#include "component/tables/IFormSequenceShortcutsTable.h"
#include "component/tables/ILEDSetterTable.h"
#include "component/tables/IRecordControllerTable.h"
#include "component/tables/IRecordEventHandlerTable.h"
#include "component/tables/IVXEventListHandlerTable.h"

namespace vestrel::component {

VESTREL_CLASS_INFO(IFormSequenceShortcuts)
VESTREL_CLASS_INFO(ILEDSetter)
VESTREL_CLASS_INFO(IAssignmentCallback)
VESTREL_CLASS_INFO(IButtonEventHandler)
VESTREL_CLASS_INFO(IRecordController)
VESTREL_CLASS_INFO(IRecordEventHandler)
VESTREL_CLASS_INFO(IVXEventListHandler)

}  // namespace vestrel::component
