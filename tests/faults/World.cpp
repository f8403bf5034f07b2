#include "tests/faults/World.h"

#include <algorithm>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/clsString.h"
#include "util/modLog.h"

namespace vestrel::test {
namespace {

std::string TextOf(const clsButton& button) {
  return " " + ToUtf8(button.name) + "|" + std::to_string(button.buttonIndex) + "|" +
         std::to_string(button.buttonType) + "|" + std::to_string(button.playState()) + "|" +
         std::to_string(button.faderValue()) + "|" + std::to_string(button.FaderMode()) + "|" +
         std::to_string(button.BumpMode()) + (button.isHighlighted ? "|highlighted" : "");
}

std::string TextOf(const clsPage& page) {
  std::string text = ToUtf8(page.pageName()) + ":\n";
  for (std::int32_t g = 0; g <= 9; ++g) {
    const Ref<clsButtonGroup> group = page.ButtonGroups(g);
    text += " " + std::to_string(group->pageOffset) + "/" + std::to_string(group->Fader()->value());
    for (Object* item : group->buttons->Snapshot()) text += TextOf(Cast<clsButton>(item));
    text += " playing " + std::to_string(group->nowPlayingList->Size()) + "\n";
  }
  return text;
}

bool EndsWith(const std::u16string& path, std::u16string_view end) {
  return std::u16string_view(path).ends_with(end);
}

}  // namespace

World::World(bool logFails) {
  if (!logFails) point.exempt = kLog;
  memory.PutFolder(u"C:\\app");
  modLog::Init(kLog);
  seam.before = [this](FileCall& call) { return point(call); };
}

World::~World() {
  point.End();
}

std::string World::Model() const {
  if (!scene || !scene->controller) return {};
  const Ref<clsPageManager> manager = scene->controller->PageManager();
  std::string text = ToUtf8(manager->showName()) + ", " + ToUtf8(manager->CurrentPageName()) + "\n";
  for (Object* item : manager->PageList()->Snapshot()) text += TextOf(Cast<clsPage>(item));
  const Ref<clsObjectList> events = scene->record->EventList();
  if (!events) return text;
  for (Object* item : events->Snapshot()) {
    text += std::to_string(Cast<vxEvent>(item).time()) + " ";
  }
  return text;
}

std::map<std::u16string, std::string> World::Files() const {
  std::map<std::u16string, std::string> result;
  for (const std::u16string& path : memory.Paths()) {
    if (path != kLog) result[path] = memory.Get(path);
  }
  return result;
}

bool IsScratch(std::u16string_view path) {
  return path.ends_with(u'~');
}

Paths Told(Paths files) {
  std::erase_if(files, [](const auto& entry) {
    return IsScratch(entry.first) || EndsWith(entry.first, u"shortcutsStatus.ini");
  });
  return files;
}

std::string Unlike(const Paths& files, const Paths& wanted) {
  for (const auto& [path, bytes] : wanted) {
    const auto found = files.find(path);
    if (found == files.end()) return "there is no " + ToUtf8(path);
    if (found->second != bytes) return ToUtf8(path) + " is another";
  }
  return files.size() == wanted.size() ? "" : "there are files too many";
}

bool History::IsSettings(const std::u16string& path) {
  return EndsWith(path, u".ini");
}

History::Values History::Parsed(const std::string& bytes) {
  Values values;
  std::string section;
  std::size_t begin = 0;
  while (begin < bytes.size()) {
    const std::size_t end = bytes.find("\r\n", begin);
    const std::string line = bytes.substr(begin, end == std::string::npos ? end : end - begin);
    const std::size_t equals = line.find('=');
    if (end == std::string::npos) {
      values["a line without an end"] = line;
    } else if (line.starts_with('[') && line.ends_with(']')) {
      section = line;
      values[section] = "";
    } else if (equals == std::string::npos) {
      values["no line: " + line] = line;
    } else {
      values[section + line.substr(0, equals)] = line.substr(equals + 1);
    }
    begin = end == std::string::npos ? bytes.size() : end + 2;
  }
  return values;
}

void History::Note(const std::u16string& path, const std::string& bytes, bool isNew) {
  if (!IsSettings(path)) {
    others_[path].insert(bytes);
    return;
  }
  std::vector<Values>& states = settings_[path];
  if (isNew && states.empty()) states.emplace_back();
  Values values = Parsed(bytes);
  if (states.empty() || states.back() != values) states.push_back(std::move(values));
}

std::string History::Strange(const std::u16string& path, const std::string& bytes) const {
  if (!IsSettings(path)) {
    const auto known = others_.find(path);
    const bool fits = known != others_.end() && known->second.contains(bytes);
    return fits ? "" : "holds " + std::to_string(bytes.size()) + " bytes that it never held";
  }
  const auto known = settings_.find(path);
  if (known == settings_.end()) return "a settings file that was never made";
  const Values values = Parsed(bytes);
  const auto once = [&known](auto holds) {
    return std::any_of(known->second.begin(), known->second.end(), holds);
  };
  for (const auto& [key, value] : values) {
    const auto had = [&, &k = key, &v = value](const Values& state) {
      const auto found = state.find(k);
      return found != state.end() && found->second == v;
    };
    if (!once(had)) return "has " + key + "=" + value + ", which it never had";
  }
  for (const auto& [key, value] : known->second.back()) {
    const auto lacked = [&k = key](const Values& state) { return !state.contains(k); };
    if (!values.contains(key) && !once(lacked)) return "lost " + key;
  }
  return {};
}

History::Sections History::BySection(const Values& values) {
  Sections sections;
  for (const auto& [key, value] : values) sections[key.substr(0, key.find(']') + 1)][key] = value;
  return sections;
}

std::string History::HalfDone(const std::u16string& path, const std::string& bytes) const {
  const auto known = settings_.find(path);
  if (known == settings_.end()) return {};
  for (const auto& [name, values] : BySection(Parsed(bytes))) {
    const auto wasSo = [&, &section = name, &now = values](const Values& state) {
      const Sections sections = BySection(state);
      const auto found = sections.find(section);
      return found != sections.end() && found->second == now;
    };
    if (std::none_of(known->second.begin(), known->second.end(), wasSo)) return name + " is half done";
  }
  return {};
}

}  // namespace vestrel::test
