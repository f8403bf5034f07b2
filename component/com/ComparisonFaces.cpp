#include "component/com/Thunk.h"
#include "component/tables/DefaultObjectComparatorTable.h"
#include "component/tables/IComparableTable.h"
#include "component/tables/IObjListEventHandlerTable.h"
#include "component/tables/IObjectComparatorTable.h"
#include "component/tables/IObjectPredicateTable.h"
#include "component/tables/clsButtonPredicateTable.h"
#include "component/tables/clsLongTable.h"
#include "component/tables/clsStringTable.h"

namespace vestrel::component {

template <>
const ClassInfo& InfoOf<clsLong>();
template <>
const ClassInfo& InfoOf<clsString>();
template <>
const ClassInfo& InfoOf<DefaultObjectComparator>();
template <>
const ClassInfo& InfoOf<clsButtonPredicate>();
template <>
const ClassInfo& InfoOf<IComparable>();
template <>
const ClassInfo& InfoOf<IObjectComparator>();
template <>
const ClassInfo& InfoOf<IObjectPredicate>();
template <>
const ClassInfo& InfoOf<IObjListEventHandler>();

VESTREL_FACE_CLASS(clsLong)
VESTREL_FACE_CLASS(clsString)
VESTREL_FACE_CLASS(DefaultObjectComparator)
VESTREL_FACE_CLASS(clsButtonPredicate)
VESTREL_FACE_CLASS(IComparable)
VESTREL_FACE_CLASS(IObjectComparator)
VESTREL_FACE_CLASS(IObjectPredicate)
VESTREL_FACE_CLASS(IObjListEventHandler)

}  // namespace vestrel::component
