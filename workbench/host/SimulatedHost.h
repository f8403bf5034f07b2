// A lighting-control host around the library: owns the form, the control surface, the transport bar, the
// stage and the two timers, makes the controllers and starts them, and does what an operator does with his
// hands. Used by every front end; it prints nothing and waits for nothing. One at a time on a thread, whose
// platform services it replaces while it lives.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "controller/clsButtonGroupController.h"
#include "platform/Platform.h"
#include "recording/clsRecordController.h"
#include "workbench/host/Answers.h"
#include "workbench/host/CallReporter.h"
#include "workbench/host/ControlSurface.h"
#include "workbench/host/Dialogs.h"
#include "workbench/host/HostForm.h"
#include "workbench/host/HostSystem.h"
#include "workbench/host/HostTimer.h"
#include "workbench/host/ItemFiles.h"
#include "workbench/host/ShowFolders.h"
#include "workbench/host/SimulatedClock.h"
#include "workbench/host/Stage.h"
#include "workbench/host/TransportBar.h"

namespace vestrel::workbench {

class SimulatedHost {
 public:
  // In the data folder.
  static constexpr std::u16string_view kLogFile = u"vestrel.log";

  // Starts the log and both controllers: no show, page size -1. The folder exists and its path is absolute;
  // everything the library writes goes into it. Raises what the log raises when its file cannot be written.
  explicit SimulatedHost(const std::filesystem::path& dataFolder, const ClockStart& start = {});
  SimulatedHost(const SimulatedHost&) = delete;
  SimulatedHost& operator=(const SimulatedHost&) = delete;
  ~SimulatedHost();

  clsButtonGroupController& controller() noexcept { return *controller_; }
  clsRecordController& record() noexcept { return *record_; }
  HostForm& form() noexcept { return *form_; }
  ControlSurface& surface() noexcept { return *surface_; }
  TransportBar& transport() noexcept { return *transport_; }
  Stage& stage() noexcept { return stage_; }
  Answers& answers() noexcept { return answers_; }
  ItemFiles& files() noexcept { return files_; }
  ShowFolders& folders() noexcept { return folders_; }
  CallReporter& calls() noexcept { return calls_; }
  HostTimer& blinkTimer() noexcept { return blinkTimer_; }
  HostTimer& transportTimer() noexcept { return transportTimer_; }
  // The data folder as the library is given it.
  const std::u16string& appPath() const noexcept { return appPath_; }
  std::uint64_t Now() const noexcept { return clock_.Now(); }
  // The prepared answers, or the front end's dialogs, which outlive the host or give way to answers() before.
  Dialogs& dialogs() const noexcept { return system_.dialogs(); }
  void SetDialogs(Dialogs& dialogs) noexcept { system_.SetDialogs(dialogs); }

  // Lets the time pass, 0 or more milliseconds, and fires the timers as they fall due; at the same moment the
  // blink timer comes first. A failure of a tick ends it at that moment.
  void Advance(std::uint64_t milliseconds);
  // Lets the time pass without the timers, for a front end that has timers of its own. Never backwards.
  void GoOnTo(std::uint64_t now) noexcept { clock_.GoOnTo(now); }

  // The operator moves fader `index`, 1 to 8, to `value`. Raises 9 for another index.
  void MoveGroupFader(std::int32_t index, std::int32_t value);
  void MoveBumpFader(std::int32_t index, std::int32_t value, bool updateUI = true);

  // The page size and the show are the host's to know as well.
  void SetPageSize(std::int32_t pageSize);
  std::int32_t pageSize() const noexcept { return pageSize_; }
  void CreateShow(std::u16string_view showName);
  void LoadShow(std::u16string_view showName);

  // Notes on every button whether a control shows it, and which. The form does so when it draws a page or a
  // group, and a front end after each command that shows something else. Nothing before a page size is set.
  void LayOut();

  // Policy: a button that goes on switches the others of its group off. Off at first.
  bool releaseOnPlay() const noexcept { return releaseOnPlay_; }
  void SetReleaseOnPlay(bool value) noexcept { releaseOnPlay_ = value; }

  // What the host does on its own account, reported as such.
  void ReleaseOthers(clsButton& button);
  void TurnOn(clsButton& button);
  void LeaveEditMode();

  // Called by the host's parts.
  void SetGroupLevel(std::int32_t groupIndex, std::int32_t level);
  void StartBlinking() { blinkTimer_.Start(clock_.Now()); }
  void StopBlinking() { blinkTimer_.Stop(); }
  void RunTransportTimer(bool enabled);

 private:
  static constexpr std::uint64_t kBlinkInterval = 500;
  static constexpr std::uint64_t kTransportInterval = 50;

  HostTimer* NextTimer(std::uint64_t until) noexcept;
  void LayOutGroup(std::int32_t groupIndex);

  std::u16string appPath_;
  CallReporter calls_;
  SimulatedClock clock_;
  Answers answers_;
  HostSystem system_;
  // Before everything that may call the library while it goes.
  platform::Override override_;
  Stage stage_;
  ItemFiles files_;
  ShowFolders folders_;
  HostTimer blinkTimer_{kBlinkInterval};
  HostTimer transportTimer_{kTransportInterval};
  bool releaseOnPlay_ = false;
  std::int32_t pageSize_ = -1;
  Ref<HostForm> form_;
  Ref<ControlSurface> surface_;
  Ref<TransportBar> transport_;
  Ref<clsRecordController> record_;
  Ref<clsButtonGroupController> controller_;
};

}  // namespace vestrel::workbench
