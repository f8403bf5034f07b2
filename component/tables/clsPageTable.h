// The table of clsPage.
#pragma once

#include "component/Table.h"
#include "component/tables/IComparableTable.h"
#include "model/clsPage.h"

namespace vestrel::component {

template <>
struct TableOf<clsPage> {
  using T = clsPage;
  static constexpr auto kTable = MakeTable<T>(
      "One page of a show: ten button groups and the page file that holds them.",
      Get<&T::pageName>("pageName", "The page's name."),
      Put<&T::SetPageNamePrivate>("pageNamePrivate", "Sets the name alone; the file stays bound as it was."),
      Get<&T::ButtonGroups>("ButtonGroups", "Group 0 to 9. Error 9 for another one.", "which"),
      Method<&T::Init>(
          "Init",
          "Binds the page's file and makes ten empty groups. With persist false saveToINI and loadFromINI do "
          "nothing.",
          "appPath", "controller", "showName", "pageName", Optional("persist", true)),
      Method<&T::saveSingleButton>("saveSingleButton", "Writes one button and the index list of its group.",
                                   "button"),
      Method<&T::saveButtonGroupToINI>("saveButtonGroupToINI", "Writes one group.", "groupIndex",
                                       Optional("withButtons", true)),
      Method<&T::saveToINI>("saveToINI",
                            "Writes all groups, or the one given. Error 999 when no file is bound.",
                            Optional("onlyGroupIndex", -1), Optional("withButtons", true)),
      Method<&T::loadFromINI>("loadFromINI",
                              "Reads all groups and builds their buttons. Error 999 when no file is bound."),
      Method<&T::GotFocus>(
          "GotFocus",
          "Resumes the pick-up of the faders from the host's positions and reports every stored value."),
      Method<&T::LostFocus>("LostFocus", "Pauses the pick-up of the faders."),
      Method<&T::Rename>(
          "Rename",
          "Makes the new page's folder, renames the page and binds its file there; moves nothing. Errors 52, "
          "57, 61, 75 and 76 when the folder cannot be made.",
          "newName"),
      Method<&T::TestWritable>("TestWritable",
                               "Whether the page file can be written; leaves a test key in it."),
      Implements<IComparable>());
};

}  // namespace vestrel::component
