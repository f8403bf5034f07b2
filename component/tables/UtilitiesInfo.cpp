#include "component/ClassInfo.h"
#include "component/tables/GlobalButtonsTable.h"
#include "component/tables/UIFaderValuesTable.h"
#include "component/tables/VestrelStaticTable.h"
#include "component/tables/clsFormatCaptureItemTable.h"
#include "component/tables/clsFormatCaptureTable.h"
#include "component/tables/clsLoggerTable.h"

namespace vestrel::component {

VESTREL_CLASS_INFO(clsLogger)
VESTREL_CLASS_INFO(VestrelStatic)
VESTREL_CLASS_INFO(clsFormatCapture)
VESTREL_CLASS_INFO(clsFormatCaptureItem)
VESTREL_CLASS_INFO(GlobalButtons)
VESTREL_CLASS_INFO(UIFaderValues)

}  // namespace vestrel::component
