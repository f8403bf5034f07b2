#include "util/modLog.h"

#include "core/Error.h"
#include "util/TextBuffer.h"
#include "util/modSprintf.h"

namespace vestrel::modLog {
namespace {

thread_local Ref<clsLogger> sharedLogger;

clsLogger& Shared() {
  if (!sharedLogger) RaiseError(Error_ObjectNotSet, u"modLog");
  return *sharedLogger;
}

}  // namespace

void Init(std::u16string_view logFilename) {
  sharedLogger = MakeRef<clsLogger>();
  sharedLogger->Init(logFilename);
}

void SetLogLevel(LogLevel_Enum level) {
  Shared().SetLevel(level);
}

void Log(std::u16string_view text, LogLevel_Enum level) {
  Shared().Log(text, level);
}

Ref<clsLogger> GetLogger() {
  return sharedLogger;
}

bool Passes(LogLevel_Enum level) {
  return Shared().Passes(level);
}

void LogFormatted(LogLevel_Enum level, std::u16string_view format,
                  std::span<const modSprintf::FormatArg> args) {
  TextBuffer text;
  modSprintf::AppendFormatted(text, format, args);
  Log(text.view(), level);
}

}  // namespace vestrel::modLog
