// Short ways to fill and read lists in tests, and an observer that writes down what it is told.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/IObjListEventHandler.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"
#include "core/clsString.h"

namespace vestrel::test {

inline Ref<clsObjectList> Texts(std::initializer_list<std::u16string_view> values) {
  Ref<clsObjectList> list = MakeRef<clsObjectList>();
  for (const std::u16string_view value : values) list->AddItem(BoxString(value).get());
  return list;
}

inline Ref<clsObjectList> Longs(std::initializer_list<std::int32_t> values) {
  Ref<clsObjectList> list = MakeRef<clsObjectList>();
  for (const std::int32_t value : values) list->AddItem(BoxLong(value).get());
  return list;
}

// A boxed value as text; "-" for none.
inline std::string Shown(Object* item) {
  return item == nullptr ? "-" : ToUtf8(ToText(Variant(Ref<Object>(item))));
}

// The list's boxed values as text, separated by blanks.
inline std::string Shown(const clsObjectList& list) {
  std::string result;
  for (Object* item : list.Snapshot()) result += (result.empty() ? "" : " ") + Shown(item);
  return result;
}

// "+a@0/3": an insertion or a removal, its position, and the list's size at that moment.
inline std::string ShownEvent(const char* sign, Object* item, std::int32_t atIndex, std::int32_t size) {
  return sign + Shown(item) + "@" + std::to_string(atIndex) + "/" + std::to_string(size);
}

class RecordingObserver : public IObjListEventHandler {
 public:
  VESTREL_OBJECT(RecordingObserver, IObjListEventHandler)

  std::vector<std::string> events;
  Object* lastList = nullptr;
  Object* lastUserData = nullptr;

  void ItemAdded(clsObjectList* list, Object* item, std::int32_t atIndex, Object* userData) override {
    Note("+", list, item, atIndex, userData);
  }
  void ItemRemoved(clsObjectList* list, Object* item, std::int32_t atIndex, Object* userData) override {
    Note("-", list, item, atIndex, userData);
  }

 private:
  void Note(const char* sign, clsObjectList* list, Object* item, std::int32_t atIndex, Object* userData) {
    lastList = list;
    lastUserData = userData;
    events.push_back(ShownEvent(sign, item, atIndex, list->Size()));
  }
};

}  // namespace vestrel::test
