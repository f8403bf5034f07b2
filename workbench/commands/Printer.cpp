#include "workbench/commands/Printer.h"

#include <ostream>

#include "core/Convert.h"
#include "workbench/commands/OutputText.h"

namespace vestrel::workbench {

void Printer::Command(std::string_view command) {
  Line("> " + std::string(command));
}

void Printer::Plain(std::string_view line) {
  Line(line);
}

void Printer::Result(const Outcome& outcome) {
  if (outcome.result) Line("  = " + *outcome.result);
  for (const NamedText& entry : outcome.handedBack) Line("  " + entry.name + " = " + entry.value);
}

void Printer::Rejected(std::size_t line, std::string_view what) {
  Line("  ! line " + std::to_string(line) + ": " + std::string(what));
}

void Printer::Failed(const Error& error) {
  Line("  ! " + ErrorText(error));
}

void Printer::Failed(std::string_view what) {
  Line("  ! failure: " + std::string(what));
}

void Printer::CallbackMade(const HostCall& call) {
  Line("  " + CallText(call));
}

void Printer::HostActed(const HostCall& call) {
  Line("  host: " + CallText(call));
}

void Printer::MessageBoxShown(std::u16string_view text, std::u16string_view caption) {
  Line("  message box [" + ToUtf8(caption) + "]: " + OneLine(ToUtf8(text)));
}

void Printer::Line(std::string_view text) {
  out_ << WithoutFolder(std::string(text), dataFolder_) << '\n';
}

}  // namespace vestrel::workbench
