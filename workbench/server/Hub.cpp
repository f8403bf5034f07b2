#include "workbench/server/Hub.h"

#include <algorithm>
#include <array>
#include <boost/asio/post.hpp>
#include <exception>
#include <utility>
#include <vector>

#include "core/Convert.h"
#include "core/Version.h"
#include "workbench/server/Queries.h"
#include "workbench/server/Refusals.h"

namespace vestrel::workbench {

namespace {

using nlohmann::json;
using namespace std::chrono_literals;

constexpr std::size_t kHelloEntries = 500;
constexpr std::size_t kMostWaiting = 1000;
constexpr std::size_t kMostCommands = 256;
constexpr auto kProgressInterval = 50ms;
// What takes longer is told of, whatever it is.
constexpr auto kLong = 200ms;
// Of a larger file it is told how far it is; smaller ones are counted.
constexpr std::uint64_t kLargeFile = 1024ULL * 1024;
constexpr auto kFarewell = 300ms;
constexpr std::array<std::string_view, 6> kLongCommands{"LoadShow",
                                                        "CreateNewShow",
                                                        "clearAll",
                                                        "record.LoadEventsFrom",
                                                        "record.SaveEventsTo",
                                                        "record.updateEventTime"};

// Something is wrong with a frame; the text is for whoever wrote it.
class BadFrame : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

const json& Member(const json& frame, const char* name) {
  const auto found = frame.find(name);
  if (found == frame.end()) throw BadFrame(std::string("\"") + name + "\" is missing");
  return *found;
}

std::string TextOf(const json& frame, const char* name) {
  const json& value = Member(frame, name);
  if (!value.is_string()) throw BadFrame(std::string("\"") + name + "\" is no text");
  return value.get<std::string>();
}

std::int64_t NumberOf(const json& frame, const char* name, std::int64_t least, std::int64_t most) {
  const json& value = Member(frame, name);
  if (!value.is_number_integer()) throw BadFrame(std::string("\"") + name + "\" is no whole number");
  // A large unsigned number would come out negative.
  const bool huge = value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX;
  const std::int64_t number = huge ? INT64_MAX : value.get<std::int64_t>();
  if (number < least || number > most) {
    throw BadFrame(std::string("\"") + name + "\" is not between " + std::to_string(least) + " and " +
                   std::to_string(most));
  }
  return number;
}

json IdOf(const json& frame) {
  const auto id = frame.find("id");
  if (id == frame.end()) return nullptr;
  return id->is_number() || (id->is_string() && id->get_ref<const std::string&>().size() <= 64) ? *id
                                                                                                : nullptr;
}

// The commands of one frame, in their order.
std::vector<std::string> CommandsOf(const json& frame) {
  if (!frame.contains("cmds")) return {TextOf(frame, "cmd")};
  const json& list = frame["cmds"];
  if (!list.is_array() || list.empty() || list.size() > kMostCommands) {
    throw BadFrame("\"cmds\" is no list of 1 to " + std::to_string(kMostCommands) + " commands");
  }
  std::vector<std::string> commands;
  for (const json& command : list) {
    if (!command.is_string()) throw BadFrame("\"cmds\" holds something that is no text");
    commands.push_back(command.get<std::string>());
  }
  return commands;
}

json DoneFrame(const json& id, const CommandResult& result) {
  json frame{{"t", "done"}, {"id", id}, {"ok", result.ok}};
  if (!result.ok) {
    frame["error"] = result.error;
    return frame;
  }
  json results = json::object();
  if (result.outcome.result) results[""] = *result.outcome.result;
  for (const NamedText& entry : result.outcome.handedBack) results[entry.name] = entry.value;
  frame["results"] = std::move(results);
  return frame;
}

json DialogState(std::uint64_t number, const Dialog& dialog) {
  const char* const kinds[] = {"yesno", "text", "message"};
  return {{"id", number},
          {"kind", kinds[static_cast<std::size_t>(dialog.kind)]},
          {"title", dialog.title},
          {"text", dialog.text},
          {"value", dialog.value}};
}

}  // namespace

Hub::Hub(boost::asio::io_context& loop, WorkSession& session)
    : loop_(loop),
      work_(loop.get_executor()),
      session_(session),
      view_(session),
      log_(session.start().ticks),
      timer_(loop),
      end_(loop),
      started_(std::chrono::steady_clock::now()) {
  session_.SetDoor(this);
  session_.AddObserver(&log_);
  view_.Set("dialog", nullptr);
  view_.Set("progress", nullptr);
  view_.Set("clients", 0);
}

Hub::~Hub() {
  session_.SetDoor(nullptr);
  session_.RemoveObserver(&log_);
}

// ---- Pages ----

void Hub::Join(PageClient& page) {
  view_.Set("clients", pages_.size() + 1);
  Broadcast();
  pages_.insert(&page);
  SendTo(page, {{"t", "hello"},
                {"version", ToUtf8(Version())},
                {"seq", sequence_},
                {"ms", session_.host().Now() - session_.start().ticks},
                {"state", view_.Whole()},
                {"log", log_.Last(kHelloEntries)},
                {"commands", CommandList(session_.operations())}});
}

void Hub::Leave(PageClient& page) {
  if (pages_.erase(&page) == 0) return;
  view_.Set("clients", pages_.size());
  std::vector<std::int32_t> controls;
  for (auto& [control, holders] : held_) {
    if (holders.contains(&page)) controls.push_back(control);
  }
  for (const std::int32_t control : controls) LetGo(page, control);
  if (!stopping_) Broadcast();
}

void Hub::Receive(PageClient& page, std::string_view text) {
  const json frame = json::parse(text, nullptr, false);
  try {
    if (!frame.is_object()) throw BadFrame("a frame is one JSON object");
    Handle(page, frame);
  } catch (const BadFrame& bad) {
    Complain(page, frame, bad.what());
  }
}

void Hub::Handle(PageClient& page, const json& frame) {
  const std::string type = TextOf(frame, "t");
  if (stopping_) throw BadFrame("the host is shutting down");
  if (type == "do") return HandleCommand(page, frame);
  if (type == "press") return HandlePress(page, frame, true);
  if (type == "release") return HandlePress(page, frame, false);
  if (type == "fader") return HandleFader(page, frame);
  if (type == "find") return HandleFind(page, frame);
  if (type == "events") return HandleEvents(page, frame);
  if (type == "answer") return HandleAnswer(page, frame);
  if (type == "ping") return SendTo(page, {{"t", "pong"}, {"id", IdOf(frame)}});
  throw BadFrame("\"" + type.substr(0, 40) + "\" is no type of frame");
}

void Hub::HandleCommand(PageClient& page, const json& frame) {
  std::vector<std::string> commands = CommandsOf(frame);
  if (session_.asking()) {
    return SendTo(page, DoneFrame(IdOf(frame), {false, {}, "refused: a dialog is waiting for its answer"}));
  }
  WhenIdleFor(
      [this, &page, commands = std::move(commands), id = IdOf(frame)] { RunFor(&page, commands, id); });
}

void Hub::HandlePress(PageClient& page, const json& frame, bool pressed) {
  constexpr std::int64_t kMostControls = 100'000;
  const auto control = static_cast<std::int32_t>(NumberOf(frame, "control", 1, kMostControls));
  Work work = [this, &page, control, pressed, id = IdOf(frame)] {
    if (pressed) return Hold(page, control, id);
    LetGo(page, control);
    if (pages_.contains(&page)) SendTo(page, DoneFrame(id, {}));
  };
  // Letting go is never refused.
  if (!pressed) return WhenIdle(std::move(work));
  WhenIdleFor(std::move(work));
}

void Hub::HandleFader(PageClient& page, const json& frame) {
  const std::string which = TextOf(frame, "which");
  if (which != "group" && which != "bump") throw BadFrame("\"which\" is neither group nor bump");
  const std::string number = std::to_string(NumberOf(frame, "number", 1, 8));
  const std::string value = std::to_string(NumberOf(frame, "value", 0, 100));
  const std::string command = "host." + which + " " + number + " " + value;
  WhenIdleFor([this, &page, command, id = IdOf(frame)] { RunFor(&page, {command}, id); });
}

void Hub::HandleFind(PageClient& page, const json& frame) {
  Answer(page, frame, "found", [this, text = TextOf(frame, "text")] { return FindButtons(session_, text); });
}

void Hub::HandleEvents(PageClient& page, const json& frame) {
  const std::int64_t from = NumberOf(frame, "from", 0, INT32_MAX);
  const std::int64_t count = NumberOf(frame, "count", 0, INT32_MAX);
  Answer(page, frame, "events", [this, from, count] { return EventRows(session_, from, count); });
}

void Hub::Answer(PageClient& page, const json& frame, const char* type, std::function<json()> look) {
  Work answer = [this, &page, type, look = std::move(look), id = IdOf(frame)] {
    if (!pages_.contains(&page)) return;
    json found = look();
    found["t"] = type;
    found["id"] = id;
    SendTo(page, found);
  };
  if (inFile_) return WhenIdleFor(std::move(answer));
  answer();
}

// ---- Buttons that are held down ----

void Hub::Hold(PageClient& page, std::int32_t control, const json& id) {
  if (!pages_.contains(&page)) return;
  std::set<PageClient*>& holders = held_[control];
  const bool first = holders.empty();
  holders.insert(&page);
  if (first) return RunFor(&page, {"controlPressed " + std::to_string(control)}, id);
  SendTo(page, DoneFrame(id, {}));
}

void Hub::LetGo(PageClient& page, std::int32_t control) {
  const auto found = held_.find(control);
  if (found == held_.end() || found->second.erase(&page) == 0 || !found->second.empty()) return;
  held_.erase(found);
  WhenIdle([this, control] { Run({"controlReleased " + std::to_string(control)}); });
}

// ---- Calls ----

void Hub::WhenIdle(Work work) {
  if (!busy_) return work();
  waiting_.push_back(std::move(work));
}

void Hub::WhenIdleFor(Work work) {
  if (busy_ && waiting_.size() >= kMostWaiting) throw BadFrame("too much is waiting; nothing was done");
  WhenIdle(std::move(work));
}

void Hub::RunWaiting() {
  while (!busy_ && !waiting_.empty()) {
    const Work work = std::move(waiting_.front());
    waiting_.pop_front();
    work();
  }
}

CommandResult Hub::Run(const std::vector<std::string>& commands) {
  busy_ = true;
  const auto began = std::chrono::steady_clock::now();
  CommandResult result;
  filesMoved_ = 0;
  for (const std::string& command : commands) {
    AnnounceLongWork(command);
    call_ = command.substr(0, command.find(' '));
    callBegan_ = std::chrono::steady_clock::now();
    result = session_.Perform(command, Now());
    if (!result.ok || stopping_) break;
  }
  const auto took = std::chrono::steady_clock::now() - began;
  lastCallTook_ = std::chrono::duration_cast<std::chrono::microseconds>(took);
  busy_ = false;
  if (!longWork_.empty()) {
    longWork_.clear();
    view_.Set("progress", nullptr);
  }
  Broadcast();
  ScheduleTimers();
  if (!waiting_.empty()) boost::asio::post(loop_, [this] { RunWaiting(); });
  PostAfterCall();
  if (stopping_ && !finished_ && session_.depth() == 0) Finish();
  return result;
}

void Hub::PostAfterCall() {
  if (!afterCall_ || afterCallPosted_ || stopping_) return;
  afterCallPosted_ = true;
  boost::asio::post(loop_, [this] {
    afterCallPosted_ = false;
    if (session_.depth() == 0 && waiting_.empty() && !stopping_) afterCall_();
  });
}

void Hub::RunFor(PageClient* page, const std::vector<std::string>& commands, const json& id) {
  if (!pages_.contains(page)) return;
  const CommandResult result = Run(commands);
  if (!pages_.contains(page)) return;
  json done = DoneFrame(id, result);
  done["us"] = lastCallTook_.count();
  SendTo(*page, done);
}

CommandResult Hub::Command(std::string_view command) {
  return Run({std::string(command)});
}

void Hub::AnnounceLongWork(std::string_view command) {
  const std::string_view name = command.substr(0, command.find(' '));
  if (std::find(kLongCommands.begin(), kLongCommands.end(), name) == kLongCommands.end()) return;
  longWork_ = name;
  view_.Set("progress", {{"what", longWork_}, {"done", 0}, {"total", 0}});
  Broadcast();
}

bool Hub::ProgressIsDue() {
  const auto now = std::chrono::steady_clock::now();
  if (now - lastProgress_ < kProgressInterval) return false;
  lastProgress_ = now;
  if (longWork_.empty() && now - callBegan_ > kLong) longWork_ = call_;
  return !longWork_.empty();
}

void Hub::TellProgress(std::uint64_t done, std::uint64_t total) {
  view_.Set("progress", {{"what", longWork_}, {"done", done}, {"total", total}});
  Broadcast();
}

void Hub::Turn(std::uint64_t turn) {
  if (ProgressIsDue()) TellProgress(turn, 0);
  loop_.poll();
}

void Hub::FileMoved(std::string_view path, std::uint64_t done, std::uint64_t size) {
  if (path != lastFile_) {
    lastFile_ = path;
    ++filesMoved_;
  }
  if (inFile_ || !ProgressIsDue()) return;
  inFile_ = true;
  view_.Hold(true);
  const bool large = size > kLargeFile;
  TellProgress(large ? done : filesMoved_, large ? size : 0);
  loop_.poll();
  view_.Hold(false);
  inFile_ = false;
}

// ---- Dialogs ----

DialogAnswer Hub::Ask(const Dialog& dialog) {
  OpenDialog& open = dialogs_.emplace_back(OpenDialog{++lastDialog_, dialog, std::nullopt});
  busy_ = false;
  ShowDialogs();
  // Turns first what the handler under way has started; a blocking turn would not see it.
  loop_.poll();
  while (!open.answer && !stopping_ && !loop_.stopped()) loop_.run_one();
  busy_ = true;
  const DialogAnswer answer = open.answer.value_or(DialogAnswer{});
  dialogs_.pop_back();
  ShowDialogs();
  return answer;
}

void Hub::ShowDialogs() {
  view_.Set("dialog",
            dialogs_.empty() ? json() : DialogState(dialogs_.back().number, dialogs_.back().dialog));
  Broadcast();
}

void Hub::HandleAnswer(PageClient& page, const json& frame) {
  const std::int64_t number = NumberOf(frame, "dialog", 0, INT64_MAX);
  const json id = IdOf(frame);
  if (dialogs_.empty() || dialogs_.back().number != static_cast<std::uint64_t>(number) ||
      dialogs_.back().answer) {
    return SendTo(page, DoneFrame(id, {false, {}, "refused: this dialog is not open any more"}));
  }
  try {
    AnswerDialog(dialogs_.back(), Member(frame, "value"));
    SendTo(page, DoneFrame(id, {}));
  } catch (const Refusal& refusal) {
    SendTo(page, DoneFrame(id, {false, {}, std::string("refused: ") + refusal.what()}));
  }
}

void Hub::AnswerDialog(OpenDialog& open, const json& value) {
  DialogAnswer answer;
  if (open.dialog.kind == DialogKind::Text && value.is_string()) {
    answer = {true, value.get<std::string>()};
    if (!answer.text.empty()) ExpectFreeButtonName(FromUtf8(answer.text), session_);
  } else if (value.is_boolean() && open.dialog.kind != DialogKind::Text) {
    answer.yes = value.get<bool>();
  } else if (!value.is_null()) {
    throw BadFrame("\"value\" does not answer this dialog");
  }
  open.answer = answer;
}

// ---- Time ----

std::uint64_t Hub::Now() const {
  const auto passed = std::chrono::steady_clock::now() - started_;
  return session_.start().ticks +
         static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(passed).count());
}

void Hub::ScheduleTimers() {
  std::optional<std::uint64_t> due;
  for (const HostTimer* timer : {&session_.host().blinkTimer(), &session_.host().transportTimer()}) {
    if (timer->running()) due = std::min(due.value_or(timer->due()), timer->due());
  }
  if (!due || stopping_) {
    timer_.cancel();
    return;
  }
  timer_.expires_at(started_ + std::chrono::milliseconds(*due - session_.start().ticks));
  timer_.async_wait([this](const boost::system::error_code& error) {
    if (!error) WhenIdle([this] { TimersDue(); });
  });
}

void Hub::TimersDue() {
  if (stopping_) return;
  TickIfDue(session_.host().blinkTimer(), "leds.TimerTick");
  TickIfDue(session_.host().transportTimer(), "record.TimerTick");
  ScheduleTimers();
}

void Hub::TickIfDue(HostTimer& timer, std::string_view command) {
  const std::uint64_t now = Now();
  if (!timer.IsDue(now) || busy_) return;
  timer.Ticked(now);
  Run({std::string(command)});
}

// ---- Sending ----

void Hub::Broadcast() {
  try {
    json changes = view_.TakeChanges();
    if (!changes.is_null()) {
      SendAll({{"t", "patch"},
               {"seq", ++sequence_},
               {"ms", session_.host().Now() - session_.start().ticks},
               {"set", std::move(changes)}});
    }
    json entries = log_.TakeNew();
    if (!entries.is_null()) SendAll({{"t", "log"}, {"entries", std::move(entries)}});
  } catch (const std::exception& failure) {
    SendAll({{"t", "error"}, {"text", std::string("the state cannot be read: ") + failure.what()}});
  }
}

void Hub::SendAll(const json& message) {
  if (pages_.empty()) return;
  const Frame frame =
      std::make_shared<const std::string>(message.dump(-1, ' ', false, json::error_handler_t::replace));
  for (PageClient* page : pages_) page->Send(frame);
}

void Hub::SendTo(PageClient& page, const json& message) {
  page.Send(
      std::make_shared<const std::string>(message.dump(-1, ' ', false, json::error_handler_t::replace)));
}

void Hub::Complain(PageClient& page, const json& frame, const std::string& text) {
  json complaint{{"t", "error"}, {"text", text}};
  if (frame.is_object()) complaint["id"] = IdOf(frame);
  SendTo(page, complaint);
}

// ---- The end ----

void Hub::ShutDown() {
  if (stopping_) return;
  stopping_ = true;
  waiting_.clear();
  // A call under way, or one whose dialog is answered by this, ends first; Run sees to the rest then.
  if (session_.depth() == 0) Finish();
}

void Hub::Finish() {
  finished_ = true;
  Run({"formShutdown"});
  for (PageClient* page : pages_) page->GoAway();
  end_.expires_after(kFarewell);
  end_.async_wait([this](const boost::system::error_code&) { loop_.stop(); });
}

}  // namespace vestrel::workbench
