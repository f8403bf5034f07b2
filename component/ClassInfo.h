// A published class with its behaviour: how to make one, recognise one and call its operations. The registry
// of all of them. Lives as long as the program.
#pragma once

#include <span>
#include <string_view>
#include <typeinfo>
#include <vector>

#include "component/ClassDescription.h"
#include "component/Invoker.h"
#include "core/Ref.h"

namespace vestrel::component {

struct ClassInfo {
  const ClassDescription* description = nullptr;
  TypeKey key = nullptr;
  const std::type_info* type = nullptr;
  // A new one, as a host creates it.
  Ref<Object> (*create)() = nullptr;
  // One for each slot.
  std::vector<InvokeFunction> invoke;
};

// All published classes, in the order of component/Classes.h.
std::span<const ClassInfo* const> AllClasses();
// The class of that name in any letter case, or null.
const ClassInfo* FindClass(std::u16string_view name);
// The class that the object is, or null for one that is not published.
const ClassInfo* ClassOf(Object& object);

// Calls slot `slot` of the class on `self`, which is what Query answers for the class's key: checks that no
// required argument is missing, then invokes. Raises CallFailure and what the operation raises.
void InvokeSlot(const ClassInfo& info, int slot, void* self, Call& call);

// The information about T; defined in one source file for each class by the macro below.
template <class T>
const ClassInfo& InfoOf();

template <class T>
ClassInfo MakeClassInfo() {
  ClassInfo info;
  info.description = FindDescription(PublishedName<T>::value);
  info.key = KeyOf<T>();
  info.type = &typeid(T);
  info.create = [] { return Ref<Object>(MakeRef<T>()); };
  std::apply(
      [&](const auto&... entries) {
        (info.invoke.push_back(&InvokeEntry<T, std::remove_cvref_t<decltype(entries)>>), ...);
      },
      TableOf<T>::kTable.entries);
  return info;
}

#define VESTREL_CLASS_INFO(Class)                         \
  template <>                                             \
  const ClassInfo& InfoOf<Class>() {                      \
    static const ClassInfo info = MakeClassInfo<Class>(); \
    return info;                                          \
  }

}  // namespace vestrel::component
