// The table of clsPageManager.
#pragma once

#include "component/Table.h"
#include "controller/clsPageManager.h"

namespace vestrel::component {

template <>
struct TableOf<clsPageManager> {
  using T = clsPageManager;
  static constexpr auto kTable = MakeTable<T>(
      "The current show: its name, its pages, which of them is current, and the show file with the list of "
      "their names.",
      Get<&T::PageList>("PageList", "The show's pages in file order, the list itself."),
      Get<&T::IsLoading>("IsLoading", "Whether the page list is being loaded."),
      Get<&T::CurrentPage>("CurrentPage", "The current page."),
      Get<&T::showName>("showName", "The show's name, \"$$null_show$$\" when none is set."),
      Get<&T::CurrentPageName>("CurrentPageName",
                               "The current page's name, \"$$null_page$$\" when there is no real one."),
      Method<&T::Init>("Init", "No show, no pages, the placeholder page current.", "appPath", "controller"),
      Method<&T::saveToINI>("saveToINI", "Writes the page list and, unless skipPages, every page.",
                            Optional("skipPages", false)),
      Method<&T::setShow>("setShow",
                          "Binds a show's file; then writes an empty page list (create) or loads the pages.",
                          "pShowName", Optional("create", false)),
      Method<&T::SetPage>("SetPage", "Makes a page current; one that is not there is made and added.",
                          "pageName", Optional("create", false)),
      Method<&T::DeletePage>(
          "DeletePage",
          "Takes the page out of the list (its folder stays) and makes the first remaining one current.",
          "pageName", "defaultNewName"),
      Method<&T::GetPageNames>("GetPageNames", "A new list of the names as clsString."),
      Method<&T::RenamePage>("RenamePage", "Renames a page of the show.", "oldName", "newName"),
      Method<&T::PageIsValid>("PageIsValid", "Whether a show is set and its current page is a real one."),
      Method<&T::TestShowWritable>("TestShowWritable",
                                   "Whether the show file can be written; leaves a test key in it."));
};

}  // namespace vestrel::component
