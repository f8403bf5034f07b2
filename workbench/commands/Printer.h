// Writes what happens as lines of text: the command, under it the callbacks as they come, then what came back
// or what went wrong. The data folder's own path is written as DATA, so that the text is the same wherever
// the folder is. Owned by the front end; the stream outlives it.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

#include "core/Error.h"
#include "workbench/commands/Operation.h"
#include "workbench/host/HostListener.h"

namespace vestrel::workbench {

class Printer : public HostListener {
 public:
  // `dataFolder` in UTF-8, not empty.
  Printer(std::ostream& out, std::string dataFolder) : out_(out), dataFolder_(std::move(dataFolder)) {}

  // "> command".
  void Command(std::string_view command);
  // A line as it is, for comments and headings.
  void Plain(std::string_view line);
  // "  = result" and "  name = value".
  void Result(const Outcome& outcome);
  // "  ! line N: what is wrong".
  void Rejected(std::size_t line, std::string_view what);
  // "  ! error N (source): description".
  void Failed(const Error& error);
  // "  ! failure: what", for what is no error of the library.
  void Failed(std::string_view what);

  // "  Callback(arg, arg)".
  void CallbackMade(const HostCall& call) override;
  // "  host: operation(arg, arg)".
  void HostActed(const HostCall& call) override;
  // "  message box [caption]: text", line breaks as blanks.
  void MessageBoxShown(std::u16string_view text, std::u16string_view caption) override;

 private:
  void Line(std::string_view text);

  std::ostream& out_;
  std::string dataFolder_;
};

}  // namespace vestrel::workbench
