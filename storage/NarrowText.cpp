#include "storage/NarrowText.h"

#include <set>
#include <utility>

#include "core/Error.h"
#include "platform/Ascii.h"
#include "platform/Platform.h"
#include "util/modLog.h"

namespace vestrel {

std::string NarrowText::operator()(std::u16string_view text) {
  bool lossy = false;
  std::string bytes = platform::encoding().Narrow(text, lossy);
  if (lossy) lossy_.emplace_back(text);
  return bytes;
}

void NarrowText::Warn() {
  if (!modLog::GetLogger()) return;
  thread_local std::set<std::u16string> warnedOf;
  for (std::u16string& text : std::exchange(lossy_, {})) {
    if (!warnedOf.insert(text).second) continue;
    try {
      modLog::LogFormat(LogLevel_2_WARNING,
                        u"the system's code page lacks characters of [%s]; written as \"?\"", text);
    } catch (const Error&) {
      warnedOf.erase(text);
    }
  }
}

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): nothing of short_ is read but what was written
NarrowCopy::NarrowCopy(NarrowText& narrow, std::u16string_view text) {
  if (text.size() <= kShort && platform::CopyAscii(text, short_)) {
    view_ = {short_, text.size()};
  } else {
    view_ = long_ = narrow(text);
  }
}

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
NarrowCopy::NarrowCopy(NarrowText& narrow, const KeptName& front, std::u16string_view back) {
  if (PutFront(front, back.size()) && platform::CopyAscii(back, short_ + front.narrow().size())) {
    view_ = {short_, front.narrow().size() + back.size()};
  } else {
    view_ = long_ = narrow(front.text().append(back));
  }
}

void NarrowCopy::TakeLong(NarrowText& narrow, const KeptName& front, std::string_view back) {
  view_ = long_ = narrow(front.text() + platform::WidenAscii(back));
}

}  // namespace vestrel
