#include "workbench/Options.h"

#include <charconv>

namespace vestrel::workbench {

namespace {

class Arguments {
 public:
  explicit Arguments(std::span<const std::string_view> rest) : rest_(rest) {}

  bool AtEnd() const { return rest_.empty(); }
  std::string_view Next() {
    const std::string_view next = rest_.front();
    rest_ = rest_.subspan(1);
    return next;
  }
  std::string ValueOf(std::string_view option) {
    if (AtEnd() || rest_.front().empty() || rest_.front().starts_with("--")) {
      throw BadUsage(std::string(option) + " needs a value");
    }
    return std::string(Next());
  }

 private:
  std::span<const std::string_view> rest_;
};

constexpr std::size_t kShortestToken = 16;

std::uint16_t ReadPort(const std::string& text) {
  std::uint16_t port = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, port);
  if (error != std::errc() || stop != end || port == 0) throw BadUsage("\"" + text + "\" is no port");
  return port;
}

std::uint64_t ReadMegabytes(const std::string& text) {
  std::uint64_t megabytes = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, megabytes);
  constexpr std::uint64_t kMost = 1024ULL * 1024;
  if (error != std::errc() || stop != end || megabytes == 0 || megabytes > kMost) {
    throw BadUsage("\"" + text + "\" is no number of megabytes");
  }
  return megabytes * 1024 * 1024;
}

// The token stands in addresses and cookies as it is.
void ExpectToken(const std::string& token) {
  const bool plain =
      token.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_") ==
      std::string::npos;
  if (!plain || token.size() < kShortestToken) {
    throw BadUsage("a token has " + std::to_string(kShortestToken) + " or more letters, digits, - and _");
  }
}

void SetTask(Options& options, Task task, std::string_view option) {
  if (options.task == task) throw BadUsage(std::string(option) + " is given twice");
  if (options.task != Task::ServePage) throw BadUsage("--headless and --replay exclude each other");
  options.task = task;
}

bool ReadFlag(std::string_view option, Options& options) {
  if (option == "--sample") {
    options.withSample = true;
  } else if (option == "--story") {
    options.tellsStory = true;
  } else if (option == "--no-browser") {
    options.opensBrowser = false;
  } else {
    return false;
  }
  return true;
}

bool ReadPageOption(std::string_view option, Arguments& arguments, Options& options) {
  if (option == "--port") {
    options.port = ReadPort(arguments.ValueOf(option));
  } else if (option == "--listen") {
    options.listen = arguments.ValueOf(option);
  } else if (option == "--token") {
    options.token = arguments.ValueOf(option);
    ExpectToken(options.token);
  } else if (option == "--journal") {
    options.journal = arguments.ValueOf(option);
  } else if (option == "--journal-size") {
    options.journalBytes = ReadMegabytes(arguments.ValueOf(option));
  } else {
    return false;
  }
  return true;
}

void ReadOption(std::string_view option, Arguments& arguments, Options& options) {
  if (ReadFlag(option, options) || ReadPageOption(option, arguments, options)) return;
  if (option == "--headless") {
    SetTask(options, Task::PlayCommands, option);
    options.commands = arguments.ValueOf(option);
  } else if (option == "--replay") {
    SetTask(options, Task::Replay, option);
    options.replay = arguments.ValueOf(option);
  } else if (option == "--data") {
    options.dataFolder = arguments.ValueOf(option);
  } else if (option == "--examples") {
    options.examples = arguments.ValueOf(option);
  } else {
    throw BadUsage("unknown argument \"" + std::string(option) + "\"");
  }
}

void ExpectTogether(const Options& options) {
  if (options.listen != "127.0.0.1" && options.token.empty()) {
    throw BadUsage("--listen demands a --token that visitors must know");
  }
}

Options OptionsFor(Task task) {
  Options options;
  options.task = task;
  return options;
}

}  // namespace

Options ReadOptions(std::span<const std::string_view> arguments) {
  Options options;
  Arguments rest(arguments);
  while (!rest.AtEnd()) {
    const std::string_view option = rest.Next();
    if (option == "--help" || option == "-h") return OptionsFor(Task::ShowHelp);
    if (option == "--operations") return OptionsFor(Task::ListOperations);
    ReadOption(option, rest, options);
  }
  ExpectTogether(options);
  return options;
}

std::string_view HelpText() {
  return R"(Usage: run [--data DIR] [--port N] [--no-browser] [--journal FILE]
           [--listen ADDRESS --token TOKEN]
       run --replay FILE [--data DIR]
       run --headless FILE [--data DIR] [--sample] [--story]
       run --help | --operations

Without --headless and --replay: serves the workbench as a page to this
machine's browser, with the sample show in the data folder, until Ctrl-C.

  --port N         the page's port (otherwise the first free one from 8420 on)
  --no-browser     open no browser, also where there is a desktop
  --listen ADDRESS serve on this address of the machine; demands --token
  --token TOKEN    what visitors must know, 16 or more letters, digits, - and _
  --journal FILE   write every call and callback to FILE, for --replay; what the
                   file held before moves to FILE.1
  --journal-size M megabytes after which the journal begins anew, at a quiet
                   moment (otherwise 256)
  --replay FILE    perform the calls of a journal again on a copy of the data
                   that they began with (or of DIR) and compare every callback
  --data DIR       data folder; it is made if need be. Otherwise "data" for the
                   page; with --headless a new folder among the system's
                   temporary ones, named on standard error
  --headless FILE  play commands from FILE ("-": standard input), one a line
  --sample         with --headless: begin with the sample show in the data folder
  --story          with --headless: print comments as well, and at the end which
                   files changed
  --examples DIR   where the sample show is (default: examples)
  --operations     list every operation with its arguments
  --help           this text

Commands: the operation's name and its arguments, separated by blanks. Texts in
double quotes (doubled inside), enumerations by name or number, true or false,
"-" for an argument left out or no object, @group/index for a button of the
current page; "#" begins a comment. wait MS lets the time pass.

Exit status: 0 when every command succeeded, 1 when one was bad or failed or the
replay differed, 2 for bad usage or a folder, file or port that cannot be used.
)";
}

}  // namespace vestrel::workbench
