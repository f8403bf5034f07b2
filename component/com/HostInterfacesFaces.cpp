#include "component/com/Thunk.h"
#include "component/tables/IAssignmentCallbackTable.h"
#include "component/tables/IButtonEventHandlerTable.h"
#include "component/tables/IFormSequenceShortcutsTable.h"
#include "component/tables/ILEDSetterTable.h"
#include "component/tables/IRecordControllerTable.h"
#include "component/tables/IRecordEventHandlerTable.h"
#include "component/tables/IVXEventListHandlerTable.h"

namespace vestrel::component {

template <>
const ClassInfo& InfoOf<IFormSequenceShortcuts>();
template <>
const ClassInfo& InfoOf<ILEDSetter>();
template <>
const ClassInfo& InfoOf<IAssignmentCallback>();
template <>
const ClassInfo& InfoOf<IButtonEventHandler>();
template <>
const ClassInfo& InfoOf<IRecordController>();
template <>
const ClassInfo& InfoOf<IRecordEventHandler>();
template <>
const ClassInfo& InfoOf<IVXEventListHandler>();

VESTREL_FACE_CLASS(IFormSequenceShortcuts)
VESTREL_FACE_CLASS(ILEDSetter)
VESTREL_FACE_CLASS(IAssignmentCallback)
VESTREL_FACE_CLASS(IButtonEventHandler)
VESTREL_FACE_CLASS(IRecordController)
VESTREL_FACE_CLASS(IRecordEventHandler)
VESTREL_FACE_CLASS(IVXEventListHandler)

}  // namespace vestrel::component
