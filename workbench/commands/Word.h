// A command line cut into words: separated by blanks; texts in double quotes, a quote inside doubled; "#"
// outside a text starts a comment. Knows nothing of what the words mean.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vestrel::workbench {

// What is wrong with a command, for the operator; the command did nothing.
class BadCommand : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Word {
  // UTF-8, without the quotes.
  std::string text;
  bool quoted = false;

  // Whether it stands for an argument left out, or for no object.
  bool IsPlaceholder() const noexcept { return !quoted && text == "-"; }
};

// The words of a line; none for a blank or comment line. Raises BadCommand for a text without its closing
// quote and for one that has no blank around it.
std::vector<Word> SplitLine(std::string_view line);

// The line without its comment and the blanks around it.
std::string_view CommandPart(std::string_view line);

}  // namespace vestrel::workbench
