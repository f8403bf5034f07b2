#include "component/com/Thunk.h"
#include "component/tables/GlobalButtonsTable.h"
#include "component/tables/UIFaderValuesTable.h"
#include "component/tables/VestrelStaticTable.h"
#include "component/tables/clsFormatCaptureItemTable.h"
#include "component/tables/clsFormatCaptureTable.h"
#include "component/tables/clsLoggerTable.h"

namespace vestrel::component {

template <>
const ClassInfo& InfoOf<clsLogger>();
template <>
const ClassInfo& InfoOf<VestrelStatic>();
template <>
const ClassInfo& InfoOf<clsFormatCapture>();
template <>
const ClassInfo& InfoOf<clsFormatCaptureItem>();
template <>
const ClassInfo& InfoOf<GlobalButtons>();
template <>
const ClassInfo& InfoOf<UIFaderValues>();

VESTREL_FACE_CLASS(clsLogger)
VESTREL_FACE_CLASS(VestrelStatic)
VESTREL_FACE_CLASS(clsFormatCapture)
VESTREL_FACE_CLASS(clsFormatCaptureItem)
VESTREL_FACE_CLASS(GlobalButtons)
VESTREL_FACE_CLASS(UIFaderValues)

}  // namespace vestrel::component
