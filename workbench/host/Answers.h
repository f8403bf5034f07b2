// What the operator answers in the host's dialogs, set beforehand by a script: the host never waits. Each
// answer holds until another one is set. Messages count as read, and none of the message loop's is pending.
#pragma once

#include <string>
#include <string_view>

#include "workbench/host/Dialogs.h"

namespace vestrel::workbench {

class Answers : public Dialogs {
 public:
  bool promptButtonOverwrite = false;
  // Empty: nothing is renamed.
  std::u16string renameButton;
  // Whether the item's files go as well when the host is asked to delete a button.
  bool deleteButton = true;

  bool ConfirmOverwrite(std::u16string_view /*promptText*/) override { return promptButtonOverwrite; }
  bool ConfirmDelete(const clsButton& /*button*/) override { return deleteButton; }
  std::u16string AskName(const clsButton& /*button*/) override { return renameButton; }
  void ShowMessage(std::u16string_view /*text*/, std::u16string_view /*caption*/) override {}
  void PumpMessages() override {}
};

}  // namespace vestrel::workbench
