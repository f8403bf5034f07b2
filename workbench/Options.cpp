#include "workbench/Options.h"

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

void ReadOption(std::string_view option, Arguments& arguments, Options& options) {
  if (option == "--headless") {
    if (options.task == Task::PlayCommands) throw BadUsage("--headless is given twice");
    options.commands = arguments.ValueOf(option);
    options.task = Task::PlayCommands;
    options.withSample = false;
  } else if (option == "--data") {
    options.dataFolder = arguments.ValueOf(option);
  } else if (option == "--examples") {
    options.examples = arguments.ValueOf(option);
  } else {
    throw BadUsage("unknown argument \"" + std::string(option) + "\"");
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
  bool sample = false;
  Arguments rest(arguments);
  while (!rest.AtEnd()) {
    const std::string_view option = rest.Next();
    if (option == "--help" || option == "-h") return OptionsFor(Task::ShowHelp);
    if (option == "--operations") return OptionsFor(Task::ListOperations);
    if (option == "--sample") {
      sample = true;
    } else {
      ReadOption(option, rest, options);
    }
  }
  options.withSample = options.withSample || sample;
  return options;
}

std::string_view HelpText() {
  return R"(Usage: run [--headless FILE] [--data DIR] [--sample] [--examples DIR]
       run --help | --operations

Without --headless: copies the sample show into the data folder and plays the
sample evening, printing each command, what the library did, and at the end
which files changed.

  --headless FILE  play commands from FILE ("-": standard input), one a line
  --data DIR       data folder; it is made if need be. Otherwise a new folder
                   among the system's temporary ones, named on standard error
  --sample         with --headless: begin with the sample show in the data folder
  --examples DIR   where the sample show and the evening are (default: examples)
  --operations     list every operation with its arguments
  --help           this text

Commands: the operation's name and its arguments, separated by blanks. Texts in
double quotes (doubled inside), enumerations by name or number, true or false,
"-" for an argument left out or no object, @group/index for a button of the
current page; "#" begins a comment. wait MS lets the time pass.

Exit status: 0 when every command succeeded, 1 when one was bad or failed, 2 for
bad usage or a folder or file that cannot be used.
)";
}

}  // namespace vestrel::workbench
