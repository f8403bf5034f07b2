#include "workbench/server/WebRun.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/signal_set.hpp>
#include <chrono>
#include <csignal>
#include <ctime>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "workbench/host/ValueText.h"
#include "workbench/server/Desktop.h"
#include "workbench/server/Hub.h"
#include "workbench/server/Journal.h"
#include "workbench/server/WebServer.h"
#include "workbench/server/WorkSession.h"

namespace vestrel::workbench {

using boost::asio::ip::tcp;

namespace {

constexpr std::uint16_t kFirstPort = 8420;
constexpr std::uint16_t kPortsTried = 200;

// Milliseconds of a clock that never goes back, and the date and time of the place.
ClockStart StartNow() {
  using namespace std::chrono;
  const auto ticks = duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
  const std::time_t now = system_clock::to_time_t(system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  return {static_cast<std::uint64_t>(ticks), sys_seconds{seconds{timegm(&local)}}};
}

boost::asio::ip::address AddressOf(const std::string& text) {
  boost::system::error_code error;
  const auto address = boost::asio::ip::make_address(text, error);
  if (error) throw BadUsage("\"" + text + "\" is no address of a machine");
  return address;
}

std::unique_ptr<WebServer> TryPort(boost::asio::io_context& loop, Hub& hub, const Options& options,
                                   std::uint16_t port) {
  return std::make_unique<WebServer>(loop, hub, tcp::endpoint(AddressOf(options.listen), port),
                                     options.token);
}

std::unique_ptr<WebServer> Listen(boost::asio::io_context& loop, Hub& hub, const Options& options) {
  std::uint16_t port = options.port.value_or(kFirstPort);
  const std::uint16_t last = options.port ? port : static_cast<std::uint16_t>(kFirstPort + kPortsTried);
  while (true) {
    try {
      return TryPort(loop, hub, options, port);
    } catch (const boost::system::system_error& error) {
      const bool busy = error.code() == boost::asio::error::address_in_use;
      if (busy && port < last) {
        ++port;
        continue;
      }
      throw BadUsage("port " + std::to_string(port) + " of " + options.listen +
                     " cannot be used: " + (busy ? "another program has it" : error.code().message()));
    }
  }
}

std::string AddressText(const Options& options, std::uint16_t port) {
  const bool six = options.listen.find(':') != std::string::npos;
  std::string text =
      "http://" + (six ? "[" + options.listen + "]" : options.listen) + ":" + std::to_string(port);
  return text + "/" + (options.token.empty() ? "" : "?token=" + options.token);
}

// The show that comes up: the first in alphabetical order, or a new one.
std::string FirstShowCommand(WorkSession& session) {
  const std::u16string first = session.host().folders().FirstShowBut(u"");
  return first.empty() ? "CreateNewShow \"New Show\"" : "LoadShow " + ValueText(first);
}

void BeginEvening(Hub& hub, WorkSession& session) {
  hub.Command("setButtonGroupPageSize 8");
  hub.Command(FirstShowCommand(session));
  hub.Command("HideSplashScreen");
  hub.Command("formGotFocus");
}

// What brings a new host to where the old one stands, when that is quiet.
std::vector<std::string> CommandsLike(WorkSession& session) {
  SimulatedHost& host = session.host();
  const Ref<clsPageManager> pages = host.controller().PageManager();
  std::vector<std::string> commands;
  const TUIFaderValues& hands = host.surface().positions();
  for (std::int32_t i = 1; i <= 8; ++i) {
    const std::string number = std::to_string(i) + " ";
    commands.push_back("host.place group " + number + std::to_string(hands.GroupFaders[i]));
    commands.push_back("host.place bump " + number + std::to_string(hands.BumpFaders[i]));
  }
  commands.push_back("setButtonGroupPageSize " + std::to_string(host.pageSize()));
  if (pages->showName() != clsPageManager::kNullShow) {
    commands.push_back("LoadShow " + ValueText(pages->showName()));
    if (pages->PageIsValid()) commands.push_back("SetPage " + ValueText(pages->CurrentPageName()));
  }
  commands.emplace_back("HideSplashScreen");
  commands.emplace_back(session.hasFocus() ? "formGotFocus" : "formLostFocus");
  return commands;
}

// A journal that is full begins anew with a new host, at a moment when that changes nothing for the operator.
void RenewJournal(Hub& hub, WorkSession& session, JournalWriter& journal) {
  if (!journal.IsFull() || !session.IsQuiet() || hub.holdsControls()) return;
  const std::vector<std::string> commands = CommandsLike(session);
  const ClockStart start = StartNow();
  session.Restart(start);
  journal.Begin(session.dataFolder(), start);
  for (const std::string& command : commands) hub.Command(command);
}

void KeepJournal(Hub& hub, WorkSession& session, JournalWriter& journal) {
  try {
    journal.Begin(session.dataFolder(), session.start());
  } catch (const std::exception& failure) {
    throw BadUsage(std::string("the journal cannot be written: ") + failure.what());
  }
  session.AddObserver(&journal);
  hub.SetAfterCall([&] { RenewJournal(hub, session, journal); });
}

}  // namespace

void ServePage(const std::filesystem::path& dataFolder, const Options& options, std::ostream& out) {
  boost::asio::io_context loop(1);
  JournalWriter journal(options.journal, {options.journalBytes, JournalLimits{}.snapshot});
  WorkSession session(dataFolder, StartNow());
  Hub hub(loop, session);
  const std::unique_ptr<WebServer> server = Listen(loop, hub, options);
  if (!options.journal.empty()) KeepJournal(hub, session, journal);
  boost::asio::signal_set signals(loop, SIGINT, SIGTERM);
  signals.async_wait([&](const boost::system::error_code& error, int) {
    if (error) return;
    server->Close();
    hub.ShutDown();
  });
  BeginEvening(hub, session);
  const std::string address = AddressText(options, server->port());
  out << "Vestrel workbench: " << address
      << std::endl;  // NOLINT(performance-avoid-endl): a script may wait for it
  if (options.opensBrowser) OpenInBrowser(address);
  loop.run();
}

}  // namespace vestrel::workbench
