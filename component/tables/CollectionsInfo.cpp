#include "component/ClassInfo.h"
#include "component/tables/clsDictionaryTable.h"
#include "component/tables/clsIteratorTable.h"
#include "component/tables/clsObjectListTable.h"

namespace vestrel::component {

VESTREL_CLASS_INFO(clsObjectList)
VESTREL_CLASS_INFO(clsIterator)
VESTREL_CLASS_INFO(clsDictionary)

}  // namespace vestrel::component
