#include "model/clsPage.h"

#include <optional>
#include <utility>
#include <vector>

#include "core/Cast.h"
#include "core/Convert.h"
#include "core/LetterCase.h"
#include "core/modObjectList.h"
#include "model/ButtonLine.h"
#include "model/IndexList.h"
#include "platform/Ascii.h"
#include "platform/Platform.h"
#include "storage/Folders.h"
#include "storage/IniBatch.h"
#include "storage/clsIniFile.h"
#include "storage/modIniFile.h"
#include "util/modLog.h"

namespace vestrel {
namespace {

constexpr std::int32_t kGroups = 10;
constexpr std::int32_t kBumpGroup = 9;
constexpr std::int32_t kNotBound = 999;
constexpr std::u16string_view kIndicesKey = u"usedIndices";

// The group faders, and the bump faders alike.
bool IsFaderNumber(std::int32_t number) noexcept {
  return number >= 1 && number <= 8;
}

// Raises 9 for what is no group.
std::u16string_view SectionName(std::int32_t groupIndex) {
  static constexpr std::array<std::u16string_view, kGroups> kNames{
      u"ButtonGroup0", u"ButtonGroup1", u"ButtonGroup2", u"ButtonGroup3", u"ButtonGroup4",
      u"ButtonGroup5", u"ButtonGroup6", u"ButtonGroup7", u"ButtonGroup8", u"ButtonGroup9"};
  if (groupIndex < 0 || groupIndex >= kGroups) RaiseError(Error_SubscriptOutOfRange);
  return kNames[static_cast<std::size_t>(groupIndex)];
}

// A copy, since the host may replace the list from within a callback.
Ref<clsObjectList> ButtonsOf(const clsButtonGroup& group) {
  if (!group.buttons) RaiseError(Error_ObjectNotSet);
  return group.buttons;
}

clsFaderCatch& FaderOf(const clsButton& button) {
  return Cast<clsFaderCatch>(button.Fader().get());
}

template <class Action>
void ForEachBumpButton(const clsButtonGroup& group, Action action) {
  for (Object* item : ButtonsOf(group)->Snapshot()) {
    auto& button = Cast<clsButton>(item);
    if (IsFaderNumber(button.buttonIndex)) action(button);
  }
}

}  // namespace

clsPage::clsPage() = default;

clsPage::~clsPage() = default;

void clsPage::SetPageNamePrivate(std::u16string_view pageName) {
  pageName_ = pageName;
}

Ref<clsButtonGroup> clsPage::ButtonGroups(std::int32_t which) const {
  if (which < 0 || which >= kGroups) RaiseError(Error_SubscriptOutOfRange);
  return buttonGroups_[static_cast<std::size_t>(which)];
}

void clsPage::Init(std::u16string_view appPath, IPageController* controller, std::u16string_view showName,
                   std::u16string_view pageName, bool persist) {
  appPath_ = appPath;
  persist_ = persist;
  controller_ = controller;
  showName_ = showName;
  pageName_ = pageName;
  iniFile_ = MakeRef<clsIniFile>();
  BindFile();
  decltype(buttonGroups_) groups;
  std::int32_t index = 0;
  for (Ref<clsButtonGroup>& group : groups) {
    group = MakeRef<clsButtonGroup>();
    group->Init(index++, controller);
  }
  // What was there goes last: a host's objects may go with it, and call back.
  std::swap(buttonGroups_, groups);
}

void clsPage::saveSingleButton(clsButton* button) {
  auto& saved = Cast<clsButton>(button);
  if (!MayBeWritten()) return;
  IniBatch batch(File().filename(), Sync::No);
  File().UseSection(SectionName(saved.groupIndex));
  WriteUsedIndices(saved.groupIndex);
  WriteButton(saved);
  batch.Commit();
}

void clsPage::saveButtonGroupToINI(std::int32_t groupIndex, bool withButtons) {
  WriteGroup(groupIndex, withButtons);
  platform::hostServices().PumpMessages();
}

void clsPage::saveToINI(std::int32_t onlyGroupIndex, bool withButtons) {
  if (!persist_) return;
  RequireFile(u"clsButtonGroupController.writeToINI");
  if (onlyGroupIndex >= 0) return saveButtonGroupToINI(onlyGroupIndex, withButtons);
  const Ref<clsPage> self(this);
  for (std::int32_t g = 0; g < kGroups; ++g) saveButtonGroupToINI(g, withButtons);
}

void clsPage::loadFromINI() {
  if (!persist_) return;
  RequireFile(u"clsButtonGroupController.readFromINI");
  const Ref<clsPage> self(this);
  // Go when the page is whole: the end of a button may call back.
  std::vector<Ref<Object>> former;
  try {
    former = ItemsThatMayCallBack();
    // For its reads alone: the file is read once. What cannot be read is not taken for an empty page, which
    // the next save would put in its place.
    IniBatch batch(File().filename(), Sync::No);
    batch.RequireReadable();
    for (std::int32_t g = 0; g < kGroups; ++g) LoadGroup(g);
  } catch (...) {
    isIncomplete_ = true;
    throw;
  }
  isIncomplete_ = false;
}

void clsPage::GotFocus() {
  const Ref<IPageController> controller = controller_.Lock();
  if (!controller) return;
  const Ref<clsPage> self(this);
  TUIFaderValues positions;
  controller->GetUIFaderValues(positions);
  for (std::int32_t g = 1; g <= 8; ++g) {
    const Ref<clsFaderCatch> fader = Group(g)->Fader();
    const bool caught = fader->ResumeTracking(positions.GroupFaders[g]);
    controller->UpdateFaderModelValue(FaderType_Group, g, fader->value(), caught);
  }
  ForEachBumpButton(*Group(kBumpGroup), [&](clsButton& button) {
    const std::int32_t bump = button.buttonIndex;
    const bool caught = FaderOf(button).ResumeTracking(positions.BumpFaders[bump]);
    controller->UpdateFaderModelValue(FaderType_BumpFader, bump, button.faderValue(), caught, &button);
  });
}

void clsPage::LostFocus() {
  for (std::int32_t g = 1; g <= 8; ++g) Group(g)->Fader()->PauseTracking();
  ForEachBumpButton(*Group(kBumpGroup), [](clsButton& button) { FaderOf(button).PauseTracking(); });
}

void clsPage::Rename(std::u16string_view newName) {
  std::u16string name(newName);
  if (persist_) MakeFolder(name);
  pageName_ = std::move(name);
  BindFile();
}

bool clsPage::TestWritable() {
  return File().TestWritable();
}

std::int32_t clsPage::CompareTo(Object* other, std::u16string_view field) {
  const clsPage& page = Cast<clsPage>(other);
  return field == u"pageName" && pageName_ == page.pageName_ ? 0 : -1;
}

std::int32_t clsPage::FieldCompare(std::u16string_view fieldName, const Variant& value) {
  if (fieldName != u"pageName") return -1;
  const int order = pageName_.compare(ToText(value));
  if (order == 0) return 0;
  return order < 0 ? -1 : 1;
}

// As ButtonGroups, and there.
Ref<clsButtonGroup> clsPage::Group(std::int32_t which) const {
  Ref<clsButtonGroup> group = ButtonGroups(which);
  if (!group) RaiseError(Error_ObjectNotSet);
  return group;
}

clsIniFile& clsPage::File() const {
  return Cast<clsIniFile>(iniFile_.get());
}

void clsPage::BindFile() {
  const std::u16string path = modUtils::PageSettingsPath(appPath_, showName_, pageName_);
  const bool isAnotherFile = !EqualIgnoringLetterCase(File().filename(), path);
  File().UseFile(path);
  // What the page lacks is in the file of before, which a name of another letter case may share.
  if (isAnotherFile) isIncomplete_ = false;
}

void clsPage::MakeFolder(std::u16string_view pageName) const {
  const std::array<Variant, 4> parts{appPath_, u"Sequences", showName_, pageName};
  modUtils::CreateDirs(*modObjectList::StringListFromArray(parts));
}

void clsPage::RequireFile(std::u16string_view source) const {
  if (iniFile_ && iniFile_->IsSet()) return;
  throw Error(kNotBound, std::u16string(source), u"Must call setShowAndPage first");
}

bool clsPage::MayBeWritten() const {
  if (isIncomplete_) {
    modLog::LogFormat(LogLevel_2_WARNING, u"page [%s] was not read to its end and is not written", pageName_);
  }
  return !isIncomplete_;
}

void clsPage::WriteUsedIndices(std::int32_t groupIndex) {
  std::u16string indices = IndexListText(*ButtonsOf(*Group(groupIndex)));
  modIniFile::WarnIfCutOnReading(File().filename(), SectionName(groupIndex), kIndicesKey, indices);
  File().WriteString(kIndicesKey, indices);
}

void clsPage::WriteButton(clsButton& button) {
  clsIniFile& file = File();
  file.UseNarrowKeyPrefix(ButtonKey(button.buttonIndex).prefix());
  button.saveToINI(&file);
}

void clsPage::WriteGroup(std::int32_t groupIndex, bool withButtons) {
  const Ref<clsButtonGroup> group = Group(groupIndex);
  if (!MayBeWritten()) return;
  IniBatch batch(File().filename(), withButtons ? Sync::Yes : Sync::No);
  File().UseSection(SectionName(groupIndex));
  File().WriteLong(u"pageOffset", group->pageOffset);
  if (IsFaderNumber(groupIndex)) File().WriteLong(u"faderValue", group->Fader()->value());
  if (withButtons) {
    WriteUsedIndices(groupIndex);
    for (Object* item : ButtonsOf(*group)->Snapshot()) WriteButton(Cast<clsButton>(item));
  }
  batch.Commit();
}

// Not the library's own buttons: kept, each new one would take fresh memory in place of an old one's.
std::vector<Ref<Object>> clsPage::ItemsThatMayCallBack() const {
  std::vector<Ref<Object>> result;
  for (std::int32_t g = 0; g < kGroups; ++g) {
    for (const Ref<Object>& item : ButtonsOf(*Group(g))->Held()) {
      const auto* const button = TryCast<clsButton>(item.get());
      if (item && (button == nullptr || !button->EndsQuietly())) result.push_back(item);
    }
  }
  return result;
}

void clsPage::LoadGroup(std::int32_t groupIndex) {
  const Ref<clsButtonGroup> group = Group(groupIndex);
  ButtonsOf(*group)->Clear();
  // After the callbacks of the removals, which may have used the file.
  File().UseSection(SectionName(groupIndex));
  group->pageOffset = File().ReadLong(u"pageOffset", 0);
  if (IsFaderNumber(groupIndex)) group->Fader()->SetValue(File().ReadLong(u"faderValue", 0), true);
  const std::string section = platform::NarrowAscii(SectionName(groupIndex));
  for (const std::int32_t index : IndexListFromText(File().ReadString(kIndicesKey, u""))) {
    LoadButton(section, groupIndex, index);
  }
}

void clsPage::LoadButton(std::string_view section, std::int32_t groupIndex, std::int32_t buttonIndex) {
  const auto button = MakeRef<clsButton>();
  button->Init(controller_.Lock().get(), this);
  // File and list anew: the callbacks of the button before may have brought others.
  std::optional<std::string> own;
  const auto bytes = modIniFile::ReadIniBytes(File().filename(), section, ButtonKey(buttonIndex).view(), own);
  button->TakeBytes(bytes.value_or(std::string_view()), groupIndex, buttonIndex);
  ButtonsOf(*Group(groupIndex))->AddItem(button.get());
}

}  // namespace vestrel
