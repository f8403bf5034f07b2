// Hears, in order and as it happens, of everything that passes between the session and the library: calls
// into it, callbacks out of it, and dialogs with their answers. Calls nest. All texts are UTF-8, one line
// each, with DATA for the data folder's own path.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/server/DialogDoor.h"

namespace vestrel::workbench {

// What came of a call, as text: the result and what came back through arguments, or the error.
struct CallEnd {
  bool ok = true;
  std::string text;
  // Below the data folder, with "/"; those that the library wrote, made or removed within the call.
  std::vector<std::string> files;
};

class SessionObserver {
 public:
  SessionObserver() = default;
  SessionObserver(const SessionObserver&) = delete;
  SessionObserver& operator=(const SessionObserver&) = delete;
  virtual ~SessionObserver() = default;

  // `turn` is the turn of the message loop that made a nested call: they are counted from 1 within the
  // outermost call. 0 for other calls and for those made while a dialog is open.
  virtual void CallBegan(std::string_view command, std::uint64_t now, std::uint64_t turn) = 0;
  virtual void CallEnded(const CallEnd& end) = 0;
  virtual void CallbackMade(const std::string& text) = 0;
  // What the host did on its own account within a call.
  virtual void HostActed(const std::string& text) = 0;
  virtual void DialogOpened(const std::string& text) = 0;
  // `text` is the answer in words.
  virtual void DialogClosed(const DialogAnswer& answer, const std::string& text) = 0;
};

}  // namespace vestrel::workbench
