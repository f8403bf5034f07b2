// The host's modal dialogs and its message loop, for a front end that has an operator to ask; at first the
// simulated host has prepared ones (Answers.h). Each call comes from within a call into the library and
// returns when the operator has answered.
#pragma once

#include <string>
#include <string_view>

#include "model/clsButton.h"

namespace vestrel::workbench {

class Dialogs {
 public:
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;
  virtual ~Dialogs() = default;

  // Whether the button that has the name already gives way.
  virtual bool ConfirmOverwrite(std::u16string_view promptText) = 0;
  // Whether the item's files go with the button.
  virtual bool ConfirmDelete(const clsButton& button) = 0;
  // The new name; empty: it stays as it is.
  virtual std::u16string AskName(const clsButton& button) = 0;
  virtual void ShowMessage(std::u16string_view text, std::u16string_view caption) = 0;
  // One turn of the message loop.
  virtual void PumpMessages() = 0;
};

}  // namespace vestrel::workbench
