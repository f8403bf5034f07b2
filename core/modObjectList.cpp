#include "core/modObjectList.h"

#include <cstddef>

#include "core/Convert.h"
#include "core/clsString.h"

namespace vestrel::modObjectList {

Ref<clsObjectList> StringListFromArray(std::span<const Variant> values) {
  Ref<clsObjectList> list = MakeRef<clsObjectList>();
  for (const Variant& value : values) list->AddItem(BoxString(ToText(value)).get());
  return list;
}

Ref<clsObjectList> StringListFromSplit(std::u16string_view source, std::u16string_view delimiter) {
  Ref<clsObjectList> list = MakeRef<clsObjectList>();
  if (source.empty()) return list;
  std::size_t start = 0;
  std::size_t end = delimiter.empty() ? std::u16string_view::npos : source.find(delimiter);
  while (end != std::u16string_view::npos) {
    list->AddItem(BoxString(source.substr(start, end - start)).get());
    start = end + delimiter.size();
    end = source.find(delimiter, start);
  }
  list->AddItem(BoxString(source.substr(start)).get());
  return list;
}

}  // namespace vestrel::modObjectList
