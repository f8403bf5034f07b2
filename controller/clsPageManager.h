// The current show: its name, its pages, which of them is current, and the show file with the list of their
// names. Owned by the controller, which makes a new one for every show; refers back to the controller. What a
// page's own file holds is the page's business.
#pragma once

#include <string>
#include <string_view>

#include "controller/interfaces/IPageController.h"
#include "core/BackRef.h"
#include "core/clsObjectList.h"
#include "model/clsPage.h"

namespace vestrel {

class clsIniFile;

class clsPageManager : public Object {
 public:
  VESTREL_OBJECT(clsPageManager)

  // The name that stands for "no show is set".
  static constexpr std::u16string_view kNullShow = u"$$null_show$$";
  // The name of the placeholder page that is current when there is no real one.
  static constexpr std::u16string_view kNullPage = u"$$null_page$$";

  clsPageManager();

  // The show's pages in file order, the list itself.
  Ref<clsObjectList> PageList() const noexcept { return pageList_; }
  bool IsLoading() const noexcept { return isLoading_; }
  // Never none after Init.
  Ref<clsPage> CurrentPage() const noexcept { return currentPage_; }
  const std::u16string& showName() const noexcept { return showName_; }
  std::u16string CurrentPageName() const;

  // No show, no pages, the placeholder page current. `appPath` is the root of all data.
  void Init(std::u16string_view appPath, IPageController* controller);
  // Writes the page list and, unless skipPages, every page. Before setShow it logs and does nothing.
  void saveToINI(bool skipPages = false);
  // Makes the show's folder and binds its file; then writes an empty page list (create) or loads the pages.
  void setShow(std::u16string_view pShowName, bool create = false);
  // Makes a page current; one that is not there is made and added, whatever `create` says, and becomes
  // current only when it is the first. With no show set: a severe log line and a message box.
  void SetPage(std::u16string_view pageName, bool create = false);
  // Takes the page out of the list (its folder stays) and makes the first remaining one current.
  // defaultNewName is not used.
  void DeletePage(std::u16string_view pageName, std::u16string_view defaultNewName);
  // A new list of clsString.
  Ref<clsObjectList> GetPageNames() const;
  void RenamePage(std::u16string_view oldName, std::u16string_view newName);
  // Whether a show is set and its current page is a real one.
  bool PageIsValid() const;
  // Whether the show file can be written; leaves a test key in it.
  bool TestShowWritable();

 private:
  void SetCurrentPage(const Ref<clsPage>& page, bool leaveOld);
  Ref<clsPage> CreatePage(std::u16string_view pageName, bool create);
  void LoadPageList();

  std::u16string appPath_;
  BackRef<IPageController> controller_;
  std::u16string showName_;
  Ref<clsObjectList> pageList_;
  Ref<clsPage> keyPage_;
  Ref<clsPage> currentPage_;
  Ref<clsIniFile> showFile_;
  bool isLoading_ = false;

 protected:
  ~clsPageManager() override;
};

}  // namespace vestrel
