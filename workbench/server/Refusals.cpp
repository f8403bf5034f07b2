#include "workbench/server/Refusals.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <span>

#include "controller/ControlIndex.h"
#include "controller/GroupButtons.h"
#include "core/Cast.h"
#include "core/Convert.h"
#include "core/Error.h"
#include "core/LetterCase.h"
#include "model/IndexList.h"
#include "workbench/server/Names.h"
#include "workbench/server/WorkSession.h"

namespace vestrel::workbench {

namespace {

using Words = std::vector<Word>;
using Check = void (*)(const Words&, WorkSession&);

// What comes back of one value of a settings file.
constexpr std::size_t kLongestValue = 254;
constexpr std::int32_t kLargestPageSize = 100;

void RefuseFor(const std::string& problem) {
  if (!problem.empty()) throw Refusal(problem);
}

std::string TextAt(const Words& words, std::size_t position) {
  return position < words.size() ? words[position].text : std::string();
}

std::optional<std::int32_t> NumberAt(const Words& words, std::size_t position) {
  const std::string text = TextAt(words, position);
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

clsButtonGroupController& Controller(WorkSession& session) {
  return session.host().controller();
}

Ref<clsButtonGroup> GroupOfPage(WorkSession& session, std::int32_t group) {
  const Ref<clsPageManager> pages = Controller(session).PageManager();
  if (!pages || group < kFirstGroup || group > kLastGroup) return nullptr;
  return pages->CurrentPage()->ButtonGroups(group);
}

std::vector<std::u16string> PageNames(WorkSession& session) {
  std::vector<std::u16string> names;
  const Ref<clsPageManager> pages = Controller(session).PageManager();
  if (!pages) return names;
  const Ref<clsObjectList> list = pages->PageList();
  for (std::int32_t i = 0; list && i < list->Size(); ++i) {
    names.push_back(Cast<clsPage>(list->GetItem(i).get()).pageName());
  }
  return names;
}

// ---- Shows and pages ----

bool ShowExists(const std::string& name, WorkSession& session) {
  return session.host().folders().Exists(FromUtf8(name));
}

void CheckNewShow(const Words& words, WorkSession& session) {
  const std::string name = TextAt(words, 1);
  RefuseFor(FolderNameProblem(name));
  if (ShowExists(name, session))
    throw Refusal("there is a show \"" + name + "\" already, which would be emptied");
}

void CheckLoadShow(const Words& words, WorkSession& session) {
  const std::string name = TextAt(words, 1);
  RefuseFor(FolderNameProblem(name));
  if (!ShowExists(name, session)) throw Refusal("there is no show \"" + name + "\"");
}

void CheckRenameShow(const Words& words, WorkSession& session) {
  const std::string name = TextAt(words, 2);
  RefuseFor(FolderNameProblem(TextAt(words, 1)));
  RefuseFor(FolderNameProblem(name));
  if (ShowExists(name, session)) throw Refusal("there is a show \"" + name + "\" already");
}

void CheckDeleteShow(const Words& words, WorkSession& session) {
  CheckLoadShow(words, session);
  if (session.host().folders().FirstShowBut(FromUtf8(TextAt(words, 1))).empty()) {
    throw Refusal("this is the only show; make another one first");
  }
}

void ExpectListFits(const std::vector<std::u16string>& names) {
  std::size_t length = 0;
  for (const std::u16string& name : names) length += ToUtf8(name).size() + 1;
  if (length > kLongestValue + 1) {
    throw Refusal("the list of pages holds " + std::to_string(kLongestValue) +
                  " bytes and would be cut; shorter names or fewer pages fit");
  }
}

void ExpectUnlike(const std::vector<std::u16string>& names, const std::u16string& name) {
  for (const std::u16string& other : names) {
    if (EqualIgnoringLetterCase(other, name)) {
      throw Refusal("the page \"" + ToUtf8(other) + "\" would share its file with \"" + ToUtf8(name) + "\"");
    }
  }
}

void CheckPage(const Words& words, WorkSession& session) {
  const std::u16string name = FromUtf8(TextAt(words, 1));
  std::vector<std::u16string> names = PageNames(session);
  if (std::find(names.begin(), names.end(), name) != names.end()) return;
  RefuseFor(FolderNameProblem(TextAt(words, 1)));
  ExpectUnlike(names, name);
  names.push_back(name);
  ExpectListFits(names);
}

void CheckRenamePage(const Words& words, WorkSession& session) {
  const std::u16string name = FromUtf8(TextAt(words, 2));
  RefuseFor(FolderNameProblem(TextAt(words, 2)));
  std::vector<std::u16string> names = PageNames(session);
  const auto renamed = std::find(names.begin(), names.end(), FromUtf8(TextAt(words, 1)));
  if (renamed == names.end()) throw Refusal("there is no page \"" + TextAt(words, 1) + "\"");
  names.erase(renamed);
  ExpectUnlike(names, name);
  names.push_back(name);
  ExpectListFits(names);
}

// ---- Buttons ----

std::vector<std::int32_t> IndicesOf(clsObjectList& buttons) {
  std::vector<std::int32_t> indices;
  indices.reserve(static_cast<std::size_t>(std::max(buttons.Size(), 0)) + 1);
  for (std::int32_t i = 0; i < buttons.Size(); ++i) {
    indices.push_back(Cast<clsButton>(buttons.GetItem(i).get()).buttonIndex);
  }
  return indices;
}

// The indices that the group would have with one more button at `index`, as the library places it.
std::vector<std::int32_t> IndicesWith(clsObjectList& buttons, std::int32_t group, std::int32_t index) {
  std::vector<std::int32_t> indices = IndicesOf(buttons);
  const bool taken = std::find(indices.begin(), indices.end(), index) != indices.end();
  if (taken && (group == kTopGroup || group == kBumpGroup)) {
    throw Refusal("this slot has a button; a top or bump slot holds one alone");
  }
  if (taken) {
    for (std::int32_t& each : indices) each += each >= index ? 1 : 0;
  }
  indices.push_back(index);
  return indices;
}

void ExpectIndicesFit(const std::vector<std::int32_t>& indices) {
  std::size_t length = 0;
  for (const std::int32_t index : indices) length += std::to_string(index).size() + 1;
  if (length > kLongestValue + 1) {
    throw Refusal("the group's list of buttons holds " + std::to_string(kLongestValue) +
                  " bytes and would be cut; the group is full");
  }
}

void ExpectRoom(WorkSession& session, std::int32_t group, std::int32_t index) {
  const Ref<clsButtonGroup> target = GroupOfPage(session, group);
  if (!target) return;
  const std::vector<std::int32_t> indices = IndicesWith(*target->buttons, group, index);
  ExpectIndicesFit(indices);
  const std::int32_t last = session.host().pageSize() * kRunsPerGroup;
  if (group != kTopGroup && index <= last && *std::max_element(indices.begin(), indices.end()) > last) {
    throw Refusal("the group's last button would move behind slot " + std::to_string(last) +
                  ", where nothing shows it");
  }
}

// As ExpectRoom, for the slot that a control shows.
void ExpectRoomAt(WorkSession& session, std::int32_t group, std::int32_t slot) {
  const Ref<clsButtonGroup> target = GroupOfPage(session, group);
  if (!target) return;
  const std::int64_t index = std::int64_t{target->pageOffset} * session.host().pageSize() + slot;
  if (index < 1 || index > std::int64_t{kLargestPageSize} * kRunsPerGroup) return;
  ExpectRoom(session, group, static_cast<std::int32_t>(index));
}

void ExpectNameNotTaken(std::u16string_view name, const clsButton* except, WorkSession& session) {
  const Ref<clsObjectList> buttons = Controller(session).getButtons();
  for (std::int32_t i = 0; buttons && i < buttons->Size(); ++i) {
    const Ref<Object> item = buttons->GetItem(i);
    const auto& button = Cast<clsButton>(item.get());
    if (&button == except || !EqualIgnoringLetterCase(button.name, name)) continue;
    throw Refusal("the page has a button \"" + ToUtf8(button.name) +
                  "\" already, whose files would be replaced");
  }
}

Ref<clsButton> EditButton(WorkSession& session) {
  return session.host().form().editPopup();
}

void CheckPlacedName(WorkSession& session, EditModeEnum mode) {
  const Ref<clsButton> moved = EditButton(session);
  if (!moved) return;
  if (mode == EditMode_Copy) {
    RefuseFor(ButtonNameProblem(ToUtf8(moved->name + u" copy")));
    ExpectNameNotTaken(moved->name + u" copy", nullptr, session);
  } else if (mode == EditMode_Move) {
    ExpectNameNotTaken(moved->name, moved.get(), session);
  }
}

// Whether a move only changes the order of a group that pushes its buttons along.
bool StaysInGroup(WorkSession& session, std::int32_t group) {
  const Ref<clsButton> moved = EditButton(session);
  if (!moved || moved->groupIndex != group || group == kTopGroup || group == kBumpGroup) return false;
  const Ref<clsButtonGroup> target = GroupOfPage(session, group);
  return target && target->buttons->FindObject(moved.get()) >= 0;
}

void CheckClick(const Words& words, WorkSession& session) {
  const EditModeEnum mode = Controller(session).EditMode();
  const std::optional<std::int32_t> control = NumberAt(words, 1);
  const std::int32_t pageSize = session.host().pageSize();
  if (!control || *control < 1 || pageSize < 1) return;
  if (mode != EditMode_Assign && mode != EditMode_Move && mode != EditMode_Copy) return;
  const Ref<clsButton> there = Controller(session).buttonAtControlIndex(*control);
  if (mode == EditMode_Move && there && there == EditButton(session)) return;
  const std::int32_t group = modControlIndex::returnGroupFromPosition(pageSize, *control);
  if (mode == EditMode_Move && StaysInGroup(session, group)) return;
  ExpectRoomAt(session, group, modControlIndex::globalToLocalControlIndex(pageSize, *control));
  CheckPlacedName(session, mode);
}

void CheckAssign(const Words& words, WorkSession& session) {
  RefuseFor(ButtonNameProblem(TextAt(words, 3)));
  const std::optional<std::int32_t> group = NumberAt(words, 1);
  const std::optional<std::int32_t> slot = NumberAt(words, 2);
  if (!group || !slot) return;
  ExpectNameNotTaken(FromUtf8(TextAt(words, 3)), nullptr, session);
  ExpectRoomAt(session, *group, *slot);
}

void CheckAssignMode(const Words& words, WorkSession&) {
  RefuseFor(ButtonNameProblem(TextAt(words, 1)));
}

void CheckMarkFade(const Words& words, WorkSession& session) {
  const Ref<clsButton> source = EditButton(session);
  if (!source) return;
  const std::string type = TextAt(words, 1);
  const bool mark = type == "MarkFadeType_Mark" || type == std::to_string(MarkFadeType_Mark);
  const std::u16string name = source->name + (mark ? u" Mark" : u" Fade");
  RefuseFor(ButtonNameProblem(ToUtf8(name)));
  ExpectNameNotTaken(name, nullptr, session);
  ExpectRoom(session, source->groupIndex, source->buttonIndex + (mark ? 0 : 1));
}

void CheckAutoAssign(const Words& words, WorkSession& session) {
  const std::optional<std::int32_t> group = NumberAt(words, 1);
  if (!group || Controller(session).EditMode() != EditMode_Assign) return;
  const Ref<clsButtonGroup> target = GroupOfPage(session, *group);
  if (!target) return;
  std::vector<std::int32_t> indices = IndicesWith(*target->buttons, kTopGroup + 1, 0);
  std::sort(indices.begin(), indices.end());
  std::int32_t free = 1;
  for (const std::int32_t index : indices) free += index == free ? 1 : 0;
  ExpectRoom(session, *group, free);
}

void CheckButtonList(const Words& words, WorkSession& session) {
  if (words.size() < 3) return;
  const Ref<clsObjectList> list = ReadList(words[2], In("theButtonList"), session.commands());
  std::vector<std::int32_t> indices = IndicesOf(*list);
  ExpectIndicesFit(indices);
  std::sort(indices.begin(), indices.end());
  if (std::adjacent_find(indices.begin(), indices.end()) != indices.end()) {
    throw Refusal("two buttons of the list have one index and would share one line of the page file");
  }
}

// ---- The rest ----

void CheckPreparedAnswer(const Words&, WorkSession&) {
  throw Refusal("dialogs are answered when they open");
}

void CheckWait(const Words&, WorkSession&) {
  throw Refusal("the time passes by itself here");
}

void CheckInterval(const Words& words, WorkSession&) {
  constexpr std::int32_t kLeast = 10;
  const std::optional<std::int32_t> milliseconds = NumberAt(words, 2);
  if (milliseconds && *milliseconds < kLeast) throw Refusal("a timer takes 10 ms or more");
}

void CheckPageSize(const Words& words, WorkSession&) {
  const std::optional<std::int32_t> size = NumberAt(words, 1);
  if (size && (*size < 1 || *size > kLargestPageSize)) {
    throw Refusal("a group shows 1 to " + std::to_string(kLargestPageSize) + " buttons here");
  }
}

// Names that become parts of paths: empty ones say nothing.
void CheckNamesFrom(const Words& words, std::size_t first, std::size_t count) {
  for (std::size_t i = first; i < first + count; ++i) {
    if (!TextAt(words, i).empty()) RefuseFor(FolderNameProblem(TextAt(words, i)));
  }
}

void CheckMultiInit(const Words& words, WorkSession&) {
  CheckNamesFrom(words, 2, 3);
}

void CheckAddSequence(const Words& words, WorkSession&) {
  CheckNamesFrom(words, 1, 2);
}

void CheckDeleteIni(const Words& words, WorkSession&) {
  CheckNamesFrom(words, 2, 2);
}

void CheckSavedFile(const Words& words, WorkSession&) {
  const std::u16string name = LowerCase(FromUtf8(TextAt(words, 1)));
  if (name.ends_with(u".ini")) throw Refusal("settings files of shows and pages are not written over");
}

const std::map<std::string_view, Check>& Checks() {
  static const std::map<std::string_view, Check> kChecks{
      {"CreateNewShow", CheckNewShow},
      {"LoadShow", CheckLoadShow},
      {"host.renameShow", CheckRenameShow},
      {"host.deleteShow", CheckDeleteShow},
      {"AddPage", CheckPage},
      {"SetPage", CheckPage},
      {"RenamePage", CheckRenamePage},
      {"controlClicked", CheckClick},
      {"assignButton", CheckAssign},
      {"setModeAssign", CheckAssignMode},
      {"AssignMarkFade", CheckMarkFade},
      {"autoAssignNextAvailable", CheckAutoAssign},
      {"setButtonGroupButtonList", CheckButtonList},
      {"setButtonGroupPageSize", CheckPageSize},
      {"host.answer", CheckPreparedAnswer},
      {"host.interval", CheckInterval},
      {"wait", CheckWait},
      {"multi.Init", CheckMultiInit},
      {"multi.AddSequence", CheckAddSequence},
      {"static.deleteINI", CheckDeleteIni},
      {"record.SaveEventsTo", CheckSavedFile},
      {"static.Init", CheckSavedFile},
      {"static.OpenTextFileForOutput", CheckSavedFile},
      {"static.OpenTextFileForAppend", CheckSavedFile},
  };
  return kChecks;
}

// Every word that stands for a path stays in the data folder.
void CheckPaths(const Words& words, const Operation& operation, WorkSession& session) {
  std::size_t word = 1;
  for (std::size_t i = 0; i < operation.parameters.size() && word < words.size(); ++i) {
    if (operation.kinds[i].empty()) continue;
    if (operation.parameters[i].path) RefuseFor(PathProblem(words[word].text, session.dataFolder()));
    ++word;
  }
}

}  // namespace

void ExpectHarmless(const std::vector<Word>& words, WorkSession& session) {
  const std::string& name = words.front().text;
  CheckPaths(words, session.operations().Get(name), session);
  const auto check = Checks().find(name);
  if (check != Checks().end()) check->second(words, session);
}

void ExpectFreeButtonName(std::u16string_view name, WorkSession& session) {
  RefuseFor(ButtonNameProblem(ToUtf8(name)));
  ExpectNameNotTaken(name, EditButton(session).get(), session);
}

}  // namespace vestrel::workbench
