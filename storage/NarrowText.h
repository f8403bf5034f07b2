// Turns the library's texts into the narrow page for a file. What the page lacks becomes "?"; a WARNING line
// in the log, where there is a log, says so once for each text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vestrel {

class NarrowText {
 public:
  std::string operator()(std::u16string_view text);
  // Logs the texts that lost something since the last call, each once a thread. Raises what the log raises.
  void WarnOfLosses();

 private:
  std::vector<std::u16string> lossy_;
};

}  // namespace vestrel
