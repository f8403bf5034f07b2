// Performs the calls of a journal again, at the times that it tells, answers the dialogs as it tells, and
// compares every callback, result and written file with it.
#pragma once

#include <cstdint>
#include <string>

#include "workbench/server/Journal.h"
#include "workbench/server/WorkSession.h"

namespace vestrel::workbench {

struct ReplayReport {
  std::uint64_t calls = 0;
  std::uint64_t callbacks = 0;
  // Whether everything was as the journal tells; the journal may end in the middle of a call.
  bool same = true;
  // Otherwise: the journal's line, and what it tells and what happened instead.
  std::uint64_t line = 0;
  std::string expected;
  std::string happened;
};

class Replay : private JournalLines, private DialogDoor {
 public:
  // The reader stands behind the files; the session is new, started at the journal's time on those files.
  // Both outlive it.
  Replay(JournalReader& journal, WorkSession& session);
  ~Replay() override;

  // Ends at the first difference, or at the journal's end.
  ReplayReport Run();

 private:
  void PerformNext();
  void PerformNested(std::uint64_t turn, bool anyTurn);
  // The journal's next line must be `happened`.
  void Happened(const nlohmann::json& happened) override;
  bool AtEnd() { return !report_.same || journal_.Peek() == nullptr; }

  void CallBegan(std::string_view command, std::uint64_t now, std::uint64_t turn) override;
  void CallbackMade(const std::string& text) override;
  DialogAnswer Ask(const Dialog& dialog) override;
  void Turn(std::uint64_t turn) override;

  JournalReader& journal_;
  WorkSession& session_;
  ReplayReport report_;
};

}  // namespace vestrel::workbench
