// Reads all tables. Kept apart from what calls the operations, so that the build tools that only read the
// tables need nothing of the library but its headers.
#include "component/ClassDescription.h"
#include "component/tables/DefaultObjectComparatorTable.h"
#include "component/tables/GlobalButtonsTable.h"
#include "component/tables/IAssignmentCallbackTable.h"
#include "component/tables/IButtonEventHandlerTable.h"
#include "component/tables/IComparableTable.h"
#include "component/tables/IFormSequenceShortcutsTable.h"
#include "component/tables/ILEDSetterTable.h"
#include "component/tables/IObjListEventHandlerTable.h"
#include "component/tables/IObjectComparatorTable.h"
#include "component/tables/IObjectPredicateTable.h"
#include "component/tables/IRecordControllerTable.h"
#include "component/tables/IRecordEventHandlerTable.h"
#include "component/tables/IVXEventListHandlerTable.h"
#include "component/tables/LEDManagerTable.h"
#include "component/tables/UIFaderValuesTable.h"
#include "component/tables/VestrelStaticTable.h"
#include "component/tables/clsButtonGroupControllerTable.h"
#include "component/tables/clsButtonGroupTable.h"
#include "component/tables/clsButtonPredicateTable.h"
#include "component/tables/clsButtonTable.h"
#include "component/tables/clsDeferredTable.h"
#include "component/tables/clsDictionaryTable.h"
#include "component/tables/clsFaderCatchTable.h"
#include "component/tables/clsFormatCaptureItemTable.h"
#include "component/tables/clsFormatCaptureTable.h"
#include "component/tables/clsIniFileTable.h"
#include "component/tables/clsIteratorTable.h"
#include "component/tables/clsLoggerTable.h"
#include "component/tables/clsLongTable.h"
#include "component/tables/clsMultiFileTable.h"
#include "component/tables/clsObjectListTable.h"
#include "component/tables/clsPageManagerTable.h"
#include "component/tables/clsPageTable.h"
#include "component/tables/clsRecordControllerTable.h"
#include "component/tables/clsSequenceTable.h"
#include "component/tables/clsStringTable.h"
#include "component/tables/vxEventListTable.h"
#include "component/tables/vxEventTable.h"

namespace vestrel::component {

std::span<const ClassDescription> AllDescriptions() {
#define VESTREL_DESCRIBE(Class) Describe<Class>(),
  static const std::vector<ClassDescription> descriptions{VESTREL_CLASSES(VESTREL_DESCRIBE)};
#undef VESTREL_DESCRIBE
  return descriptions;
}

const ClassDescription* FindDescription(std::string_view name) {
  for (const ClassDescription& description : AllDescriptions()) {
    if (description.name() == name) return &description;
  }
  return nullptr;
}

}  // namespace vestrel::component
