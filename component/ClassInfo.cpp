#include "component/ClassInfo.h"

#include <array>
#include <string>
#include <typeindex>
#include <unordered_map>

#include "core/Convert.h"

namespace vestrel::component {

#define VESTREL_DECLARE(Class) \
  template <>                  \
  const ClassInfo& InfoOf<Class>();
VESTREL_CLASSES(VESTREL_DECLARE)
#undef VESTREL_DECLARE

std::span<const ClassInfo* const> AllClasses() {
#define VESTREL_REFER(Class) &InfoOf<Class>(),
  static const std::array classes{VESTREL_CLASSES(VESTREL_REFER)};
#undef VESTREL_REFER
  return classes;
}

const ClassInfo* FindClass(std::u16string_view name) {
  for (const ClassInfo* info : AllClasses()) {
    if (EqualIgnoringCase(FromUtf8(info->description->name()), name)) return info;
  }
  return nullptr;
}

namespace {

// A program's own class, derived from a published one or implementing a published interface.
const ClassInfo* ClassByQuery(Object& object) {
  for (const ClassInfo* info : AllClasses()) {
    if (object.Query(info->key) != nullptr) return info;
  }
  return nullptr;
}

std::unordered_map<std::type_index, const ClassInfo*> ClassesByType() {
  std::unordered_map<std::type_index, const ClassInfo*> result;
  for (const ClassInfo* info : AllClasses()) result.emplace(*info->type, info);
  return result;
}

}  // namespace

const ClassInfo* ClassOf(Object& object) {
  static const auto byType = ClassesByType();
  const auto found = byType.find(typeid(object));
  return found != byType.end() ? found->second : ClassByQuery(object);
}

void InvokeSlot(const ClassInfo& info, int slot, void* self, Call& call) {
  const auto position = static_cast<std::size_t>(slot);
  const Operation& operation = info.description->slots()[position].operation;
  for (int i = 0; i < operation.parameterCount; ++i) {
    if (!call.Given(i) && !operation.parameters[static_cast<std::size_t>(i)].optional()) {
      throw CallFailure{CallStatus::ArgumentRequired, i};
    }
  }
  info.invoke[position](self, call, operation);
}

}  // namespace vestrel::component
