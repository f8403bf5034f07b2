#include "util/modUtils.h"

#include <cstddef>
#include <cstdint>

#include "core/Error.h"
#include "platform/Platform.h"
#include "util/modLog.h"

namespace vestrel::modUtils {
namespace {

constexpr std::int32_t kAssertionFailed = 7155;
constexpr std::u16string_view kErrorCaption = u"Error";

// CR LF counts as one break.
std::u16string InOneLine(std::u16string_view text) {
  std::u16string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;
    line.push_back(text[i] == u'\r' || text[i] == u'\n' ? u' ' : text[i]);
  }
  return line;
}

}  // namespace

void Assert(bool isTrue) {
  if (!isTrue) throw Error(kAssertionFailed, u"modUtils.Assert()", u"assert false");
}

std::u16string Basename(std::u16string_view filename, std::u16string_view delim) {
  // Without a delimiter nothing is split.
  if (delim.empty()) return std::u16string(filename);
  // Found from the front, as a split finds them: delimiters of several characters may overlap.
  std::size_t start = 0;
  for (std::size_t at = filename.find(delim); at != std::u16string_view::npos;
       at = filename.find(delim, start)) {
    start = at + delim.size();
  }
  return std::u16string(filename.substr(start));
}

std::u16string RemoveFileExt(std::u16string_view filename) {
  const std::size_t point = filename.rfind(u'.');
  return std::u16string(filename.substr(0, point == std::u16string_view::npos ? 0 : point));
}

void ShowErrorBox(std::u16string_view text) {
  if (platform::MessageBoxesAreLogged()) {
    modLog::LogFormat(LogLevel_2_WARNING, u"message box [%s]: %s", kErrorCaption, InOneLine(text));
  } else {
    platform::hostServices().ShowMessageBox(text, kErrorCaption);
  }
}

}  // namespace vestrel::modUtils
