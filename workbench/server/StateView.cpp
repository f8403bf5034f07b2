#include "workbench/server/StateView.h"

#include <algorithm>
#include <array>
#include <set>
#include <system_error>

#include "controller/GroupButtons.h"
#include "core/Cast.h"
#include "core/Convert.h"
#include "workbench/commands/FileText.h"
#include "workbench/server/ScreenState.h"

namespace vestrel::workbench {

using nlohmann::json;
namespace fs = std::filesystem;

namespace {

constexpr std::array<std::int32_t, 6> kPageSizes{8, 9, 10, 12, 16, 20};

struct ItemKind {
  std::u16string_view extension;
  const char* type;
};
constexpr std::array<ItemKind, 4> kItemKinds{
    {{u".ASQ", "Sequence"}, {u".MUL", "Multi"}, {u".TLN", "Timeline"}, {u".AUT", "Auto"}}};

// The folder's entries in order of their names; none when it cannot be read.
std::vector<fs::directory_entry> EntriesOf(const fs::path& folder) {
  std::error_code error;
  std::vector<fs::directory_entry> entries;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    entries.push_back(*at);
  }
  std::sort(entries.begin(), entries.end());
  return entries;
}

bool IsFolder(const fs::directory_entry& entry) {
  std::error_code ignored;
  return entry.is_directory(ignored);
}

json FoldersIn(const fs::path& folder) {
  json names = json::array();
  for (const fs::directory_entry& entry : EntriesOf(folder)) {
    if (IsFolder(entry)) names.push_back(PathText(entry.path().filename()));
  }
  return names;
}

// The items of one page's folder.
void AddItems(const fs::path& folder, const std::string& page, json& items) {
  for (const fs::directory_entry& entry : EntriesOf(folder)) {
    for (const ItemKind& kind : kItemKinds) {
      if (entry.path().extension().u16string() != kind.extension) continue;
      const bool multi = kind.extension == u".MUL";
      items.push_back({{"id", page + "/" + PathText(entry.path().filename())},
                       {"type", kind.type},
                       {"name", PathText(entry.path().stem())},
                       {"page", page},
                       {"multi", multi ? PathText(entry.path().filename()) : std::string()}});
    }
  }
}

}  // namespace

json StateView::Whole() {
  sent_ = Derive();
  return sent_;
}

json StateView::TakeChanges() {
  Keys now = Derive();
  json changes;
  for (const auto& [key, value] : now) {
    const auto before = sent_.find(key);
    if (before == sent_.end() || before->second != value) changes[key] = value;
  }
  sent_ = std::move(now);
  return changes;
}

StateView::Keys StateView::Derive() {
  Keys keys = others_;
  if (held_) {
    keys.insert(sent_.begin(), sent_.end());
    return keys;
  }
  LookAtFolders();
  keys["show"] = Show();
  keys["items"] = items_;
  keys["layout"] = {{"pageSize", session_.host().pageSize()},
                    {"focus", session_.hasFocus()},
                    {"sizes", kPageSizes},
                    {"releaseOnPlay", session_.host().releaseOnPlay()}};
  for (std::int32_t group = kFirstGroup; group <= kLastGroup; ++group) {
    keys["group." + std::to_string(group)] = GroupState(session_, group);
  }
  keys["surface"] = SurfaceState(session_);
  keys["transport"] = TransportState(session_);
  keys["edit"] = EditState(session_);
  keys["stage"] = StageState(session_);
  return keys;
}

json StateView::Show() {
  const Ref<clsPageManager> pages = session_.host().controller().PageManager();
  if (!pages) return nullptr;
  const bool set = pages->showName() != clsPageManager::kNullShow;
  json names = json::array();
  const Ref<clsObjectList> list = pages->PageList();
  for (std::int32_t i = 0; list && i < list->Size(); ++i) {
    names.push_back(ToUtf8(Cast<clsPage>(list->GetItem(i).get()).pageName()));
  }
  const bool valid = pages->PageIsValid();
  return {{"name", set ? ToUtf8(pages->showName()) : std::string()},
          {"pages", std::move(names)},
          {"page", valid ? ToUtf8(pages->CurrentPageName()) : std::string()},
          {"shows", shows_},
          {"loading", pages->IsLoading()}};
}

void StateView::LookAtFolders() {
  const Ref<clsPageManager> pages = session_.host().controller().PageManager();
  const std::u16string place = pages ? pages->showName() + u"/" + pages->CurrentPageName() : u"";
  if (looked_ && seenChanges_ == session_.fileChanges() && seenPage_ == place) return;
  looked_ = true;
  seenChanges_ = session_.fileChanges();
  seenPage_ = place;
  const fs::path sequences = session_.dataFolder() / "Sequences";
  shows_ = FoldersIn(sequences);
  items_ = json::array();
  if (!pages || pages->showName() == clsPageManager::kNullShow) return;
  const fs::path show = sequences / pages->showName();
  for (const fs::directory_entry& page : EntriesOf(show)) {
    if (IsFolder(page)) AddItems(page.path(), PathText(page.path().filename()), items_);
  }
}

}  // namespace vestrel::workbench
