#include "component/ClassInfo.h"
#include "component/tables/DefaultObjectComparatorTable.h"
#include "component/tables/IComparableTable.h"
#include "component/tables/IObjListEventHandlerTable.h"
#include "component/tables/IObjectComparatorTable.h"
#include "component/tables/IObjectPredicateTable.h"
#include "component/tables/clsButtonPredicateTable.h"
#include "component/tables/clsLongTable.h"
#include "component/tables/clsStringTable.h"

namespace vestrel::component {

VESTREL_CLASS_INFO(clsLong)
VESTREL_CLASS_INFO(clsString)
VESTREL_CLASS_INFO(DefaultObjectComparator)
VESTREL_CLASS_INFO(clsButtonPredicate)
VESTREL_CLASS_INFO(IComparable)
VESTREL_CLASS_INFO(IObjectComparator)
VESTREL_CLASS_INFO(IObjectPredicate)
VESTREL_CLASS_INFO(IObjListEventHandler)

}  // namespace vestrel::component
