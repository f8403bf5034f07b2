// The one log that the library shares, one a thread: every message of the library goes through here. The host
// initialises it first of all; logging before that raises 91.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "core/Ref.h"
#include "util/FormatArg.h"
#include "util/LogLevel.h"
#include "util/clsLogger.h"

namespace vestrel::modLog {

// Makes a new logger for the file, shares it in place of any earlier one, and writes its header. A logger
// whose header could not be written stays shared. Raises what clsLogger::Init raises.
void Init(std::u16string_view logFilename);
// Raises 91 before Init.
void SetLogLevel(LogLevel_Enum level);
// Raises 91 before Init, and what clsLogger::Log raises.
void Log(std::u16string_view text, LogLevel_Enum level = LogLevel_3_INFO);
// The shared logger, none before Init.
Ref<clsLogger> GetLogger();

namespace detail {
// The logger that is shared, null before Init; here so that asking it takes no call.
extern constinit thread_local clsLogger* shared;
[[noreturn]] void FailBeforeInit();
}  // namespace detail

// Whether a line of this level would be written. Raises 91 before Init.
inline bool Passes(LogLevel_Enum level) {
  if (detail::shared == nullptr) detail::FailBeforeInit();
  return detail::shared->Passes(level);
}

// Formats and logs whatever the level; LogFormat below is what callers use.
void LogFormatted(LogLevel_Enum level, std::u16string_view format,
                  std::span<const modSprintf::FormatArg> args);

// Logs a text with placeholders, as modSprintf formats them; it is formatted, and `format` (whatever becomes
// a view of UTF-16 text) measured, only when its level passes. Raises 91 before Init, and what clsLogger::Log
// raises.
template <class Format, class... Args>
void LogFormat(LogLevel_Enum level, const Format& format, const Args&... args) {
  if (!Passes(level)) return;
  const std::array<modSprintf::FormatArg, sizeof...(Args)> list{modSprintf::FormatArg(args)...};
  LogFormatted(level, format, list);
}

}  // namespace vestrel::modLog
