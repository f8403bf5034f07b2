// The leveled text log: writes each line that passes its level to the end of one file, in the narrow code
// page. The file is opened, written and closed for every line, so a line is in the file when Log returns. It
// is never truncated. Shared by the library through modLog; it does not rotate, lock or time-stamp.
#pragma once

#include <string>
#include <string_view>

#include "core/Object.h"
#include "util/LogLevel.h"

namespace vestrel {

class TextBuffer;

class clsLogger : public Object {
 public:
  VESTREL_OBJECT(clsLogger)

  // Names the file, sets the level to LogLevel_3_INFO and writes the two header lines, the second with the
  // local date and time. Raises the file error (52, 53, 57, 61, 70, 75, 76) of a file that cannot be written.
  void Init(std::u16string_view filename);
  // The most detailed level that is written; not checked.
  void SetLevel(LogLevel_Enum level) noexcept { level_ = level; }
  // Writes "[level name] text" when 0 <= level <= the current level. Raises a file error as Init does, and 9
  // for a level above 4 that passes.
  void Log(std::u16string_view text, LogLevel_Enum level = LogLevel_3_INFO);

  // Whether a line of this level would be written.
  bool Passes(LogLevel_Enum level) const noexcept { return level >= 0 && level <= level_; }

 private:
  void AppendLine(const TextBuffer& line);
  void Write(std::string_view bytes);
  bool EndsInsideLine() const;

  std::u16string filename_;
  // Nothing is written before Init has named the file: no level passes.
  LogLevel_Enum level_ = static_cast<LogLevel_Enum>(-1);
  // The file may end in the middle of a line: at first (whoever wrote it may have been killed) and after a
  // failed write of ours.
  bool endIsUncertain_ = true;
};

}  // namespace vestrel
