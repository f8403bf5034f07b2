#include <array>

#include "component/Ids.h"
#include "component/com/Thunk.h"
#include "component/com/TypeInformation.h"

namespace vestrel::component {

#define VESTREL_DECLARE(Class)      \
  template <>                       \
  const ClassInfo& InfoOf<Class>(); \
  template <>                       \
  const FaceClass& FaceClassOf<Class>();
VESTREL_CLASSES(VESTREL_DECLARE)
#undef VESTREL_DECLARE

FaceClass MakeFaceClass(const ClassInfo& info, const void* const* vtable) {
  const ClassIds& ids = IdsOf(info.description->name());
  return {&info, SystemGuid(ids.interfaceId), SystemGuid(ids.classId), vtable};
}

std::span<const FaceClass* const> AllFaceClasses() {
#define VESTREL_REFER(Class) &FaceClassOf<Class>(),
  static const std::array classes{VESTREL_CLASSES(VESTREL_REFER)};
#undef VESTREL_REFER
  return classes;
}

namespace {

template <class Fits>
const FaceClass* FirstThat(Fits fits) {
  for (const FaceClass* faceClass : AllFaceClasses()) {
    if (fits(*faceClass)) return faceClass;
  }
  return nullptr;
}

}  // namespace

const FaceClass* FindFaceClass(const ClassInfo& info) {
  return FirstThat([&](const FaceClass& faceClass) { return faceClass.info == &info; });
}

const FaceClass* FindFaceClass(std::string_view name) {
  return FirstThat([&](const FaceClass& faceClass) { return faceClass.info->description->name() == name; });
}

const FaceClass* FindFaceClass(const CLSID& classId) {
  return FirstThat([&](const FaceClass& faceClass) { return faceClass.classId == classId; });
}

}  // namespace vestrel::component
