// What the operator answers in the host's dialogs, set beforehand by a script or a page: the host never
// waits. Each answer holds until another one is set.
#pragma once

#include <string>

namespace vestrel::workbench {

struct Answers {
  bool promptButtonOverwrite = false;
  // Empty: nothing is renamed.
  std::u16string renameButton;
  // Whether the item's files go as well when the host is asked to delete a button.
  bool deleteButton = true;
};

}  // namespace vestrel::workbench
