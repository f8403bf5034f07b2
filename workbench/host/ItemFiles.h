// The files of the items that buttons stand for, in the folder of the page that shows them: copied, moved,
// renamed and deleted when the library asks the host to. Knows which extensions an item of each type has, not
// what is in the files. A file that is absent is passed over, and so is a name that no file can have.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "controller/interfaces/Enumerations.h"

namespace vestrel::workbench {

// An item: the page it is on, and its name there.
struct ItemName {
  std::u16string page;
  std::u16string name;
};

class ItemFiles {
 public:
  // The root of all data. Nothing is done while no show is set.
  explicit ItemFiles(std::filesystem::path dataFolder) : dataFolder_(std::move(dataFolder)) {}
  void SetShow(std::u16string_view showName) { showName_ = showName; }

  // Whether the item has any of its files.
  bool Exists(ButtonTypeEnum type, const ItemName& item) const;
  // A file that is in the way is replaced.
  void Copy(ButtonTypeEnum type, const ItemName& from, const ItemName& to) const;
  void Move(ButtonTypeEnum type, const ItemName& from, const ItemName& to) const;
  void Delete(ButtonTypeEnum type, const ItemName& item) const;

 private:
  template <class Action>
  void ForEach(ButtonTypeEnum type, const ItemName& from, const ItemName& to, Action action) const;
  std::filesystem::path PathOf(const ItemName& item, std::string_view extension) const;
  bool CanBeFile(const ItemName& item) const;

  std::filesystem::path dataFolder_;
  std::u16string showName_;
};

}  // namespace vestrel::workbench
