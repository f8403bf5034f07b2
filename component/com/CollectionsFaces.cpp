#include "component/com/Thunk.h"
#include "component/tables/clsDictionaryTable.h"
#include "component/tables/clsIteratorTable.h"
#include "component/tables/clsObjectListTable.h"

namespace vestrel::component {

template <>
const ClassInfo& InfoOf<clsObjectList>();
template <>
const ClassInfo& InfoOf<clsIterator>();
template <>
const ClassInfo& InfoOf<clsDictionary>();

VESTREL_FACE_CLASS(clsObjectList)
VESTREL_FACE_CLASS(clsIterator)
VESTREL_FACE_CLASS(clsDictionary)

}  // namespace vestrel::component
