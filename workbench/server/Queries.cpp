#include "workbench/server/Queries.h"

#include <algorithm>

#include "controller/GroupButtons.h"
#include "core/Cast.h"
#include "core/Convert.h"
#include "core/LetterCase.h"
#include "recording/vxEvent.h"
#include "workbench/server/ScreenState.h"

namespace vestrel::workbench {

using nlohmann::json;

namespace {

constexpr std::size_t kMostResults = 100;
constexpr std::int64_t kMostRows = 500;

// As the library compares names.
std::u16string Folded(std::u16string text) {
  std::transform(text.begin(), text.end(), text.begin(), FoldLetter);
  return text;
}

json FoundButton(const clsPage& page, const clsButton& button) {
  return {{"page", ToUtf8(page.pageName())},
          {"group", button.groupIndex},
          {"index", button.buttonIndex},
          {"name", ToUtf8(button.name)}};
}

// Adds what fits; answers whether there was room for all.
bool AddFrom(const clsPage& page, const std::u16string& wanted, json& results) {
  for (std::int32_t number = kFirstGroup; number <= kLastGroup; ++number) {
    const Ref<clsButtonGroup> group = page.ButtonGroups(number);
    for (std::int32_t i = 0; group && i < group->buttons->Size(); ++i) {
      const Ref<Object> item = group->buttons->GetItem(i);
      const auto& button = Cast<clsButton>(item.get());
      if (Folded(button.name).find(wanted) == std::u16string::npos) continue;
      if (results.size() == kMostResults) return false;
      results.push_back(FoundButton(page, button));
    }
  }
  return true;
}

json EventRow(WorkSession& session, std::int64_t position, Object* item) {
  const auto* event = TryCast<vxEvent>(item);
  if (event == nullptr) return {{"i", position}};
  return {{"i", position},
          {"time", ToUtf8(session.host().record().msToTimecode(event->time()))},
          {"ms", event->time()},
          {"kind", event->eventType == vxEvent_ButtonOff ? "off" : "on"},
          {"text", ValueText(event->button)}};
}

}  // namespace

json FindButtons(WorkSession& session, std::string_view text) {
  const std::u16string wanted = Folded(FromUtf8(text));
  json results = json::array();
  bool complete = true;
  const Ref<clsPageManager> pages = session.host().controller().PageManager();
  const Ref<clsObjectList> list = pages ? pages->PageList() : nullptr;
  for (std::int32_t i = 0; list && complete && i < list->Size(); ++i) {
    const Ref<Object> item = list->GetItem(i);
    complete = AddFrom(Cast<clsPage>(item.get()), wanted, results);
  }
  return {{"results", std::move(results)}, {"more", !complete}};
}

json EventRows(WorkSession& session, std::int64_t from, std::int64_t count) {
  const Ref<clsObjectList> events = session.host().record().EventList();
  const std::int64_t total = std::max(events->Size(), 0);
  const std::int64_t first = std::clamp<std::int64_t>(from, 0, total);
  const std::int64_t last = std::min(total, first + std::clamp<std::int64_t>(count, 0, kMostRows));
  json rows = json::array();
  for (std::int64_t i = first; i < last; ++i) {
    rows.push_back(EventRow(session, i, events->GetItem(static_cast<std::int32_t>(i)).get()));
  }
  return {{"total", total}, {"from", first}, {"rows", std::move(rows)}};
}

json CommandList(const OperationTable& operations) {
  json list = json::array();
  for (const auto& [name, operation] : operations.all()) {
    json arguments = json::array();
    for (std::size_t i = 0; i < operation.parameters.size(); ++i) {
      if (operation.kinds[i].empty()) continue;
      arguments.push_back({{"name", operation.parameters[i].name},
                           {"type", operation.kinds[i]},
                           {"optional", operation.parameters[i].optional}});
    }
    list.push_back({{"name", name}, {"args", std::move(arguments)}, {"help", operation.Usage()}});
  }
  return list;
}

}  // namespace vestrel::workbench
