#include "component/com/Thunk.h"
#include "component/tables/clsIniFileTable.h"
#include "component/tables/clsMultiFileTable.h"
#include "component/tables/clsSequenceTable.h"

namespace vestrel::component {

template <>
const ClassInfo& InfoOf<clsIniFile>();
template <>
const ClassInfo& InfoOf<clsMultiFile>();
template <>
const ClassInfo& InfoOf<clsSequence>();

VESTREL_FACE_CLASS(clsIniFile)
VESTREL_FACE_CLASS(clsMultiFile)
VESTREL_FACE_CLASS(clsSequence)

}  // namespace vestrel::component
