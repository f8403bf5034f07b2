// Values of the library as stable UTF-8 text: texts in double quotes (doubled inside), enumerations by name,
// buttons as name@group/index, lists in square brackets, "none" for no object. Independent of the locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "controller/interfaces/TUIFaderValues.h"
#include "core/Ref.h"
#include "core/Variant.h"
#include "workbench/host/EnumNames.h"

namespace vestrel::workbench {

// Text that is in its final form.
struct PlainText {
  std::string text;
};

std::string ValueText(bool value);
std::string ValueText(std::int32_t value);
std::string ValueText(std::int16_t value);
std::string ValueText(float value);
std::string ValueText(std::u16string_view value);
std::string ValueText(const std::u16string& value);
// "groups 0 0 0 0 0 0 0 0 bumps 0 0 0 0 0 0 0 0".
std::string ValueText(const TUIFaderValues& values);
std::string ValueText(const Variant& value);
std::string ValueText(const PlainText& value);
// No pointer but one to an object is a value; without this it would count as a boolean.
std::string ValueText(const void* value) = delete;

// Buttons, boxes, lists, dictionaries, pages, groups, events and sequences; another one as "object".
std::string ObjectText(Object* object);

template <class E>
requires std::is_enum_v<E> std::string ValueText(E value) {
  return EnumText(NamesOf<E>(), value);
}
template <class T>
requires std::is_base_of_v<Object, T> std::string ValueText(T* object) {
  return ObjectText(object);
}
template <class T>
std::string ValueText(const Ref<T>& object) {
  return ObjectText(object.get());
}

// The texts with ", " between them.
std::string JoinTexts(const std::vector<std::string>& texts);

}  // namespace vestrel::workbench
