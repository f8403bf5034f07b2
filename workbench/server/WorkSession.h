// The workbench's one host with everything that passes through it: performs command lines at given times,
// reports what happens to observers, refuses what would lose data, and takes dialogs and the message loop to
// the front end's door. Knows no network and no clock; given the same commands at the same times on the same
// data it does the same. One at a time on a thread.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"
#include "workbench/commands/CommandSession.h"
#include "workbench/commands/OperationTable.h"
#include "workbench/host/Dialogs.h"
#include "workbench/host/HostListener.h"
#include "workbench/host/SimulatedHost.h"
#include "workbench/server/DialogDoor.h"
#include "workbench/server/ProgressFiles.h"
#include "workbench/server/SessionObserver.h"
#include "workbench/server/WrittenFiles.h"

namespace vestrel::workbench {

// What came of a command for the one who gave it.
struct CommandResult {
  bool ok = true;
  // Of one that went well.
  Outcome outcome;
  // Otherwise; "refused: ..." when nothing was done for the sake of the data.
  std::string error;
};

class WorkSession : private HostListener, private Dialogs {
 public:
  // The folder exists and its path is absolute. Raises what SimulatedHost raises.
  WorkSession(const std::filesystem::path& dataFolder, const ClockStart& start);
  ~WorkSession() override;

  // The door must be set before the first command and outlive the last; an observer outlives the session.
  void SetDoor(DialogDoor* door) noexcept { door_ = door; }
  void AddObserver(SessionObserver* observer) { observers_.push_back(observer); }
  void RemoveObserver(SessionObserver* observer) { std::erase(observers_, observer); }

  // Nothing plays, is recorded or waits: a host that is started anew on this data would show the same.
  bool IsQuiet() const;
  // Starts the host anew, with no show set, as the constructor does; only outside of a command.
  void Restart(const ClockStart& start);

  // Performs one command line at `now` (milliseconds, as ClockStart::ticks; an earlier time counts as the
  // last one). May be called while another command waits in the door.
  CommandResult Perform(std::string_view command, std::uint64_t now);

  SimulatedHost& host() noexcept { return *host_; }
  CommandSession& commands() noexcept { return *commands_; }
  const OperationTable& operations() const noexcept { return operations_; }
  const std::filesystem::path& dataFolder() const noexcept { return dataFolder_; }
  const ClockStart& start() const noexcept { return start_; }

  // How many commands are being performed, one within the other.
  std::uint32_t depth() const noexcept { return depth_; }
  bool asking() const noexcept { return asking_ > 0; }

  // Whether the form has the focus.
  bool hasFocus() const noexcept { return hasFocus_; }
  // What the host notes beside what the library tells.
  RecordModeEnum recordMode() const noexcept { return recordMode_; }
  // Whether the recording was changed since it was saved or loaded.
  bool recordingChanged() const noexcept { return recordingChanged_; }
  // Counts what may have changed the list of events.
  std::uint64_t recordingRevision() const noexcept { return recordingRevision_; }
  // Lamps of row 0 to 2 that the last blink tick switched; none while the blink timer stands.
  std::uint16_t BlinkingLamps(std::size_t row) const { return blinking_.at(row); }
  bool blinkPhase() const noexcept { return blinkPhase_; }
  // Counts what may have changed which files there are, settings aside.
  std::uint64_t fileChanges() const noexcept { return fileChanges_; }

 private:
  void Begin(const ClockStart& start);
  CommandResult Try(std::string_view command);
  CommandResult Invoke(std::string_view command);
  void Invoked(std::string_view name, const std::vector<Word>& words);
  void KeepFolders(std::string_view name, const std::vector<Word>& words);
  void FetchItem(std::u16string_view name, ButtonTypeEnum type);
  void NoteBlinking(const std::array<std::uint16_t, ControlSurface::kRows>& before);
  std::array<std::uint16_t, ControlSurface::kRows> Lamps() const;
  DialogAnswer Ask(const Dialog& dialog);
  std::string WithoutPath(std::string text) const;

  void CallbackMade(const HostCall& call) override;
  void HostActed(const HostCall& call) override;
  bool ConfirmOverwrite(std::u16string_view promptText) override;
  bool ConfirmDelete(const clsButton& button) override;
  std::u16string AskName(const clsButton& button) override;
  void ShowMessage(std::u16string_view text, std::u16string_view caption) override;
  void PumpMessages() override;

  std::filesystem::path dataFolder_;
  ClockStart start_;
  ProgressFiles progress_;
  WrittenFiles files_;
  platform::Override override_;
  std::unique_ptr<SimulatedHost> host_;
  std::unique_ptr<CommandSession> commands_;
  OperationTable operations_;
  DialogDoor* door_ = nullptr;
  std::vector<SessionObserver*> observers_;
  std::uint32_t depth_ = 0;
  std::uint32_t asking_ = 0;
  // Turns of the message loop within the outermost command, and the one that is being made (0: none, or a
  // dialog is open within it).
  std::uint64_t lastTurn_ = 0;
  std::uint64_t currentTurn_ = 0;
  bool hasFocus_ = true;
  RecordModeEnum recordMode_ = RecordMode_Merge;
  bool recordingChanged_ = false;
  std::uint64_t recordingRevision_ = 0;
  std::array<std::uint16_t, ControlSurface::kRows> blinking_{};
  bool blinkPhase_ = false;
  std::uint64_t fileChanges_ = 0;
};

}  // namespace vestrel::workbench
