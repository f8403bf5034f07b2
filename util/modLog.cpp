#include "util/modLog.h"

#include "core/Error.h"
#include "util/TextBuffer.h"
#include "util/modSprintf.h"

namespace vestrel::modLog {
namespace {

// Keeps the shared logger alive, until the thread ends.
struct Keeper {
  Keeper() = default;
  Keeper(const Keeper&) = delete;
  Keeper& operator=(const Keeper&) = delete;
  ~Keeper() { detail::shared = nullptr; }

  Ref<clsLogger> logger;
};

thread_local Keeper keeper;

clsLogger& Shared() {
  if (detail::shared == nullptr) detail::FailBeforeInit();
  return *detail::shared;
}

}  // namespace

constinit thread_local clsLogger* detail::shared = nullptr;

void detail::FailBeforeInit() {
  RaiseError(Error_ObjectNotSet, u"modLog");
}

void Init(std::u16string_view logFilename) {
  keeper.logger = MakeRef<clsLogger>();
  detail::shared = keeper.logger.get();
  detail::shared->Init(logFilename);
}

void SetLogLevel(LogLevel_Enum level) {
  Shared().SetLevel(level);
}

void Log(std::u16string_view text, LogLevel_Enum level) {
  Shared().Log(text, level);
}

Ref<clsLogger> GetLogger() {
  return {detail::shared};
}

void LogFormatted(LogLevel_Enum level, std::u16string_view format,
                  std::span<const modSprintf::FormatArg> args) {
  TextBuffer text;
  modSprintf::AppendFormatted(text, format, args);
  Log(text.view(), level);
}

}  // namespace vestrel::modLog
