#include "workbench/commands/Printer.h"

#include <ostream>

#include "core/Convert.h"
#include "workbench/host/ValueText.h"

namespace vestrel::workbench {

namespace {

std::string CallText(const HostCall& call) {
  return std::string(call.name) + "(" + JoinTexts(call.arguments) + ")" + call.note;
}

// Line breaks as one blank each.
std::string OneLine(std::string_view text) {
  std::string line;
  for (const char byte : text) {
    if (byte != '\r') line += byte == '\n' ? ' ' : byte;
  }
  return line;
}

}  // namespace

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
  Line("  ! error " + std::to_string(error.number()) + " (" + ToUtf8(error.source()) +
       "): " + OneLine(ToUtf8(error.description())));
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
  std::string line(text);
  // Written the same on every run, whatever folder was chosen.
  constexpr std::string_view kPlaceholder = "DATA";
  std::size_t at = line.find(dataFolder_);
  while (at != std::string::npos) {
    line.replace(at, dataFolder_.size(), kPlaceholder);
    at = line.find(dataFolder_, at + kPlaceholder.size());
  }
  out_ << line << '\n';
}

}  // namespace vestrel::workbench
