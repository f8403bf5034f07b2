// Where a session's dialogs are answered and its message loop is turned: by the operators at their pages, by
// a journal that is replayed, or by a test. Calls may come back into the session while one waits.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vestrel::workbench {

enum class DialogKind : std::uint8_t { YesNo, Text, Message };

struct Dialog {
  DialogKind kind = DialogKind::Message;
  // UTF-8.
  std::string title;
  std::string text;
  // What a text field shows at first.
  std::string value;
};

struct DialogAnswer {
  // Yes to a question, and done for a text; a message is always answered so.
  bool yes = false;
  // UTF-8; of a text alone.
  std::string text;
};

class DialogDoor {
 public:
  DialogDoor() = default;
  DialogDoor(const DialogDoor&) = delete;
  DialogDoor& operator=(const DialogDoor&) = delete;
  virtual ~DialogDoor() = default;

  // Returns when the dialog is answered.
  virtual DialogAnswer Ask(const Dialog& dialog) = 0;
  // One turn of the message loop within a call: `turn` as in SessionObserver::CallBegan.
  virtual void Turn(std::uint64_t turn) = 0;
  // Within a call: so many bytes of a file have been read or written, of `size` (0: not known). The session
  // is in the midst of its work; it must be neither asked nor told anything.
  virtual void FileMoved(std::string_view /*path*/, std::uint64_t /*done*/, std::uint64_t /*size*/) {}
};

}  // namespace vestrel::workbench
