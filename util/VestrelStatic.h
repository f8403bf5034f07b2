// The host's door to the library's free functions: log, assertion, names, index arithmetic, boxes and lists
// of texts. Each operation forwards to the function that the library's own classes call. Owned by the host;
// apart from its one field it has no state.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/IComparable.h"
#include "core/Object.h"
#include "core/Ref.h"
#include "core/Variant.h"
#include "core/clsLong.h"
#include "core/clsObjectList.h"
#include "core/clsString.h"
#include "model/clsButton.h"
#include "util/LogLevel.h"
#include "util/clsLogger.h"

namespace vestrel {

class VestrelStatic : public Object {
 public:
  VESTREL_OBJECT(VestrelStatic)

  // Published for hosts; the arithmetic below uses 32 whatever is stored here.
  std::int32_t NUM_TOP_BUTTONS = 32;

  // The log (util/modLog.h). Init comes before anything else; the others raise 91 without it, but GetLogger,
  // which answers none. Init and Log raise the file error (52, 53, 57, 61, 70, 75, 76) of a log that cannot
  // be written, Log also 9 for a level above 4 that passes.
  void Init(std::u16string_view logFilename);
  void SetLogLevel(LogLevel_Enum level);
  void Log(std::u16string_view text, LogLevel_Enum level = LogLevel_3_INFO);
  Ref<clsLogger> GetLogger() const;

  // Whether there is an object.
  bool IsSomething(Object* value) const;

  // Index arithmetic (controller/ControlIndex.h).
  std::int32_t OneBasedMod(std::int32_t value, std::int32_t modValue) const;
  std::int32_t ZeroToOneBased(std::int32_t index) const;
  std::int32_t OneToZeroBased(std::int32_t index) const;

  // Raises 7155 when `isTrue` is false.
  void Assert(bool isTrue) const;
  // Whether a.CompareTo(b, field) is 0, or is not. Raise 91 for no `a` and what CompareTo raises.
  bool AreEqual(IComparable* a, IComparable* b, std::u16string_view field = u"all") const;
  bool NotEqual(IComparable* a, IComparable* b, std::u16string_view field = u"all") const;
  // The piece of `filename` after the last `delim`; empty when it ends with it.
  std::u16string Basename(std::u16string_view filename, std::u16string_view delim = u"\\") const;
  // Everything before the last "."; empty for a name without one.
  std::u16string RemoveFileExt(std::u16string_view filename) const;
  // Deletes the page file of a page, if it exists; the page's folder stays. Raises the file error of a file
  // that cannot be deleted.
  void deleteINI(std::u16string_view appPath, std::u16string_view showName,
                 std::u16string_view pageName) const;

  // More index arithmetic (controller/ControlIndex.h).
  std::int32_t globalToLocalControlIndex(std::int32_t buttonsPerGroup, std::int32_t controlIndex) const;
  // A dynamic value that holds a 32-bit integer.
  Variant controlIndexFromButtonIndex(std::int32_t buttonsPerGroup, std::int32_t groupIndex,
                                      std::int32_t buttonIndex) const;
  std::int32_t returnGroupFromPosition(std::int32_t buttonsPerGroup, std::int32_t thePosition) const;
  std::int32_t returnFirstPositionFromGroup(std::int32_t buttonsPerGroup, std::int32_t theGroup) const;

  // The same object as a button; none stays none. Raises 13 for another object.
  Ref<clsButton> AsButton(Object* obj) const;
  Ref<clsLong> BoxLong(std::int32_t longValue) const;
  // Raises 91 for none.
  std::int32_t UnboxLong(clsLong* boxed) const;
  Ref<clsString> BoxString(std::u16string_view stringValue) const;
  // Raises 91 for none.
  std::u16string UnboxString(clsString* boxed) const;
  // A new list of boxed texts, one for each value. Raises 13 or 91 for an object without a value of its own.
  Ref<clsObjectList> StringListFrom(std::span<const Variant> values) const;
  // A new list of boxed texts, one for each piece of `source` between the delimiters.
  Ref<clsObjectList> ListFromSplitString(std::u16string_view source, std::u16string_view delim) const;

  // The library's version, major.minor.patch.
  std::u16string Version() const;
  // Opens a text file of delimited fields under a free number (1 to 511), which the operations that read or
  // write an open file take: a new file, which takes the old one's place when it is closed; the file as it
  // is; or at its end. Raise 52 when no number is free, 53, 70, 75 or 76 when the file cannot be opened and
  // 55 when it is open already and one of the two writes.
  std::int32_t OpenTextFileForOutput(std::u16string_view filename) const;
  std::int32_t OpenTextFileForInput(std::u16string_view filename) const;
  std::int32_t OpenTextFileForAppend(std::u16string_view filename) const;
  // Completes the file and frees its number; a number that nothing is open under is no failure. Raises 57,
  // 61, 70 or 75 when the file cannot be completed; the old file stays then.
  void CloseTextFile(std::int32_t number) const;
};

}  // namespace vestrel
