// The list of everything that is published: classes, interfaces and enumerations, each once. The order is
// that of the type library and the reference; new ones go to the end.
#pragma once

#include "component/Value.h"
#include "controller/interfaces/Enumerations.h"
#include "core/Object.h"
#include "util/LogLevel.h"
#include "util/clsFormatCaptureItem.h"

// clang-format off
#define VESTREL_CLASSES(X) \
  X(clsObjectList) \
  X(clsIterator) \
  X(clsDictionary) \
  X(clsLong) \
  X(clsString) \
  X(DefaultObjectComparator) \
  X(clsButtonPredicate) \
  X(IComparable) \
  X(IObjectComparator) \
  X(IObjectPredicate) \
  X(IObjListEventHandler) \
  X(clsLogger) \
  X(VestrelStatic) \
  X(clsFormatCapture) \
  X(clsFormatCaptureItem) \
  X(GlobalButtons) \
  X(clsIniFile) \
  X(clsMultiFile) \
  X(clsSequence) \
  X(clsButton) \
  X(clsFaderCatch) \
  X(clsButtonGroup) \
  X(clsDeferred) \
  X(clsPage) \
  X(clsPageManager) \
  X(clsButtonGroupController) \
  X(IFormSequenceShortcuts) \
  X(ILEDSetter) \
  X(IAssignmentCallback) \
  X(IButtonEventHandler) \
  X(IRecordController) \
  X(IRecordEventHandler) \
  X(IVXEventListHandler) \
  X(LEDManager) \
  X(vxEvent) \
  X(vxEventList) \
  X(clsRecordController) \
  X(UIFaderValues)

#define VESTREL_ENUMERATIONS(X) \
  X(ButtonTypeEnum) \
  X(PlayStateEnum) \
  X(FaderModeEnum) \
  X(BumpModeEnum) \
  X(PSEventSourceEnum) \
  X(EditModeEnum) \
  X(TriggerModeEnum) \
  X(HighlightDirEnum) \
  X(PageDirEnum) \
  X(ShiftModeEnum) \
  X(MarkFadeTypeEnum) \
  X(IFSSRefreshEnum) \
  X(IFSSFaderTypeEnum) \
  X(LEDGroupEnum) \
  X(LEDStateEnum) \
  X(LogLevel_Enum) \
  X(RecordModeEnum) \
  X(vxEventTypeEnum) \
  X(TransportStateEnum) \
  X(CaptureTypeEnum) \
  X(ButtonPredicateMode) \
  X(BGCErrors) \
  X(clsButtonErrors)
// clang-format on

namespace vestrel {
#define VESTREL_DECLARE(Class) class Class;
VESTREL_CLASSES(VESTREL_DECLARE)
#undef VESTREL_DECLARE
class IPageController;
}  // namespace vestrel

namespace vestrel::component {

#define VESTREL_PUBLISH(Class)                        \
  template <>                                         \
  struct PublishedName<Class> {                       \
    static constexpr std::string_view value = #Class; \
  };
VESTREL_CLASSES(VESTREL_PUBLISH)
#undef VESTREL_PUBLISH

// Any object.
template <>
struct PublishedName<Object> {
  static constexpr std::string_view value{};
};
// What the model needs of the controller is no interface of its own at the boundary.
template <>
struct PublishedName<IPageController> {
  static constexpr std::string_view value = PublishedName<clsButtonGroupController>::value;
};

#define VESTREL_PUBLISH(Enumeration)                        \
  template <>                                               \
  struct EnumerationName<Enumeration> {                     \
    static constexpr std::string_view value = #Enumeration; \
  };
VESTREL_ENUMERATIONS(VESTREL_PUBLISH)
#undef VESTREL_PUBLISH

}  // namespace vestrel::component
