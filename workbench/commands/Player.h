// Plays commands, one a line, until the text ends: prints each, performs it and prints what came of it. A bad
// command or a failing operation is counted and the run goes on. Owned by the front end.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string_view>

#include "workbench/commands/CommandSession.h"
#include "workbench/commands/OperationTable.h"
#include "workbench/commands/Printer.h"

namespace vestrel::workbench {

class Player {
 public:
  // Both outlive it. With `tellsStory` blank and comment lines are printed as they are.
  Player(CommandSession& session, Printer& printer, bool tellsStory = false)
      : session_(session), printer_(printer), tellsStory_(tellsStory) {}

  void Play(std::istream& commands);
  void PlayLine(std::string_view line);

  // Commands that were bad or failed, so far.
  std::size_t failures() const noexcept { return failures_; }

 private:
  void Perform(std::string_view command);
  Outcome Invoke(std::string_view command);

  CommandSession& session_;
  Printer& printer_;
  bool tellsStory_;
  OperationTable table_;
  std::size_t lineNumber_ = 0;
  std::size_t failures_ = 0;
};

}  // namespace vestrel::workbench
