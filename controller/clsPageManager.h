// The current show: its name, its pages, which of them is current, and the show file with the list of their
// names. Owned by the controller, which makes a new one for every show; refers back to the controller. What a
// page's own file holds is the page's business.
//
// Made, then given Init; before that operations that need a page or list raise 91. Page names are matched
// exactly. A name with "|" becomes two names when the show is loaded again, and so many pages that their
// joined names pass 254 characters are cut there. Making a page current calls the controller's
// GetUIFaderValues and UpdateFaderModelValue (clsPage::GotFocus), and through it the host, which may call any
// operation here. Failed writes of the show file are not reported; folders that cannot be made raise 52, 57,
// 61, 75 or 76.
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

  // The show's pages in file order, the list itself; none before Init.
  Ref<clsObjectList> PageList() const noexcept { return pageList_; }
  // Whether the page list is being loaded.
  bool IsLoading() const noexcept { return isLoading_; }
  // Never none after Init.
  Ref<clsPage> CurrentPage() const noexcept { return currentPage_; }
  const std::u16string& showName() const noexcept { return showName_; }
  // kNullPage when there is no current page.
  std::u16string CurrentPageName() const;

  // No show, no pages, the placeholder page current. `appPath` is the root of all data, without a separator
  // at its end; `controller` (held weakly, may be none) is handed to every page and says whether pages read
  // and write their files.
  void Init(std::u16string_view appPath, IPageController* controller);
  // Writes the page list, forced to the disk, and unless skipPages every page before. Before setShow it logs
  // and does nothing.
  void saveToINI(bool skipPages = false);
  // Makes the show's folder and binds its file; then writes an empty page list (create), or reads the pages
  // and makes the first one current. Raises what reading a page raises, also for the show file: what was read
  // stays, the show file is unbound, so that no shortened list replaces the one on disk. What the host raises
  // when the first page becomes current is passed on as well, but the whole list is read by then and the file
  // stays bound.
  void setShow(std::u16string_view pShowName, bool create = false);
  // Makes a page current; the one that is current already stays untouched. One that is not in the show is
  // made, written empty and added, whatever `create` says, and becomes current only when it is the first.
  // After a setShow that raised, one whose file is there is read instead of written, and raises what reading
  // it raises, so that no page that setShow did not reach is lost. With no show set: a severe log line and a
  // message box.
  void SetPage(std::u16string_view pageName, bool create = false);
  // Makes the placeholder page current again, without callbacks; where it is, nothing.
  void ShowPlaceholder();
  // Takes the page out of the list (its folder stays) and makes the first remaining one current, or the
  // placeholder. A page that is not there is logged. defaultNewName is not used.
  void DeletePage(std::u16string_view pageName, std::u16string_view defaultNewName);
  // A new list of clsString in list order.
  Ref<clsObjectList> GetPageNames() const;
  // Renames the page, tests its new file, and writes the page list. A page that is not there is logged.
  void RenamePage(std::u16string_view oldName, std::u16string_view newName);
  // Whether a show is set and its current page is a real one.
  bool PageIsValid() const;
  // Whether the show file can be written; leaves a test key in it.
  bool TestShowWritable();

 protected:
  ~clsPageManager() override;

 private:
  void SetCurrentPage(const Ref<clsPage>& page, bool leaveOld);
  Ref<clsPage> CreatePage(std::u16string_view pageName, bool create);
  void LoadShow();
  void LoadPageList();
  void ReadPages();
  std::u16string ReadPageList() const;
  void AddNewPage(const std::u16string& pageName);
  bool MayBeOfTheShow(std::u16string_view pageName) const;
  std::int32_t PositionOf(std::u16string_view pageName) const;
  std::int32_t PositionByKey(std::u16string_view pageName) const;
  Ref<clsPage> PageAt(std::int32_t position) const;
  Ref<clsPage> Placeholder() const;
  void MakeFolders(std::u16string_view pageName) const;
  void WritePageList();
  clsObjectList& Pages() const;

  std::u16string appPath_;
  BackRef<IPageController> controller_;
  std::u16string showName_;
  Ref<clsObjectList> pageList_;
  Ref<clsPage> keyPage_;
  Ref<clsPage> currentPage_;
  Ref<clsIniFile> showFile_;
  bool isLoading_ = false;
};

}  // namespace vestrel
