#include "storage/NarrowText.h"

#include <set>
#include <utility>

#include "platform/Platform.h"
#include "util/modLog.h"

namespace vestrel {

std::string NarrowText::operator()(std::u16string_view text) {
  bool lossy = false;
  std::string bytes = platform::encoding().Narrow(text, lossy);
  if (lossy) lossy_.emplace_back(text);
  return bytes;
}

void NarrowText::WarnOfLosses() {
  if (lossy_.empty() || !modLog::GetLogger()) return;
  thread_local std::set<std::u16string> warnedOf;
  for (std::u16string& text : std::exchange(lossy_, {})) {
    if (!warnedOf.insert(text).second) continue;
    modLog::LogFormat(LogLevel_2_WARNING,
                      u"the system's code page lacks characters of [%s]; written as \"?\"", text);
  }
}

}  // namespace vestrel
