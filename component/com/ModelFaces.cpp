#include "component/com/Thunk.h"
#include "component/tables/clsButtonGroupTable.h"
#include "component/tables/clsButtonTable.h"
#include "component/tables/clsDeferredTable.h"
#include "component/tables/clsFaderCatchTable.h"
#include "component/tables/clsPageTable.h"

namespace vestrel::component {

template <>
const ClassInfo& InfoOf<clsButton>();
template <>
const ClassInfo& InfoOf<clsFaderCatch>();
template <>
const ClassInfo& InfoOf<clsButtonGroup>();
template <>
const ClassInfo& InfoOf<clsDeferred>();
template <>
const ClassInfo& InfoOf<clsPage>();

VESTREL_FACE_CLASS(clsButton)
VESTREL_FACE_CLASS(clsFaderCatch)
VESTREL_FACE_CLASS(clsButtonGroup)
VESTREL_FACE_CLASS(clsDeferred)
VESTREL_FACE_CLASS(clsPage)

}  // namespace vestrel::component
