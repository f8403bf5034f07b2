// One page of a show: ten button groups and the page file that holds them. Owned by the page manager; refers
// back to the controller. Nothing is read from or written to disk but by the operations that say so.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

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
  // Group 0 to 9; raises 9 otherwise.
  Ref<clsButtonGroup> ButtonGroups(std::int32_t which) const;

  // Binds the page file of showName and pageName under appPath and makes ten empty groups. With persist false
  // saveToINI and loadFromINI do nothing.
  void Init(std::u16string_view appPath, IPageController* controller, std::u16string_view showName,
            std::u16string_view pageName, bool persist = true);
  // Writes one button and the index list of its group, in one commit that does not wait for the disk.
  void saveSingleButton(clsButton* button);
  // Writes one group (0 to 9), in one commit, and then lets the host process its pending messages once.
  void saveButtonGroupToINI(std::int32_t groupIndex, bool withButtons = true);
  // All groups, or the one given. Raises 999 when no file is bound.
  void saveToINI(std::int32_t onlyGroupIndex = -1, bool withButtons = true);
  // Reads all groups and builds their buttons. Raises 999 when no file is bound, 13 for a number that is
  // none.
  void loadFromINI();
  // Resumes the pick-up of the faders from the host's positions and reports every model value.
  void GotFocus();
  // Pauses the pick-up of the faders.
  void LostFocus();
  // Renames the page, makes the new page's folder and binds its file there; moves nothing.
  void Rename(std::u16string_view newName);
  // Whether the page file can be written; leaves a test key in it.
  bool TestWritable();

  // Field "pageName" (exact): 0 when equal; -1 in every other case.
  std::int32_t CompareTo(Object* other, std::u16string_view field = u"all") override;
  std::int32_t FieldCompare(std::u16string_view fieldName, const Variant& value) override;

 protected:
  ~clsPage() override;

 private:
  std::u16string appPath_;
  bool persist_ = false;
  BackRef<IPageController> controller_;
  std::u16string showName_;
  std::u16string pageName_;
  Ref<clsIniFile> iniFile_;
  std::array<Ref<clsButtonGroup>, 10> buttonGroups_;
  WeakSource weakSource_;
};

}  // namespace vestrel
