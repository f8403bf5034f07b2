#include "controller/clsPageManager.h"

#include <array>
#include <utility>
#include <vector>

#include "core/Cast.h"
#include "core/clsString.h"
#include "core/modObjectList.h"
#include "storage/Folders.h"
#include "storage/IniBatch.h"
#include "storage/clsIniFile.h"
#include "storage/modIniFile.h"
#include "util/modLog.h"
#include "util/modSprintf.h"
#include "util/modUtils.h"

namespace vestrel {
namespace {

constexpr std::u16string_view kSection = u"PageManager";
constexpr std::u16string_view kListKey = u"PageList";
constexpr std::u16string_view kDelimiter = u"|";
constexpr std::u16string_view kNameField = u"pageName";

// True for the length of a load, also of one that fails.
class LoadingMark {
 public:
  explicit LoadingMark(bool& mark) : mark_(mark), before_(mark) { mark = true; }
  LoadingMark(const LoadingMark&) = delete;
  LoadingMark& operator=(const LoadingMark&) = delete;
  ~LoadingMark() { mark_ = before_; }

 private:
  bool& mark_;
  bool before_;
};

template <class T>
T& Given(const Ref<T>& object) {
  if (!object) RaiseError(Error_ObjectNotSet, u"clsPageManager");
  return *object;
}

}  // namespace

clsPageManager::clsPageManager() = default;

clsPageManager::~clsPageManager() = default;

void clsPageManager::Init(std::u16string_view appPath, IPageController* controller) {
  // What was there goes last: a host's objects may go with it, and call back.
  const BackRef<IPageController> formerController = std::exchange(controller_, controller);
  appPath_ = appPath;
  const Ref<clsPage> formerPage = std::exchange(currentPage_, Placeholder());
  const Ref<clsObjectList> formerPages = std::exchange(pageList_, MakeRef<clsObjectList>());
  showName_ = kNullShow;
  keyPage_ = MakeRef<clsPage>();
  showFile_ = MakeRef<clsIniFile>();
  isLoading_ = false;
}

Ref<clsPage> clsPageManager::Placeholder() const {
  Ref<clsPage> result = MakeRef<clsPage>();
  result->Init(appPath_, controller_.Lock().get(), kNullShow, kNullPage);
  return result;
}

clsObjectList& clsPageManager::Pages() const {
  return Given(pageList_);
}

std::u16string clsPageManager::CurrentPageName() const {
  return currentPage_ ? currentPage_->pageName() : std::u16string(kNullPage);
}

bool clsPageManager::PageIsValid() const {
  return showName_ != kNullShow && CurrentPageName() != kNullPage;
}

bool clsPageManager::TestShowWritable() {
  return Given(showFile_).TestWritable();
}

Ref<clsObjectList> clsPageManager::GetPageNames() const {
  std::vector<Variant> names;
  for (Object* item : Pages().Snapshot()) names.emplace_back(Cast<clsPage>(item).pageName());
  return modObjectList::StringListFromArray(names);
}

Ref<clsPage> clsPageManager::PageAt(std::int32_t position) const {
  return &Cast<clsPage>(Pages().GetItem(position).get());
}

std::int32_t clsPageManager::PositionOf(std::u16string_view pageName) const {
  return Pages().FindFieldValue(kNameField, pageName);
}

std::int32_t clsPageManager::PositionByKey(std::u16string_view pageName) const {
  Given(keyPage_).SetPageNamePrivate(pageName);
  return Pages().FindObjectValue(keyPage_.get(), kNameField);
}

void clsPageManager::SetCurrentPage(const Ref<clsPage>& page, bool leaveOld) {
  const Ref<clsPage> left = currentPage_;
  if (left && left->pageName() != kNullPage && leaveOld) left->LostFocus();
  currentPage_ = page;
  page->GotFocus();
}

Ref<clsPage> clsPageManager::CreatePage(std::u16string_view pageName, bool create) {
  Ref<clsPage> page = MakeRef<clsPage>();
  const Ref<IPageController> controller = controller_.Lock();
  page->Init(appPath_, controller.get(), showName_, pageName, !controller || controller->persist());
  if (create) {
    page->saveToINI(-1, true);
  } else {
    page->loadFromINI();
  }
  return page;
}

void clsPageManager::ShowPlaceholder() {
  if (CurrentPageName() == kNullPage) return;
  const Ref<clsPage> placeholder = Placeholder();
  if (const Ref<clsPage> left = std::exchange(currentPage_, placeholder)) left->LostFocus();
}

// An empty page name stands for the show's own folder.
void clsPageManager::MakeFolders(std::u16string_view pageName) const {
  std::vector<Variant> parts{appPath_, u"Sequences", showName_};
  if (!pageName.empty()) parts.emplace_back(pageName);
  modUtils::CreateDirs(*modObjectList::StringListFromArray(parts));
}

void clsPageManager::setShow(std::u16string_view pShowName, bool create) {
  const Ref<clsPageManager> alive(this);
  clsIniFile& file = Given(showFile_);
  showName_ = pShowName;
  MakeFolders({});
  const std::u16string path = modUtils::ShowSettingsPath(appPath_, showName_);
  modLog::LogFormat(LogLevel_3_INFO, u"clsPageManager.setShow(): using INI path [%s]", path);
  const std::u16string_view message = create ? u"clsPageManager.setShow(): creating new show [%s]"
                                             : u"clsPageManager.setShow(): loading existing show [%s]";
  modLog::LogFormat(LogLevel_3_INFO, message, showName_);
  // After the log, which may fail: a file that is bound is written, and the pages are not read yet.
  file.UseFile(path);
  if (create) {
    saveToINI(true);
  } else {
    LoadShow();
  }
}

void clsPageManager::LoadShow() {
  const LoadingMark loading(isLoading_);
  if (showFile_->filename().empty()) {
    modLog::Log(u"loadFromINI(): must set INI location in clsPageManager");
    return;
  }
  LoadPageList();
  if (Pages().Size() > 0) SetCurrentPage(PageAt(0), true);
}

// A list that was read half way must not be written back.
void clsPageManager::LoadPageList() {
  const Ref<clsIniFile> loaded = showFile_;
  try {
    ReadPages();
  } catch (...) {
    if (showFile_ == loaded) showFile_ = MakeRef<clsIniFile>();
    throw;
  }
}

std::u16string clsPageManager::ReadPageList() const {
  IniBatch batch(showFile_->filename(), Sync::No);
  batch.RequireReadable();
  showFile_->UseSection(kSection);
  return showFile_->ReadString(kListKey, u"");
}

void clsPageManager::ReadPages() {
  const Ref<clsObjectList> pages = MakeRef<clsObjectList>();
  pageList_ = pages;
  const Ref<clsObjectList> names = modObjectList::StringListFromSplit(ReadPageList(), kDelimiter);
  for (Object* item : names->Snapshot()) {
    const std::u16string& name = Cast<clsString>(item).value();
    modLog::LogFormat(LogLevel_3_INFO, u"loading from page: %s", name);
    pages->AddItem(CreatePage(name, false).get());
  }
}

void clsPageManager::saveToINI(bool skipPages) {
  const Ref<clsPageManager> alive(this);
  if (Given(showFile_).filename().empty()) {
    modLog::Log(u"saveToINI: must set INI location in clsPageManager");
    return;
  }
  modLog::LogFormat(LogLevel_3_INFO, u"clsPageManager.saveToINI(): writing to INI [%s]",
                    showFile_->filename());
  if (!skipPages) {
    for (Object* item : Pages().Snapshot()) Cast<clsPage>(item).saveToINI(-1, true);
  }
  WritePageList();
}

// The names as they are now: saving the pages let the host in.
void clsPageManager::WritePageList() {
  const Ref<clsIniFile> file = showFile_;
  std::u16string list = Pages().Size() > 0 ? GetPageNames()->JoinStrings(kDelimiter) : std::u16string();
  modIniFile::WarnIfCutOnReading(file->filename(), kSection, kListKey, list);
  const IniBatch synced(file->filename(), Sync::Yes);
  file->UseSection(kSection);
  file->WriteString(kListKey, list);
}

void clsPageManager::SetPage(std::u16string_view pageName, bool /*create*/) {
  const Ref<clsPageManager> alive(this);
  const std::u16string name(pageName);
  if (showName_ == kNullShow) {
    modLog::LogFormat(LogLevel_1_SEVERE, u"BGC SetPage [%s]: attempted to set page on null show", name);
    modUtils::ShowErrorBox(modSprintf::Format(
        u"BGC SetPage: attempted to set page [%s] on null show.\\n\\nPlease report to Talvo Systems Inc.",
        name));
    return;
  }
  if (CurrentPageName() == name) return;
  const std::int32_t position = PositionByKey(name);
  if (position >= 0) {
    SetCurrentPage(PageAt(position), true);
  } else {
    AddNewPage(name);
  }
}

void clsPageManager::AddNewPage(const std::u16string& pageName) {
  MakeFolders(pageName);
  const Ref<clsPage> page = CreatePage(pageName, !MayBeOfTheShow(pageName));
  // Writing the page let the host in, which may have added it.
  if (PositionByKey(pageName) < 0) Pages().AddItem(page.get());
  if (Pages().Size() == 1) SetCurrentPage(PageAt(0), true);
  saveToINI(true);
}

// While the show's list is not known a page that is on the disk may be one of it.
bool clsPageManager::MayBeOfTheShow(std::u16string_view pageName) const {
  return Given(showFile_).filename().empty() &&
         modUtils::FileExists(modUtils::PageSettingsPath(appPath_, showName_, pageName));
}

void clsPageManager::DeletePage(std::u16string_view pageName, std::u16string_view /*defaultNewName*/) {
  const Ref<clsPageManager> alive(this);
  const std::int32_t position = PositionOf(pageName);
  if (position < 0) {
    modLog::LogFormat(LogLevel_3_INFO, u"clsPageManager: could not find page [%s] to delete", pageName);
    return;
  }
  Pages().Remove(position);
  if (Pages().Size() > 0) {
    SetCurrentPage(PageAt(0), true);
  } else {
    currentPage_ = Placeholder();
  }
  saveToINI(true);
}

void clsPageManager::RenamePage(std::u16string_view oldName, std::u16string_view newName) {
  const Ref<clsPageManager> alive(this);
  const std::int32_t position = PositionOf(oldName);
  if (position < 0) {
    modLog::LogFormat(LogLevel_3_INFO, u"clsPageManager: could not find page [%s] for rename", oldName);
  } else {
    // The old name may be the page's own text.
    const std::u16string before(oldName);
    const Ref<clsPage> page = PageAt(position);
    page->Rename(newName);
    page->TestWritable();
    modLog::LogFormat(LogLevel_3_INFO, u"clsPageManager: renamed page [%s] -> [%s]", before,
                      page->pageName());
  }
  saveToINI(true);
}

}  // namespace vestrel
