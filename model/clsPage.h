// One page of a show: ten button groups and the page file that holds them (docs/page-file.md). Owned by the
// page manager; refers back to the controller, to which its groups and buttons report. Nothing is read from
// or written to disk but by the operations that say so, and failed writes report nothing. Groups 1 to 8 have
// a group fader; group 9 holds the buttons of the eight bump faders, 1 to 8 by their buttonIndex.
//
// Callbacks are made by loadFromINI, GotFocus and, through the message pump, the saves of whole groups; they
// may call back into the page.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controller/interfaces/IPageController.h"
#include "core/BackRef.h"
#include "core/IComparable.h"
#include "model/clsButton.h"
#include "model/clsButtonGroup.h"

namespace vestrel {

class clsIniFile;

class clsPage : public virtual IComparable {
 public:
  VESTREL_OBJECT(clsPage, IComparable)
  VESTREL_HELD_WEAKLY()

  clsPage();

  const std::u16string& pageName() const noexcept { return pageName_; }
  // The name alone; the file stays bound as it was.
  void SetPageNamePrivate(std::u16string_view pageName);
  // Group 0 to 9; raises 9 otherwise. None before Init.
  Ref<clsButtonGroup> ButtonGroups(std::int32_t which) const;

  // Binds the page file of showName and pageName under appPath and makes ten empty groups, which the next
  // save puts in the place of what the file holds. With persist false saveToINI and loadFromINI do nothing.
  void Init(std::u16string_view appPath, IPageController* controller, std::u16string_view showName,
            std::u16string_view pageName, bool persist = true);
  // Writes one button and the index list of its group, in one commit that does not wait for the disk,
  // whatever persist says. Raises 91 for none, 9 for a groupIndex outside 0 to 9.
  void saveSingleButton(clsButton* button);
  // Writes one group (0 to 9, else raises 9) in one commit, whatever persist says, and then lets the host
  // process its pending messages once. With buttons the commit waits for the disk.
  void saveButtonGroupToINI(std::int32_t groupIndex, bool withButtons = true);
  // All groups in order, or with an index from 0 on that one alone. Nothing when persist is false. Raises 999
  // when no file is bound.
  void saveToINI(std::int32_t onlyGroupIndex = -1, bool withButtons = true);
  // Empties and reads all groups in order and builds their buttons; what the file lacks has its first value.
  // Nothing when persist is false. Calls the controller's ItemRemoved for each old button, and for each new
  // one DeferPlaystateFor (unless its line is malformed) and ItemAdded. Raises 999 when no file is bound, 57,
  // 70 or 75 when the file is there but cannot be read (the groups are left as they are then), 13 for a
  // number that is none; groups read until then stay. A page that was not read, or not to its end, by
  // whatever error, is not written by the saves until it is, so that its file keeps what the page lacks; each
  // such save logs a WARNING. Init and a Rename to another file end that.
  void loadFromINI();
  // Resumes the pick-up of the faders from the host's positions (the controller's GetUIFaderValues) and hands
  // every model value to its UpdateFaderModelValue, group faders first. Nothing without a controller, since
  // nobody knows the positions then.
  void GotFocus();
  // Pauses the pick-up of the faders.
  void LostFocus();
  // Makes the new page's folder (unless persist is false), renames the page and binds its file there; moves
  // nothing. Raises 52, 57, 61, 75 or 76 when the folder cannot be made; the page has its old name then.
  void Rename(std::u16string_view newName);
  // Whether the page file can be written; leaves a test key in it.
  bool TestWritable();

  // Field "pageName" (exact): 0 when equal; -1 in every other case, so pages are found but not sorted. Raises
  // 13 for an object that is no page, 91 for none.
  std::int32_t CompareTo(Object* other, std::u16string_view field = u"all") override;
  // Field "pageName" (exact): the name against the value's text, by code units. -1 for another field.
  std::int32_t FieldCompare(std::u16string_view fieldName, const Variant& value) override;

 protected:
  ~clsPage() override;

 private:
  Ref<clsButtonGroup> Group(std::int32_t which) const;
  clsIniFile& File() const;
  void BindFile();
  void MakeFolder(std::u16string_view pageName) const;
  void RequireFile(std::u16string_view source) const;
  bool MayBeWritten() const;
  void WriteUsedIndices(std::int32_t groupIndex);
  void WriteButton(clsButton& button);
  void WriteGroup(std::int32_t groupIndex, bool withButtons);
  std::vector<Ref<Object>> ItemsThatMayCallBack() const;
  void LoadGroup(std::int32_t groupIndex);
  void LoadButton(std::string_view section, std::int32_t groupIndex, std::int32_t buttonIndex);

  std::u16string appPath_;
  bool persist_ = false;
  bool isIncomplete_ = false;  // not read to its end
  BackRef<IPageController> controller_;
  std::u16string showName_;
  std::u16string pageName_;
  Ref<clsIniFile> iniFile_;
  std::array<Ref<clsButtonGroup>, 10> buttonGroups_;
  WeakSource weakSource_;
};

}  // namespace vestrel
