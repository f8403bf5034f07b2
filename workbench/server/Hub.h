// The desk that all pages share: takes their frames to the session, runs the host's timers, keeps every
// page's picture up to date, and holds a modal dialog open until a page answers it. Everything happens on the
// thread of its event loop, which is the host's user-interface thread. The protocol is
// docs/workbench-protocol.md.
//
// While a dialog is open the loop goes on: timers tick, buttons are pressed and released and faders moved,
// but other commands are refused. While the library works and lets the loop turn, what changes state waits
// until it is done. A dialog waits for as long as it takes, also while no page is connected; a shut-down
// answers it with no.
#pragma once

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/server/CallLog.h"
#include "workbench/server/DialogDoor.h"
#include "workbench/server/PageClient.h"
#include "workbench/server/StateView.h"
#include "workbench/server/WorkSession.h"

namespace vestrel::workbench {

class Hub : private DialogDoor {
 public:
  // Both outlive it. The loop must be one for a single thread (concurrency hint 1): its turns nest.
  Hub(boost::asio::io_context& loop, WorkSession& session);
  ~Hub() override;

  // The page is sent the whole state and everything that follows.
  void Join(PageClient& page);
  // Buttons that this page alone held down are released.
  void Leave(PageClient& page);
  // A frame from a page. What is malformed is answered with an error and changes nothing.
  void Receive(PageClient& page, std::string_view text);

  // One command of the host's own.
  CommandResult Command(std::string_view command);
  // Saves and switches off as a host does at its end, tells the pages, and ends the loop. Waits for a call
  // that is under way.
  void ShutDown();

  // Called after each command once nothing is under way or waits.
  void SetAfterCall(std::function<void()> afterCall) { afterCall_ = std::move(afterCall); }

  std::size_t pages() const noexcept { return pages_.size(); }
  bool holdsControls() const noexcept { return !held_.empty(); }

 private:
  struct OpenDialog {
    std::uint64_t number;
    Dialog dialog;
    std::optional<DialogAnswer> answer;
  };
  using Json = nlohmann::json;
  using Work = std::function<void()>;

  DialogAnswer Ask(const Dialog& dialog) override;
  void Turn(std::uint64_t turn) override;
  void FileMoved(std::string_view path, std::uint64_t done, std::uint64_t size) override;

  void Handle(PageClient& page, const Json& frame);
  void HandleCommand(PageClient& page, const Json& frame);
  void HandlePress(PageClient& page, const Json& frame, bool pressed);
  void HandleFader(PageClient& page, const Json& frame);
  void HandleFind(PageClient& page, const Json& frame);
  void HandleEvents(PageClient& page, const Json& frame);
  void HandleAnswer(PageClient& page, const Json& frame);
  void AnswerDialog(OpenDialog& open, const Json& value);
  // Asks the session now, or once it can be asked.
  void Answer(PageClient& page, const Json& frame, const char* type, std::function<Json()> look);

  // At once, or after the call under way.
  void WhenIdle(Work work);
  // The same for a page; raises BadFrame when too much waits.
  void WhenIdleFor(Work work);
  void RunWaiting();
  void PostAfterCall();
  void Hold(PageClient& page, std::int32_t control, const Json& id);
  void LetGo(PageClient& page, std::int32_t control);
  // One after the other up to the first that fails, with nothing else in between; answers the last one's
  // result. What they changed is told at the end.
  CommandResult Run(const std::vector<std::string>& commands);
  void RunFor(PageClient* page, const std::vector<std::string>& commands, const Json& id);
  void AnnounceLongWork(std::string_view command);
  // Whether there is something to tell of work that takes its time: now and then.
  bool ProgressIsDue();
  void TellProgress(std::uint64_t done, std::uint64_t total);

  std::uint64_t Now() const;
  void ScheduleTimers();
  void TimersDue();
  void TickIfDue(HostTimer& timer, std::string_view command);

  void ShowDialogs();
  void Broadcast();
  void SendAll(const Json& message);
  static void SendTo(PageClient& page, const Json& message);
  static void Complain(PageClient& page, const Json& frame, const std::string& text);
  void Finish();

  boost::asio::io_context& loop_;
  // A turn of the loop within a call must not end it for want of other work.
  boost::asio::executor_work_guard<boost::asio::io_context::executor_type> work_;
  WorkSession& session_;
  StateView view_;
  CallLog log_;
  boost::asio::steady_timer timer_;
  boost::asio::steady_timer end_;
  std::chrono::steady_clock::time_point started_;
  std::set<PageClient*> pages_;
  // Who holds a control down.
  std::map<std::int32_t, std::set<PageClient*>> held_;
  std::deque<Work> waiting_;
  std::deque<OpenDialog> dialogs_;
  std::function<void()> afterCall_;
  bool afterCallPosted_ = false;
  std::uint64_t lastDialog_ = 0;
  std::uint64_t sequence_ = 0;
  // A call is under way and no dialog of it is open.
  bool busy_ = false;
  bool stopping_ = false;
  bool finished_ = false;
  std::chrono::microseconds lastCallTook_{0};
  // The session is in the midst of a file.
  bool inFile_ = false;
  std::string call_;
  std::chrono::steady_clock::time_point callBegan_;
  std::string longWork_;
  std::string lastFile_;
  std::uint64_t filesMoved_ = 0;
  std::chrono::steady_clock::time_point lastProgress_;
};

}  // namespace vestrel::workbench
