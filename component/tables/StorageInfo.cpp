#include "component/ClassInfo.h"
#include "component/tables/clsIniFileTable.h"
#include "component/tables/clsMultiFileTable.h"
#include "component/tables/clsSequenceTable.h"

namespace vestrel::component {

VESTREL_CLASS_INFO(clsIniFile)
VESTREL_CLASS_INFO(clsMultiFile)
VESTREL_CLASS_INFO(clsSequence)

}  // namespace vestrel::component
